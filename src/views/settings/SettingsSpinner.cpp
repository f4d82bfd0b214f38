#include "SettingsSpinner.h"

#include "views/main/Theme.h"

#include <QPainter>

namespace {

constexpr int kSpokes = 12;
constexpr int kStepMs = 80;

} // namespace

SettingsSpinner::SettingsSpinner(int diameter, QWidget* parent) : QWidget(parent)
{
    setFixedSize(diameter, diameter);
    m_timer.setInterval(kStepMs);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_step = (m_step + 1) % kSpokes;
        update();
    });
}

void SettingsSpinner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = qMin(width(), height()) / 2.0;
    painter.translate(width() / 2.0, height() / 2.0);
    QColor color = Theme::secondaryText(palette());
    for (int i = 0; i < kSpokes; ++i) {
        // The newest spoke is darkest; the others fade behind it.
        const int age = (m_step - i + kSpokes) % kSpokes;
        color.setAlphaF(float(1.0 - age / double(kSpokes)));
        painter.setPen(QPen(color, qMax(1.0, radius / 4.5), Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -radius * 0.45), QPointF(0, -radius * 0.9));
        painter.rotate(360.0 / kSpokes);
    }
}

void SettingsSpinner::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_timer.start();
}

void SettingsSpinner::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}
