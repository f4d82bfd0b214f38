#pragma once

#include "LabelSink.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <optional>

class QTcpSocket;

// One accepted printer connection of a LabelSink. A child of its socket.
class LabelSinkConnection : public QObject
{
    Q_OBJECT

public:
    LabelSinkConnection(QTcpSocket* socket, LabelSink::Behaviour behaviour,
                        std::optional<QByteArray> statusAnswer, qint64 maxJobBytes);

    void begin();

signals:
    void jobComplete(const QByteArray& job);
    void statusQueried();
    void jobTooLarge();

private:
    void onReadyRead();
    void onDisconnected();
    void readSlowly();
    void reset();
    void answerStatusQueries(qsizetype newFrom);
    bool dropIfTooLarge();

    QTcpSocket* m_socket;
    const LabelSink::Behaviour m_behaviour;
    const std::optional<QByteArray> m_statusAnswer;
    const qint64 m_maxJobBytes;
    QByteArray m_received;
    QTimer m_slowTimer;
    bool m_dropped = false;
    bool m_queried = false;
};
