#include "SinkThread.h"

#include "LabelSink.h"

#include <stdexcept>

SinkThread::SinkThread()
{
    m_thread.start();
    m_anchor = new QObject;
    m_anchor->moveToThread(&m_thread);
    // Created on its own thread, so its listening socket lives there too.
    QMetaObject::invokeMethod(
        m_anchor,
        [this] {
            m_sink = new LabelSink;
            QObject::connect(m_sink, &LabelSink::jobReceived, m_sink,
                             [this](const QByteArray&) { m_jobs.fetch_add(1); });
            if (m_sink->listen())
                m_port = m_sink->port();
        },
        Qt::BlockingQueuedConnection);
    if (m_port == 0)
        throw std::runtime_error("the label sink could not listen on loopback");
}

SinkThread::~SinkThread()
{
    QMetaObject::invokeMethod(
        m_anchor,
        [this] {
            delete m_sink;
            delete m_anchor;
        },
        Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

bool SinkThread::waitForJobs(int count, std::chrono::milliseconds limit) const
{
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (m_jobs.load() < count) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        QThread::usleep(200);
    }
    return true;
}
