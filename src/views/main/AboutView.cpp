#include "views/main/AboutView.h"

#include "views/common/AppInfo.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDividerWidth = 200;
constexpr int kDescriptionWidth = 250;

QLabel* captionLabel(const QString& text, const QPalette& palette)
{
    auto* label = new QLabel(text);
    label->setFont(Theme::caption());
    QPalette pal = palette;
    pal.setColor(QPalette::WindowText, Theme::secondaryText(palette));
    label->setPalette(pal);
    return label;
}

QFrame* divider()
{
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setFixedWidth(kDividerWidth);
    QPalette pal = line->palette();
    pal.setColor(QPalette::WindowText, Theme::separator(pal));
    line->setPalette(pal);
    return line;
}

} // namespace

AboutView::AboutView(QWidget* parent) : QWidget(parent)
{
    setFixedSize(kSize, kSize);

    auto* icon = new QLabel;
    icon->setPixmap(applicationIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setFixedSize(kIconSize, kIconSize);
    icon->setScaledContents(true);

    auto* name = new QLabel(u"Stampix"_s);
    name->setFont(Theme::systemFont(Theme::title2().pixelSize(), QFont::DemiBold));

    auto* description =
        captionLabel(u"Print product labels from Kalmora to Zebra printers using ZPL"_s, palette());
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignHCenter);
    description->setFixedWidth(kDescriptionWidth);

    // The link is in the caption's colour, not the link blue: rich text takes
    // a link's colour from the application palette unless the link names one.
    m_link = captionLabel(
        u"<a href=\"%1\" style=\"color: %2\">%3</a>"_s.arg(
            makerURL().toString(), Theme::secondaryText(palette()).name(), makerDomain()),
        palette());
    m_link->setTextFormat(Qt::RichText);
    m_link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_link, &QLabel::linkActivated, this, &AboutView::openLink);

    auto* footer = new QHBoxLayout;
    footer->setSpacing(4);
    footer->addWidget(captionLabel(copyrightText(), palette()));
    footer->addWidget(m_link);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(32, 32, 32, 32);
    column->setSpacing(16);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addWidget(name, 0, Qt::AlignHCenter);
    column->addWidget(captionLabel(u"Version "_s + AppInfo::version(), palette()), 0,
                      Qt::AlignHCenter);
    column->addWidget(divider(), 0, Qt::AlignHCenter);
    column->addWidget(description, 0, Qt::AlignHCenter);
    column->addStretch(1);
    column->addLayout(footer);
    column->setAlignment(footer, Qt::AlignHCenter);
}

QString AboutView::makerDomain()
{
    return u"stampix.app"_s;
}

QUrl AboutView::makerURL()
{
    return QUrl(u"https://stampix.app"_s);
}

QIcon AboutView::applicationIcon()
{
    const QIcon windowIcon = QApplication::windowIcon();
    if (!windowIcon.isNull())
        return windowIcon;
    const QIcon ownIcon = SymbolIcons::appIcon();
    if (!ownIcon.isNull())
        return ownIcon;
    return SymbolIcons::tinted(u"printer.fill", Theme::blue());
}

QString AboutView::copyrightText()
{
    return u"© "_s + QString::number(QDate::currentDate().year());
}

void AboutView::openLink(const QString& link)
{
    QDesktopServices::openUrl(QUrl(link));
}
