#include "views/settings/SidebarItem.h"

#include "views/common/Theme.h"
#include "views/settings/SidebarItemAccessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr qreal kFocusWidth = 2;

} // namespace

SidebarItem::SidebarItem(QWidget* parent) : QWidget(parent)
{
    QAccessible::installFactory(&SidebarItemAccessible::create);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SidebarItem::activate()
{
    emit activated();
}

void SidebarItem::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            activate();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SidebarItem::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton;
    event->accept();
}

void SidebarItem::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click = m_pressed && event->button() == Qt::LeftButton &&
                       rect().contains(event->position().toPoint());
    m_pressed = false;
    event->accept();
    if (click)
        activate();
}

void SidebarItem::paintFocusMark(QPainter& painter, const QRectF& area, qreal radius,
                                 bool onAccent) const
{
    if (!hasFocus())
        return;
    const qreal inset = kFocusWidth / 2;
    QPainterPath ring;
    ring.addRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius, radius);
    const QColor color =
        onAccent ? palette().color(QPalette::HighlightedText) : Theme::accent(palette());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, kFocusWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(ring);
    painter.restore();
}

void SidebarItem::notifyStateChanged(const QAccessible::State& changed)
{
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void SidebarItem::notifyNameChanged()
{
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}
