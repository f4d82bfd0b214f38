#include "views/common/Card.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

Card::Card(qreal radius, QPalette::ColorRole fill, QPalette::ColorRole outline,
           qreal outlineOpacity, QWidget* parent)
    : QWidget(parent), m_radius(radius), m_fill(fill), m_outline(outline),
      m_outlineOpacity(outlineOpacity)
{}

void Card::setGradient(const QColor& topLeft, const QColor& bottomRight)
{
    m_gradientStart = topLeft;
    m_gradientEnd = bottomRight;
    update();
}

void Card::showFocusOf(QWidget* field)
{
    m_focusField = field;
    field->installEventFilter(this);
}

bool Card::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_focusField &&
        (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        update();
    return QWidget::eventFilter(watched, event);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Half a pixel in, so a one pixel outline falls on whole pixels.
    const QRectF shape = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    path.addRoundedRect(shape, m_radius, m_radius);
    if (m_gradientStart.isValid()) {
        QLinearGradient gradient(shape.topLeft(), shape.bottomRight());
        gradient.setColorAt(0, m_gradientStart);
        gradient.setColorAt(1, m_gradientEnd);
        painter.fillPath(path, gradient);
    } else if (m_fill != QPalette::NoRole) {
        painter.fillPath(path, palette().color(m_fill));
    }
    if (m_focusField && m_focusField->hasFocus()) {
        QPainterPath ring;
        ring.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), m_radius, m_radius);
        painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), 2.0));
        painter.drawPath(ring);
    } else if (m_outline != QPalette::NoRole) {
        painter.setOpacity(m_outlineOpacity);
        painter.setPen(QPen(palette().color(m_outline), 1.0));
        painter.drawPath(path);
    }
}
