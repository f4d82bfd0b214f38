#include "views/common/SaveErrorLabel.h"

#include "model/AppSettings.h"
#include "views/common/Theme.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QtMath>

using namespace Qt::StringLiterals;

namespace {

// Room for the start of the line in a narrow window.
constexpr int kMinimumCharacters = 12;

} // namespace

SaveErrorLabel::SaveErrorLabel(const AppSettings& settings, const QFont& font, QWidget* parent)
    : QLabel(parent), m_settings(settings)
{
    setFont(font);
    setForegroundRole(Theme::kErrorText);
    setObjectName(u"saveErrorLabel"_s);
    setTextFormat(Qt::PlainText);
    connect(&m_settings, &AppSettings::saveErrorChanged, this, &SaveErrorLabel::showSaveError);
    showSaveError();
}

QSize SaveErrorLabel::sizeHint() const
{
    // Rounded up: a pixel short and the whole line would be cut off.
    const int textWidth = qCeil(QFontMetricsF(font()).horizontalAdvance(m_line));
    const QMargins margins = contentsMargins();
    return {textWidth + margins.left() + margins.right() + 2 * margin(),
            QLabel::sizeHint().height()};
}

QSize SaveErrorLabel::minimumSizeHint() const
{
    const QSize full = sizeHint();
    return {qMin(full.width(), fontMetrics().averageCharWidth() * kMinimumCharacters),
            full.height()};
}

void SaveErrorLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void SaveErrorLabel::showSaveError()
{
    const QString& reason = m_settings.saveError();
    m_line = reason.isEmpty() ? QString() : u"Instellingen niet opgeslagen: "_s + reason;
    setToolTip(m_line);
    setAccessibleName(m_line);
    elide();
    updateGeometry();
    setVisible(!m_line.isEmpty());
    if (!m_line.isEmpty()) {
        // Nobody is looking at the status line when a save fails: have a
        // screen reader say it.
        QAccessibleEvent event(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

void SaveErrorLabel::elide()
{
    setText(
        fontMetrics().elidedText(m_line, Qt::ElideRight, contentsRect().width() - 2 * margin()));
}
