#pragma once

#include <QByteArrayView>
#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

// A non-blocking TCP client socket on the system's socket calls. A label job
// is connect, write, end of stream, close; QTcpSocket adds half a dozen
// system calls and an event-loop pass to every connection, which made a
// print run of small labels twice as slow as the network allows.
//
// Each step either completes at once, fails, or has to wait: then writable()
// follows once the step can be taken again.
class PrinterSocket : public QObject
{
    Q_OBJECT

public:
    enum class Progress
    {
        done,
        waiting,
        failed,
    };

    explicit PrinterSocket(QObject* parent = nullptr);
    ~PrinterSocket() override;

    // Closes any earlier connection first.
    Progress connectTo(const QHostAddress& address, quint16 port);
    // After writable() while connecting: whether the connection stands.
    Progress finishConnecting();
    // Writes as much of bytes as the network stack takes; adds the count to *written.
    Progress send(QByteArrayView bytes, qint64* written);
    // Ends the stream after the bytes sent and releases the socket.
    void close();

    QString errorString() const { return m_errorString; }

signals:
    void writable();

private:
    void onActivated();
    Progress fail(int error);
    bool isWritableNow() const;
    Progress waitUntilWritable();

    int m_descriptor = -1;
    QSocketNotifier m_notifier;
    QString m_errorString;
};
