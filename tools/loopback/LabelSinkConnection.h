#pragma once

#include "LabelSink.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

class QTcpSocket;

// One accepted printer connection of a LabelSink. A child of its socket.
class LabelSinkConnection : public QObject
{
    Q_OBJECT

public:
    LabelSinkConnection(QTcpSocket* socket, LabelSink::Behaviour behaviour);

    void begin();

signals:
    void jobComplete(const QByteArray& job);

private:
    void onReadyRead();
    void onDisconnected();
    void readSlowly();
    void reset();

    QTcpSocket* m_socket;
    const LabelSink::Behaviour m_behaviour;
    QByteArray m_received;
    QTimer m_slowTimer;
    bool m_dropped = false;
};
