#include "views/settings/SidebarGroupHeader.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 12;
constexpr int kHeight = 32;
constexpr int kSpacing = 8;
constexpr int kChevronSize = 9;
constexpr int kChevronBox = 10;
constexpr int kIconSize = 14;
constexpr int kIconBox = 20;
constexpr int kPlusSize = 11;
constexpr qreal kFocusRadius = 8;

} // namespace

SidebarGroupHeader::SidebarGroupHeader(const QString& symbolName, const QString& title,
                                       const QString& addName, QWidget* parent)
    : SidebarItem(parent), m_title(title), m_addButton(new QToolButton(this))
{
    const QColor secondary = Theme::secondaryText(palette());
    m_groupIcon = SymbolIcons::tinted(symbolName, secondary);
    m_chevronOpen = SymbolIcons::tinted(u"chevron.down", secondary);
    m_chevronClosed = SymbolIcons::tinted(u"chevron.right", secondary);

    m_addButton->setIcon(SymbolIcons::tinted(u"plus", secondary));
    m_addButton->setIconSize(QSize(kPlusSize, kPlusSize));
    m_addButton->setAutoRaise(true);
    m_addButton->setToolTip(addName);
    m_addButton->setAccessibleName(addName);
    m_addButton->setCursor(Qt::PointingHandCursor);
    connect(m_addButton, &QToolButton::clicked, this, &SidebarGroupHeader::addRequested);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kPadding, 0, kPadding, 0);
    row->addStretch();
    row->addWidget(m_addButton);

    setFixedHeight(kHeight);
}

QAccessible::State SidebarGroupHeader::accessibleState() const
{
    QAccessible::State state;
    state.expandable = true;
    state.expanded = m_expanded;
    state.collapsed = !m_expanded;
    return state;
}

void SidebarGroupHeader::setExpanded(bool expanded)
{
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    notifyStateChanged(changed);
    update();
}

void SidebarGroupHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    int x = kPadding;
    const QIcon& chevron = m_expanded ? m_chevronOpen : m_chevronClosed;
    chevron.paint(&painter, QRect(x + (kChevronBox - kChevronSize) / 2,
                                  (height() - kChevronSize) / 2, kChevronSize, kChevronSize));
    x += kChevronBox + kSpacing;
    m_groupIcon.paint(&painter, QRect(x + (kIconBox - kIconSize) / 2, (height() - kIconSize) / 2,
                                      kIconSize, kIconSize));
    x += kIconBox + kSpacing;

    const QRect textRect(x, 0, m_addButton->geometry().left() - kSpacing - x, height());
    painter.setFont(Theme::systemFont(13));
    painter.setPen(Theme::primaryText(palette()));
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_title, Qt::ElideRight, textRect.width()));
    paintFocusMark(painter, QRectF(rect()), kFocusRadius, false);
}
