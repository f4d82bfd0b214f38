#pragma once

#include "services/Expected.h"

#include <QByteArray>
#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>
#include <QUrl>
#include <chrono>

class QNetworkAccessManager;

// Fetches the update feed over HTTP(S) with a fixed overall time-out.
class UpdateFeedClient : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kDefaultTimeout{15000};

    explicit UpdateFeedClient(std::chrono::milliseconds timeout = kDefaultTimeout,
                              QObject* parent = nullptr);
    ~UpdateFeedClient() override;

    // The body of the feed, or a description of why it could not be fetched.
    QCoro::Task<Expected<QByteArray, QString>> fetch(QUrl url);
    // Ends every running fetch at once with "afgebroken".
    void abort();

private:
    // A child, so it and its replies go only after every QPointer to this
    // client has been cleared.
    QNetworkAccessManager* m_manager;
    std::chrono::milliseconds m_timeout;
    // Counts the aborts, so a fetch can tell that one happened while it waited.
    quint64 m_abortCount = 0;
};
