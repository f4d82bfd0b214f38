#include "views/common/Divider.h"

#include <QPainter>

Divider::Divider(Qt::Orientation orientation, int length, QWidget* parent) : QWidget(parent)
{
    if (orientation == Qt::Horizontal) {
        setFixedHeight(1);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        if (length > 0)
            setFixedWidth(length);
    } else {
        setFixedWidth(1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        if (length > 0)
            setFixedHeight(length);
    }
}

void Divider::setColor(Theme::PaletteColor color)
{
    m_color = color;
    update();
}

void Divider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_color(palette()));
}
