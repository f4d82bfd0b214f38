#pragma once

#include "services/APIError.h"
#include "services/Expected.h"
#include "services/Product.h"

#include <QCoroTask>
#include <QList>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QThread>
#include <chrono>

// Fetches one page of a dossier's products from the invoicing service. The
// request is sent and its reply read and decoded on a network thread of the
// service's own, so the window paints while the products arrive; the caller
// resumes on its own thread.
class KalmoraAPIService : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kDefaultTimeout{60'000};
    // Larger bodies end as invalidResponse instead of eating memory: 16 KB for
    // each of the 1,000 products a page asks for.
    static constexpr qint64 kMaxBodyBytes = 16 * 1024 * 1024;

    explicit KalmoraAPIService(QString baseURL, std::chrono::milliseconds timeout = kDefaultTimeout,
                               QObject* parent = nullptr);
    ~KalmoraAPIService() override;

    const QString& baseURL() const { return m_baseURL; }

    QCoro::Task<Expected<QList<Product>, APIError>> fetchProducts(QString apiKey, QString bookyear,
                                                                  qint64 limit, qint64 offset);

private:
    const QString m_baseURL;
    const std::chrono::milliseconds m_timeout;
    QThread m_thread;
    // Lives in m_thread and is deleted there.
    QNetworkAccessManager* m_network;
};
