#pragma once

#include <QList>

// A listening socket on 127.0.0.1 that never accepts and whose accept queue is
// already full: a new connection attempt gets no answer at all, like a printer
// that is switched off. Uses plain POSIX sockets, since Qt accepts eagerly.
class BacklogFullListener
{
public:
    BacklogFullListener();
    ~BacklogFullListener();
    BacklogFullListener(const BacklogFullListener&) = delete;
    BacklogFullListener& operator=(const BacklogFullListener&) = delete;

    // False when the queue could not be shown to be full; the port is then useless.
    bool isReady() const { return m_ready; }
    quint16 port() const { return m_port; }

private:
    bool fillQueue();

    int m_listener = -1;
    quint16 m_port = 0;
    QList<int> m_fillers;
    bool m_ready = false;
};
