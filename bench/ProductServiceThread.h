#pragma once

#include <QByteArray>
#include <QString>
#include <QThread>

class LoopbackHttpServer;

// A product service on loopback with an event loop of its own, so it answers
// while the benchmark's own thread blocks on a child process.
class ProductServiceThread
{
public:
    explicit ProductServiceThread(const QByteArray& envelope);
    ~ProductServiceThread();
    ProductServiceThread(const ProductServiceThread&) = delete;
    ProductServiceThread& operator=(const ProductServiceThread&) = delete;

    const QString& baseUrl() const { return m_baseUrl; }

private:
    QThread m_thread;
    QObject* m_anchor = nullptr; // lives in m_thread; the server is created through it
    LoopbackHttpServer* m_server = nullptr;
    QString m_baseUrl;
};
