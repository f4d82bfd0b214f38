#include "ProductServiceThread.h"

#include "LoopbackHttpServer.h"

#include <stdexcept>

ProductServiceThread::ProductServiceThread(const QByteArray& envelope)
{
    m_thread.start();
    m_anchor = new QObject;
    m_anchor->moveToThread(&m_thread);
    // Created on its own thread, so its listening socket lives there too.
    QMetaObject::invokeMethod(
        m_anchor,
        [this, envelope] {
            m_server = new LoopbackHttpServer;
            m_server->setHandler([envelope](const LoopbackHttpServer::Request&) {
                return LoopbackHttpServer::Response::json(envelope);
            });
            if (m_server->listen())
                m_baseUrl = m_server->baseUrl();
        },
        Qt::BlockingQueuedConnection);
    if (m_baseUrl.isEmpty())
        throw std::runtime_error("the product service could not listen on loopback");
}

ProductServiceThread::~ProductServiceThread()
{
    QMetaObject::invokeMethod(
        m_anchor,
        [this] {
            delete m_server;
            delete m_anchor;
        },
        Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}
