#include "RoundedBox.h"

#include <QPainter>
#include <QPainterPath>

RoundedBox::RoundedBox(qreal radius, Theme::PaletteColor fill, Theme::PaletteColor outline,
                       QWidget* parent)
    : QWidget(parent), m_radius(radius), m_fill(fill), m_outline(outline)
{}

void RoundedBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Half a pixel in, so a one pixel outline falls on whole pixels.
    const QRectF shape = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(shape, m_radius, m_radius);
    painter.fillPath(path, m_fill(palette()));
    if (m_outline) {
        painter.setPen(QPen(m_outline(palette()), 1.0));
        painter.drawPath(path);
    }
}
