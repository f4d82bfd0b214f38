#include "PrinterSocket.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

#ifdef MSG_NOSIGNAL
constexpr int kSendFlags = MSG_NOSIGNAL;
#else
constexpr int kSendFlags = 0; // SO_NOSIGPIPE is set on the socket instead
#endif

struct SocketAddress
{
    sockaddr_storage storage{};
    socklen_t length = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&storage); }
};

quint32 scopeIndex(const QString& scope)
{
    bool isNumber = false;
    const quint32 number = scope.toUInt(&isNumber);
    return isNumber ? number : ::if_nametoindex(scope.toLocal8Bit().constData());
}

SocketAddress socketAddress(const QHostAddress& address, quint16 port)
{
    SocketAddress result;
    if (address.protocol() == QAbstractSocket::IPv4Protocol) {
        auto* ipv4 = reinterpret_cast<sockaddr_in*>(&result.storage);
        ipv4->sin_family = AF_INET;
        ipv4->sin_port = htons(port);
        ipv4->sin_addr.s_addr = htonl(address.toIPv4Address());
        result.length = sizeof(sockaddr_in);
    } else {
        auto* ipv6 = reinterpret_cast<sockaddr_in6*>(&result.storage);
        ipv6->sin6_family = AF_INET6;
        ipv6->sin6_port = htons(port);
        const Q_IPV6ADDR bytes = address.toIPv6Address();
        std::memcpy(&ipv6->sin6_addr, bytes.c, sizeof bytes.c);
        ipv6->sin6_scope_id = scopeIndex(address.scopeId());
        result.length = sizeof(sockaddr_in6);
    }
    return result;
}

#ifndef SOCK_NONBLOCK
bool setNonBlockingAndPrivate(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK) == 0 &&
           ::fcntl(descriptor, F_SETFD, FD_CLOEXEC) == 0;
}
#endif

int openSocket(int family)
{
#ifdef SOCK_NONBLOCK
    const int descriptor = ::socket(family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
#else
    const int descriptor = ::socket(family, SOCK_STREAM, 0);
    if (descriptor >= 0 && !setNonBlockingAndPrivate(descriptor)) {
        const int error = errno;
        ::close(descriptor);
        errno = error;
        return -1;
    }
#endif
#ifdef SO_NOSIGPIPE
    // A printer that hangs up must give a send error, not end the program.
    const int on = 1;
    if (descriptor >= 0)
        ::setsockopt(descriptor, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    return descriptor;
}

} // namespace

PrinterSocket::PrinterSocket(QObject* parent) : QObject(parent), m_notifier(QSocketNotifier::Write)
{
    m_notifier.setEnabled(false);
    connect(&m_notifier, &QSocketNotifier::activated, this, &PrinterSocket::onActivated);
}

PrinterSocket::~PrinterSocket()
{
    close();
}

PrinterSocket::Progress PrinterSocket::connectTo(const QHostAddress& address, quint16 port)
{
    close();
    const SocketAddress target = socketAddress(address, port);
    m_descriptor = openSocket(target.storage.ss_family);
    if (m_descriptor < 0)
        return fail(errno);
    if (::connect(m_descriptor, target.get(), target.length) == 0)
        return Progress::done;
    // An interrupted connect goes on in the background, like one in progress.
    if (errno != EINPROGRESS && errno != EINTR)
        return fail(errno);
    // A connection to a nearby host is often up already: one look now saves
    // a pass through the event loop.
    return isWritableNow() ? finishConnecting() : waitUntilWritable();
}

PrinterSocket::Progress PrinterSocket::finishConnecting()
{
    int error = 0;
    socklen_t length = sizeof error;
    if (::getsockopt(m_descriptor, SOL_SOCKET, SO_ERROR, &error, &length) != 0)
        return fail(errno);
    if (error == EINPROGRESS || error == EALREADY)
        return waitUntilWritable();
    return error == 0 ? Progress::done : fail(error);
}

PrinterSocket::Progress PrinterSocket::send(QByteArrayView bytes, qint64* written)
{
    qsizetype offset = 0;
    while (offset < bytes.size()) {
        const ssize_t count =
            ::send(m_descriptor, bytes.data() + offset, size_t(bytes.size() - offset), kSendFlags);
        if (count >= 0) {
            offset += count;
            *written += count;
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            return waitUntilWritable();
        } else if (errno != EINTR) {
            return fail(errno);
        }
    }
    return Progress::done;
}

void PrinterSocket::close()
{
    m_notifier.setEnabled(false);
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

void PrinterSocket::onActivated()
{
    // One wake-up per wait: the step that follows decides whether to wait again.
    m_notifier.setEnabled(false);
    emit writable();
}

PrinterSocket::Progress PrinterSocket::fail(int error)
{
    m_errorString = qt_error_string(error);
    close();
    return Progress::failed;
}

bool PrinterSocket::isWritableNow() const
{
    pollfd request{m_descriptor, POLLOUT, 0};
    return ::poll(&request, 1, 0) == 1;
}

PrinterSocket::Progress PrinterSocket::waitUntilWritable()
{
    m_notifier.setSocket(m_descriptor);
    m_notifier.setEnabled(true);
    return Progress::waiting;
}
