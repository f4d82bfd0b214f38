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

constexpr int kIconSize = 100;
constexpr int kDividerWidth = 200;
constexpr int kDescriptionWidth = 250;

QLabel* captionLabel(const QString& text)
{
    return Theme::label(text, Theme::caption(), Theme::kSecondaryText);
}

} // namespace

AboutView::AboutView(QWidget* parent) : QWidget(parent), m_iconSpace(new QWidget)
{
    setFixedSize(kSize, kSize);
    m_iconSpace->setFixedSize(kIconSize, kIconSize);

    auto* description =
        captionLabel(u"Print product labels from Kalmora to Zebra printers using ZPL"_s);
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignHCenter);
    description->setFixedWidth(kDescriptionWidth);

    // The link is in the caption's colour, not the link blue: rich text takes
    // a link's colour from the application palette unless the link names one.
    m_link = captionLabel(u"<a href=\"%1\" style=\"color: %2\">%3</a>"_s.arg(
        AppInfo::makerURL().toString(), palette().color(Theme::kSecondaryText).name(),
        AppInfo::makerDomain()));
    m_link->setTextFormat(Qt::RichText);
    m_link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(m_link, &QLabel::linkActivated, this,
            [](const QString& link) { QDesktopServices::openUrl(QUrl(link)); });

    auto* footer = new QHBoxLayout;
    footer->setSpacing(4);
    footer->addWidget(captionLabel(u"© "_s + QString::number(QDate::currentDate().year())));
    footer->addWidget(m_link);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(32, 32, 32, 32);
    column->setSpacing(16);
    column->addWidget(m_iconSpace, 0, Qt::AlignHCenter);
    column->addWidget(Theme::label(u"Stampix"_s, Theme::systemFont(17, QFont::DemiBold)), 0,
                      Qt::AlignHCenter);
    column->addWidget(captionLabel(u"Version "_s + AppInfo::version()), 0, Qt::AlignHCenter);
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
    const QIcon icon =
        QApplication::windowIcon().isNull() ? SymbolIcons::appIcon() : QApplication::windowIcon();
    painter.drawPixmap(target, icon.pixmap(target.size(), devicePixelRatioF()));
}
