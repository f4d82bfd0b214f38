#pragma once

#include <QList>
#include <QString>

// A port on 127.0.0.1 where a connection attempt gets no answer at all, like a
// printer that is switched off: the socket listens but never accepts, and its
// accept queue is filled up front, so the kernel drops every new SYN.
// Plain POSIX sockets, since Qt would accept on its own.
class UnansweredPort
{
public:
    UnansweredPort() = default;
    ~UnansweredPort();
    UnansweredPort(const UnansweredPort&) = delete;
    UnansweredPort& operator=(const UnansweredPort&) = delete;

    // False with the reason in `error` when the port could not be made silent.
    bool open(quint16 port, QString* error);
    quint16 port() const { return m_port; }

private:
    void closeAll();

    int m_listener = -1;
    quint16 m_port = 0;
    QList<int> m_fillers;
};
