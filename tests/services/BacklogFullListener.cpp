#include "BacklogFullListener.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

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

} // namespace

BacklogFullListener::BacklogFullListener()
{
    m_listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = loopback(0);
    socklen_t length = sizeof(address);
    if (m_listener < 0 || ::bind(m_listener, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        ::listen(m_listener, 0) != 0 ||
        ::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        return;
    m_port = ntohs(address.sin_port);
    m_ready = fillQueue();
}

BacklogFullListener::~BacklogFullListener()
{
    for (int filler : m_fillers)
        ::close(filler);
    if (m_listener >= 0)
        ::close(m_listener);
}

// Connects until one attempt is left hanging: from then on the kernel drops
// every new SYN for this port.
bool BacklogFullListener::fillQueue()
{
    const sockaddr_in address = loopback(m_port);
    for (int i = 0; i < kMaxFillers; ++i) {
        const int filler = ::socket(AF_INET, SOCK_STREAM, 0);
        if (filler < 0)
            return false;
        m_fillers.append(filler);
        ::fcntl(filler, F_SETFL, ::fcntl(filler, F_GETFL) | O_NONBLOCK);
        if (::connect(filler, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0)
            continue;
        pollfd waiting{filler, POLLOUT, 0};
        if (::poll(&waiting, 1, kConnectWaitMs) == 0)
            return true;
    }
    return false;
}
