#include "StallMeter.h"

#include <algorithm>

StallMeter::StallMeter()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(1);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { onTick(); });
}

void StallMeter::start()
{
    m_longestNs = 0;
    m_sinceTick.start();
    m_timer.start();
}

double StallMeter::stop()
{
    m_timer.stop();
    return double(std::max(m_longestNs, m_sinceTick.nsecsElapsed())) / 1e6;
}

void StallMeter::onTick()
{
    m_longestNs = std::max(m_longestNs, m_sinceTick.nsecsElapsed());
    m_sinceTick.restart();
}
