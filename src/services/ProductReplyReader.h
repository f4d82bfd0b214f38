#pragma once

#include "services/APIError.h"
#include "services/Expected.h"
#include "services/Product.h"

#include <QByteArray>
#include <QList>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <optional>

// Follows one product list reply to its outcome: an overall time-out (not an
// inactivity timer), a cap on the body size, the status rules and decoding.
// Emits finished() exactly once; the reply is deleted later.
class ProductReplyReader : public QObject
{
    Q_OBJECT

public:
    using Result = Expected<QList<Product>, APIError>;

    ProductReplyReader(QNetworkReply* reply, std::chrono::milliseconds timeout, qint64 maxBodyBytes,
                       QObject* parent = nullptr);
    ~ProductReplyReader() override;

    bool isFinished() const { return m_result.has_value(); }
    // Only meaningful once finished.
    const Result& result() const { return *m_result; }

signals:
    void finished();

private:
    void onMetaDataChanged();
    void onReadyRead();
    void onReplyFinished();
    void onTimeout();
    void onReplyDestroyed();

    bool isSuccessStatus() const;
    Result classify() const;
    static APIError classifyStatus(int status);
    bool isTruncated() const;
    void finish(Result result);

    QPointer<QNetworkReply> m_reply;
    const std::chrono::milliseconds m_timeout;
    const qint64 m_maxBodyBytes;
    QTimer m_timer;
    QByteArray m_body;
    std::optional<Result> m_result;
};
