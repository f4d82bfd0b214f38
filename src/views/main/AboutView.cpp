#include "views/main/AboutView.h"

#include "views/common/AppInfo.h"
#include "views/common/Divider.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
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

} // namespace

AboutView::AboutView(QWidget* parent) : QWidget(parent), m_iconSpace(new QWidget)
{
    setFixedSize(kSize, kSize);
    m_iconSpace->setFixedSize(kIconSize, kIconSize);

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
    column->addWidget(m_iconSpace, 0, Qt::AlignHCenter);
    column->addWidget(name, 0, Qt::AlignHCenter);
    column->addWidget(captionLabel(u"Version "_s + AppInfo::version(), palette()), 0,
                      Qt::AlignHCenter);
    column->addWidget(new Divider(Qt::Horizontal, kDividerWidth), 0, Qt::AlignHCenter);
    column->addWidget(description, 0, Qt::AlignHCenter);
    column->addStretch(1);
    column->addLayout(footer);
    column->setAlignment(footer, Qt::AlignHCenter);
}

void AboutView::paintEvent(QPaintEvent*)
{
    // At the scale of the screen the window is on now.
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRect target = m_iconSpace->geometry();
    painter.drawPixmap(target, applicationIcon().pixmap(target.size(), devicePixelRatioF()));
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
