#include "UnansweredPort.h"

#ifdef Q_OS_UNIX
#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxFillers = 8;
constexpr int kConnectWaitMs = 150;

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

QString systemError(const char* what)
{
    return u"%1: %2"_s.arg(QString::fromLatin1(what), QString::fromLocal8Bit(std::strerror(errno)));
}

// Connects until one attempt is left hanging: from then on the queue is full.
bool fillQueue(quint16 port, QList<int>& fillers)
{
    const sockaddr_in address = loopback(port);
    for (int i = 0; i < kMaxFillers; ++i) {
        const int filler = ::socket(AF_INET, SOCK_STREAM, 0);
        if (filler < 0)
            return false;
        fillers.append(filler);
        ::fcntl(filler, F_SETFL, ::fcntl(filler, F_GETFL) | O_NONBLOCK);
        if (::connect(filler, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0)
            continue;
        pollfd waiting{filler, POLLOUT, 0};
        if (::poll(&waiting, 1, kConnectWaitMs) == 0)
            return true;
    }
    return false;
}

} // namespace

UnansweredPort::~UnansweredPort()
{
    closeAll();
}

bool UnansweredPort::open(quint16 port, QString* error)
{
    closeAll();
    m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
    if (m_listener < 0) {
        *error = systemError("socket");
        return false;
    }
    const int reuse = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &reuse, sizeof(reuse));
    sockaddr_in address = loopback(port);
    socklen_t length = sizeof(address);
    if (::bind(m_listener, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        ::listen(m_listener, 0) != 0 ||
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        *error = systemError("listen");
        closeAll();
        return false;
    }
    m_port = ntohs(address.sin_port);
    if (!fillQueue(m_port, m_fillers)) {
        *error = u"the accept queue of port %1 could not be filled"_s.arg(m_port);
        closeAll();
        return false;
    }
    return true;
}

void UnansweredPort::closeAll()
{
    for (int filler : m_fillers)
        ::close(filler);
    m_fillers.clear();
    if (m_listener >= 0)
        ::close(m_listener);
    m_listener = -1;
    m_port = 0;
}

#else

// The accept queue trick needs the POSIX socket calls; elsewhere the silent
// printer is not available.
UnansweredPort::~UnansweredPort() = default;

bool UnansweredPort::open(quint16, QString* error)
{
    *error = QStringLiteral("a silent port needs POSIX sockets");
    return false;
}

void UnansweredPort::closeAll() {}

#endif
