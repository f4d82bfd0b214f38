#pragma once

#include "UpdateDialogs.h"
#include "UpdateFeedClient.h"
#include "services/Expected.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>
#include <QUrl>
#include <chrono>
#include <memory>

// Behind "Check for Updates...": fetches the update feed, compares its newest
// release with the running version and tells the user the outcome.
class UpdaterViewModel : public QObject
{
    Q_OBJECT

public:
    struct Configuration
    {
        // Empty in builds that were packaged without a feed.
        QUrl feedURL;
        // Compared with the feed's versions.
        QString currentVersion;
        // Shown to the user.
        QString displayVersion;
        std::chrono::milliseconds timeout = UpdateFeedClient::kDefaultTimeout;

        // The values the build was packaged with.
        static Configuration fromBuild();
    };

    // The build's configuration and message boxes.
    explicit UpdaterViewModel(QObject* parent = nullptr);
    UpdaterViewModel(Configuration configuration, std::unique_ptr<UpdateDialogs> dialogs,
                     QObject* parent = nullptr);
    ~UpdaterViewModel() override;

    // A user-initiated check. Ignored while an earlier check is still running
    // or its result is still on screen.
    void checkForUpdates();
    bool isChecking() const { return m_isChecking; }

signals:
    // After the user has seen the outcome of a check.
    void checkFinished();

private:
    QCoro::Task<> runCheck();
    void present(const Expected<QByteArray, QString>& feed);
    void finishCheck();

    Configuration m_configuration;
    std::unique_ptr<UpdateDialogs> m_dialogs;
    UpdateFeedClient* m_feedClient;
    bool m_isChecking = false;
};
