#include "SinkThread.h"

#include "LabelSink.h"

#include <cstdlib>
#include <dirent.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>

namespace {

// Qt listens with a backlog of 50. When the sender outruns the sink thread (a
// busy machine is enough), the kernel drops further SYNs and the sender waits
// a whole second for its retransmission: that measures the kernel's retry
// timer, not the sender. Listening again on the same socket only widens the
// queue of connections the kernel completes on the sink's behalf.
void widenBacklog(quint16 port)
{
    DIR* fds = ::opendir("/proc/self/fd");
    if (!fds)
        return;
    while (const dirent* entry = ::readdir(fds)) {
        const int fd = std::atoi(entry->d_name);
        sockaddr_in address{};
        socklen_t length = sizeof address;
        int listening = 0;
        socklen_t flagLength = sizeof listening;
        if (fd <= 2 || ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) != 0 ||
            address.sin_family != AF_INET || ntohs(address.sin_port) != port ||
            ::getsockopt(fd, SOL_SOCKET, SO_ACCEPTCONN, &listening, &flagLength) != 0 || !listening)
            continue;
        ::listen(fd, SOMAXCONN);
    }
    ::closedir(fds);
}

} // namespace

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
            if (m_sink->listen()) {
                m_port = m_sink->port();
                widenBacklog(m_port);
            }
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
