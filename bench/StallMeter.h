#pragma once

#include <QElapsedTimer>
#include <QTimer>

// The longest time the event loop went without serving a repeating 1 ms
// timer: how long the interface would have stood still.
class StallMeter
{
public:
    StallMeter();

    void start();
    // Milliseconds; the stretch from the last tick to the stop counts too.
    double stop();

private:
    void onTick();

    QTimer m_timer;
    QElapsedTimer m_sinceTick;
    qint64 m_longestNs = 0;
};
