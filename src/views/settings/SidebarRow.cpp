#include "views/settings/SidebarRow.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int kCategorySpacing = 8;

} // namespace

SidebarRow::SidebarRow(Style style, QWidget* parent) : SidebarItem(parent), m_style(style)
{
    setFixedHeight(metrics().height);
}

QAccessible::State SidebarRow::accessibleState() const
{
    QAccessible::State state;
    state.selectable = true;
    state.selected = m_selected;
    return state;
}

const SidebarRow::Metrics& SidebarRow::metrics() const
{
    static const Metrics record{44, 12, 28, 0, 12, 16, 8, 12, 6};
    static const Metrics category{12, 12, 32, 10, 14, 20, kCategorySpacing, 13, 8};
    return m_style == Style::record ? record : category;
}

QFont SidebarRow::textFont() const
{
    const bool medium = m_style == Style::category && m_selected;
    return Theme::systemFont(metrics().fontSize, medium ? QFont::Medium : QFont::Normal);
}

void SidebarRow::setSymbol(const QString& symbolName)
{
    if (symbolName == m_symbol)
        return;
    m_symbol = symbolName;
    refreshIcon();
}

void SidebarRow::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    notifyNameChanged();
    update();
}

void SidebarRow::setHighlighted(bool highlighted)
{
    if (highlighted == m_highlighted)
        return;
    m_highlighted = highlighted;
    refreshIcon();
}

void SidebarRow::setSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    QAccessible::State changed;
    changed.selected = true;
    notifyStateChanged(changed);
    refreshIcon();
}

QColor SidebarRow::iconColor() const
{
    if (m_selected)
        return Qt::white;
    if (m_style == Style::record && m_highlighted)
        return Theme::green();
    return Theme::secondaryText(palette());
}

QColor SidebarRow::textColor() const
{
    return m_selected ? QColor(Qt::white) : Theme::primaryText(palette());
}

void SidebarRow::refreshIcon()
{
    m_icon = m_symbol.isEmpty() ? QIcon() : SymbolIcons::tinted(m_symbol, iconColor());
    update();
}

QSize SidebarRow::sizeHint() const
{
    const Metrics& m = metrics();
    return {m.paddingLeft + m.leadingSpacer + m.iconBox + m.spacing + 60 + m.paddingRight,
            m.height};
}

void SidebarRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Metrics& m = metrics();

    if (m_selected) {
        QPainterPath background;
        background.addRoundedRect(QRectF(rect()), m.radius, m.radius);
        painter.fillPath(background, Theme::accent(palette()));
    }

    int x = m.paddingLeft;
    if (m.leadingSpacer > 0)
        x += m.leadingSpacer + kCategorySpacing;
    const QRect iconRect(x + (m.iconBox - m.iconSize) / 2, (height() - m.iconSize) / 2, m.iconSize,
                         m.iconSize);
    m_icon.paint(&painter, iconRect);
    x += m.iconBox + m.spacing;

    const QRect textRect(x, 0, width() - x - m.paddingRight, height());
    painter.setFont(textFont());
    painter.setPen(textColor());
    const QString shown =
        painter.fontMetrics().elidedText(m_text, Qt::ElideRight, textRect.width());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    paintFocusMark(painter, QRectF(rect()), m.radius, m_selected);
}
