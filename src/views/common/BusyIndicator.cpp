#include "views/common/BusyIndicator.h"

#include "views/common/Theme.h"

#include <QPainter>

namespace {

constexpr int kFrameMs = 80;
constexpr qreal kFaintestOpacity = 0.2;

} // namespace

BusyIndicator::BusyIndicator(int diameter, QWidget* parent) : QWidget(parent), m_diameter(diameter)
{
    setForegroundRole(Theme::kSecondaryText);
    setFixedSize(diameter, diameter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_timer.setInterval(kFrameMs);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % kSpokes;
        update();
    });
}

void BusyIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = m_diameter / 2.0;
    QColor color = palette().color(foregroundRole());
    QPen pen(color, qMax(1.0, radius * 0.18), Qt::SolidLine, Qt::RoundCap);
    painter.translate(width() / 2.0, height() / 2.0);
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        // The spoke at the current step is the brightest; the ones behind it fade.
        const int age = (m_step - spoke + kSpokes) % kSpokes;
        color.setAlphaF(1.0 - (1.0 - kFaintestOpacity) * age / (kSpokes - 1));
        pen.setColor(color);
        painter.setPen(pen);
        painter.drawLine(QPointF(0, -radius * 0.45), QPointF(0, -radius * 0.85));
        painter.rotate(360.0 / kSpokes);
    }
}

void BusyIndicator::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_timer.start();
}

void BusyIndicator::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}
