#pragma once

#include "app/MessageBoxUpdateDialogs.h"
#include "services/Expected.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>
#include <QUrl>
#include <chrono>
#include <memory>

#ifdef STAMPIX_HAVE_SPARKLE
class SparkleUpdater;
#endif
class QNetworkAccessManager;

// Behind "Check for Updates...": fetches the update feed, compares the build
// number of its newest release with the running build and tells the user the
// outcome in the release's short version. Builds
// that carry the Sparkle framework hand both jobs to its standard controller.
class UpdaterViewModel : public QObject
{
    Q_OBJECT

public:
    struct Configuration
    {
        // Empty in builds that were packaged without a feed.
        QUrl feedURL;
        // The running build number, compared with the feed items' sparkle:version.
        QString currentBuild;
        // The running short version, shown to the user.
        QString displayVersion;
        // For the whole fetch, however slowly the server sends.
        std::chrono::milliseconds timeout{15000};
        // Whether the program also looks on its own when it starts, at most
        // once a day; such a check speaks up only when a newer version exists.
        bool checksAtStart = false;
        // Where the time of that last check is kept.
        QString scheduleFilePath;

        // The values the build was packaged with.
        static Configuration fromBuild();
    };

    // The build's configuration (and Sparkle, where the build has it).
    explicit UpdaterViewModel(QObject* parent = nullptr);
    explicit UpdaterViewModel(Configuration configuration, QObject* parent = nullptr);
    ~UpdaterViewModel() override;

    // A user-initiated check, with a window that shows the wait for the feed.
    // While the feed is awaited, a second call brings that window forward;
    // while a result is on screen, nothing more happens. A quiet check at
    // start that is still running is taken over and shows its outcome in full.
    void checkForUpdates();
    bool isChecking() const { return m_isChecking; }

signals:
    // After a check has ended and the user has seen what it showed.
    void checkFinished();

private:
    void checkAtStartIfDue();
    // Aborts the request; the check ends without a word.
    void cancelCheck();
    QCoro::Task<> runCheck();
    void present(const Expected<QByteArray, QString>& feed);
    void finishCheck();

    Configuration m_configuration;
    MessageBoxUpdateDialogs m_dialogs;
    // A child, so it and its replies go only after every QPointer to this has been cleared.
    QNetworkAccessManager* m_manager;
    bool m_isChecking = false;
    // False while only the quiet check at start is running.
    bool m_isUserWaiting = false;
    bool m_isWaitingForFeed = false;
#ifdef STAMPIX_HAVE_SPARKLE
    std::unique_ptr<SparkleUpdater> m_sparkle;
#endif
};
