#pragma once

#include <QObject>
#include <QThread>
#include <atomic>
#include <chrono>

class LabelSink;

// A LabelSink on loopback with an event loop of its own, so the sender under
// measurement never does the sink's work on its own thread.
class SinkThread
{
public:
    SinkThread();
    ~SinkThread();
    SinkThread(const SinkThread&) = delete;
    SinkThread& operator=(const SinkThread&) = delete;

    quint16 port() const { return m_port; }
    int jobCount() const { return m_jobs.load(); }
    // Waits until `count` jobs have arrived; false when they do not within `limit`.
    bool waitForJobs(int count, std::chrono::milliseconds limit) const;

private:
    QThread m_thread;
    QObject* m_anchor = nullptr; // lives in m_thread; the sink is created through it
    LabelSink* m_sink = nullptr;
    quint16 m_port = 0;
    std::atomic<int> m_jobs{0};
};
