#include "views/common/LabelPreviewView.h"

#include "labelrender/LabelPreview.h"
#include "views/common/LabelPictureButton.h"
#include "views/common/SymbolLabel.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 12;
// The renderer's own remark when ^PW or ^LL is missing; the size line says it.
constexpr QStringView kUnknownSizeNote = u"Etiketgrootte onbekend";
constexpr qsizetype kMaxWarningRows = 20;

QString millimetres(int dots, int dotsPerMm)
{
    QLocale dutch(QLocale::Dutch);
    dutch.setNumberOptions(QLocale::OmitGroupSeparator);
    const double tenths = std::round(dots * 10.0 / dotsPerMm);
    return dutch.toString(tenths / 10, 'f', QLocale::FloatingPointShortest);
}

QWidget* warningRow(const QString& text)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto* icon = new SymbolLabel(u"exclamationmark.triangle.fill"_s, kIconSize, Theme::orange());
    auto* label = Theme::label(text, Theme::caption(), QPalette::WindowText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addWidget(label, 1);
    return row;
}

QStringList warningsOf(const LabelPreview& preview)
{
    QStringList warnings = preview.warnings;
    for (const QString& note : preview.rendering.notes) {
        if (!note.startsWith(kUnknownSizeNote))
            warnings.append(note);
    }
    warnings += preview.rendering.cuts;
    if (const qsizetype count = preview.rendering.labelCount; count > 1)
        warnings.append(u"De ZPL bevat %1 etiketten; het voorbeeld toont het eerste."_s.arg(count));
    return warnings;
}

QString sizeLine(const RenderedLabel& label)
{
    if (!label.sizeKnown()) {
        const QString missing = !label.widthKnown && !label.lengthKnown ? u"^PW en ^LL"_s
                                : !label.widthKnown                     ? u"^PW"_s
                                                                        : u"^LL"_s;
        return u"Etiketformaat onbekend: de ZPL zet geen %1."_s.arg(missing);
    }
    const QSize dots = label.sizeDots();
    return u"%1 × %2 mm (%3 × %4 punten)"_s
        .arg(millimetres(dots.width(), label.dotsPerMm),
             millimetres(dots.height(), label.dotsPerMm))
        .arg(dots.width())
        .arg(dots.height());
}

} // namespace

LabelPreviewView::LabelPreviewView(QWidget* parent)
    : QWidget(parent), m_picture(new LabelPictureButton),
      m_size(Theme::label({}, Theme::caption(), Theme::kSecondaryText)), m_warningsBox(new QWidget),
      m_warningRows(new QVBoxLayout)
{
    m_picture->setAccessibleName(u"Etiketvoorbeeld"_s);
    m_picture->setToolTip(u"Klik om het etiket op 100 % te zien"_s);
    m_size->setWordWrap(true);

    auto* warningsLayout = new QVBoxLayout(m_warningsBox);
    warningsLayout->setContentsMargins(0, 4, 0, 0);
    warningsLayout->setSpacing(4);
    warningsLayout->addWidget(
        Theme::label(u"Waarschuwingen"_s, Theme::headline(), QPalette::WindowText));
    m_warningRows->setSpacing(4);
    warningsLayout->addLayout(m_warningRows);
    m_warningsBox->hide();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_picture);
    layout->addWidget(m_size);
    layout->addWidget(m_warningsBox);
    layout->addStretch(); // keeps the parts together in a taller area

    connect(m_picture, &LabelPictureButton::clicked, this, &LabelPreviewView::openFullSize);
}

void LabelPreviewView::showPreview(const LabelPreview& preview)
{
    const QList<RenderedLabel>& labels = preview.rendering.labels;
    if (!preview.failure.isEmpty()) {
        m_picture->setImage({});
        m_size->setText(preview.failure);
    } else if (labels.isEmpty()) {
        m_picture->setImage({});
        m_size->setText(u"Geen etiket: de ZPL bevat geen ^XA ... ^XZ."_s);
    } else {
        m_picture->setImage(labels.first().image);
        m_size->setText(sizeLine(labels.first()));
    }
    m_picture->setVisible(!labels.isEmpty());
    m_picture->setAccessibleDescription(m_size->text());
    showWarnings(warningsOf(preview));
    refreshFullSize();
}

void LabelPreviewView::showWarnings(const QStringList& warnings)
{
    if (warnings == m_warnings)
        return;
    m_warnings = warnings;
    while (QLayoutItem* item = m_warningRows->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    // Hostile product values can raise thousands; a screenful says enough.
    for (const QString& warning : warnings.first(qMin(warnings.size(), kMaxWarningRows)))
        m_warningRows->addWidget(warningRow(warning));
    if (warnings.size() > kMaxWarningRows)
        m_warningRows->addWidget(
            warningRow(u"en %1 meer"_s.arg(warnings.size() - kMaxWarningRows)));
    m_warningsBox->setVisible(!warnings.isEmpty());
}

void LabelPreviewView::openFullSize()
{
    if (m_picture->image().isNull())
        return;
    if (!m_fullSize) {
        // A child window: it goes with the view that opened it.
        m_fullSize = new QScrollArea(this);
        m_fullSize->setWindowFlag(Qt::Window);
        m_fullSize->setAttribute(Qt::WA_DeleteOnClose);
        m_fullSize->setWindowTitle(u"Etiketvoorbeeld (100 %)"_s);
        m_fullSize->setAlignment(Qt::AlignCenter);
        auto* picture = new QLabel;
        picture->setAccessibleName(u"Etiketvoorbeeld op 100 %"_s);
        m_fullSize->setWidget(picture);
        auto* close = new QShortcut(QKeySequence::Cancel, m_fullSize);
        connect(close, &QShortcut::activated, m_fullSize, &QWidget::close);
    }
    refreshFullSize();
    const QRect screen = this->screen()->availableGeometry();
    const QSize frame(2 * m_fullSize->frameWidth(), 2 * m_fullSize->frameWidth());
    m_fullSize->resize((m_picture->image().size() + frame)
                           .boundedTo(screen.size() * 0.9)
                           .expandedTo(QSize(200, 150)));
    m_fullSize->show();
    m_fullSize->raise();
    m_fullSize->activateWindow();
}

void LabelPreviewView::refreshFullSize()
{
    if (!m_fullSize)
        return;
    auto* picture = static_cast<QLabel*>(m_fullSize->widget());
    picture->setPixmap(QPixmap::fromImage(m_picture->image()));
    picture->adjustSize();
    picture->setAccessibleDescription(m_size->text());
}
