#include "views/main/RoundedBox.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

RoundedBox::RoundedBox(qreal radius, Theme::PaletteColor fill, Theme::PaletteColor outline,
                       QWidget* parent)
    : QWidget(parent), m_radius(radius), m_fill(fill), m_outline(outline)
{}

void RoundedBox::showFocusOf(QWidget* field)
{
    m_focusField = field;
    field->installEventFilter(this);
}

bool RoundedBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_focusField &&
        (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        update();
    return QWidget::eventFilter(watched, event);
}

void RoundedBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Half a pixel in, so a one pixel outline falls on whole pixels.
    const QRectF shape = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(shape, m_radius, m_radius);
    painter.fillPath(path, m_fill(palette()));
    if (m_focusField && m_focusField->hasFocus()) {
        QPainterPath ring;
        ring.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), m_radius, m_radius);
        painter.setPen(QPen(Theme::accent(palette()), 2.0));
        painter.drawPath(ring);
    } else if (m_outline) {
        painter.setPen(QPen(m_outline(palette()), 1.0));
        painter.drawPath(path);
    }
}
