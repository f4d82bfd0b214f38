#include "app/UpdaterViewModel.h"

#include "BuildConfig.h"
#include "app/AppcastReader.h"
#include "app/MessageBoxUpdateDialogs.h"
#include "app/UpdateCheckSchedule.h"
#include "app/UpdateFeedClient.h"
#include "app/VersionComparator.h"
#include "views/common/AppInfo.h"
#ifdef STAMPIX_HAVE_SPARKLE
#include "app/SparkleUpdater.h"
#endif

#include <QDateTime>
#include <QDir>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

UpdaterViewModel::Configuration UpdaterViewModel::Configuration::fromBuild()
{
    Configuration configuration;
    configuration.feedURL = QUrl(QString::fromUtf16(BuildConfig::kUpdateFeedURL).trimmed());
    configuration.currentBuild = AppInfo::buildNumber();
    configuration.displayVersion = AppInfo::version();
#ifndef STAMPIX_HAVE_SPARKLE
    // With Sparkle, scheduled checks are the framework's, as its bundle settings say.
    configuration.checksAtStart = BuildConfig::kChecksForUpdatesAtStart;
#endif
    configuration.scheduleFilePath = QDir::home().filePath(u".stampix/last-update-check"_s);
    return configuration;
}

UpdaterViewModel::UpdaterViewModel(QObject* parent)
    : UpdaterViewModel(Configuration::fromBuild(), std::make_unique<MessageBoxUpdateDialogs>(),
                       parent)
{
#ifdef STAMPIX_HAVE_SPARKLE
    m_sparkle = std::make_unique<SparkleUpdater>();
#endif
}

UpdaterViewModel::UpdaterViewModel(Configuration configuration,
                                   std::unique_ptr<UpdateDialogs> dialogs, QObject* parent)
    : QObject(parent), m_configuration(std::move(configuration)), m_dialogs(std::move(dialogs)),
      m_feedClient(new UpdateFeedClient(m_configuration.timeout, this))
{
    // After start-up has finished, so the first window is not held up.
    if (m_configuration.checksAtStart)
        QTimer::singleShot(0, this, &UpdaterViewModel::checkAtStartIfDue);
}

UpdaterViewModel::~UpdaterViewModel() = default;

void UpdaterViewModel::checkForUpdates()
{
#ifdef STAMPIX_HAVE_SPARKLE
    if (m_sparkle) {
        m_sparkle->checkForUpdates();
        return;
    }
#endif
    if (m_isChecking) {
        if (m_isWaitingForFeed) {
            m_isUserWaiting = true;
            showChecking();
        }
        return;
    }
    m_isChecking = true;
    m_isUserWaiting = true;
    if (m_configuration.feedURL.isEmpty()) {
        m_dialogs->showNotConfigured();
        finishCheck();
        return;
    }
    showChecking();
    runCheck();
}

void UpdaterViewModel::showChecking()
{
    m_dialogs->showChecking([this] { cancelCheck(); });
}

void UpdaterViewModel::cancelCheck()
{
    if (!m_isWaitingForFeed)
        return;
    m_isWaitingForFeed = false;
    m_dialogs->closeChecking();
    m_feedClient->abort();
    finishCheck();
}

void UpdaterViewModel::checkAtStartIfDue()
{
    const UpdateCheckSchedule schedule(m_configuration.scheduleFilePath);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (m_isChecking || m_configuration.feedURL.isEmpty() || !schedule.isDue(now))
        return;
    // Recorded before the answer: a failing feed is tried again tomorrow, not at every start.
    schedule.recordCheck(now);
    m_isChecking = true;
    m_isUserWaiting = false;
    runCheck();
}

QCoro::Task<> UpdaterViewModel::runCheck()
{
    QPointer<UpdaterViewModel> self(this);
    m_isWaitingForFeed = true;
    const Expected<QByteArray, QString> feed =
        co_await m_feedClient->fetch(m_configuration.feedURL);
    // A cancelled check has ended already.
    if (!self || !m_isWaitingForFeed)
        co_return;
    m_isWaitingForFeed = false;
    m_dialogs->closeChecking();
    // This resumes inside the network reply's signal; the modal message box
    // runs from the event loop instead.
    QMetaObject::invokeMethod(
        this,
        [this, feed] {
            present(feed);
            finishCheck();
        },
        Qt::QueuedConnection);
}

void UpdaterViewModel::present(const Expected<QByteArray, QString>& feed)
{
    const Expected<AppcastItem, QString> newest =
        feed ? AppcastReader::newestItem(feed.value())
             : Expected<AppcastItem, QString>(feed.error());
    if (!newest) {
        if (m_isUserWaiting)
            m_dialogs->showFailure(newest.error());
        return;
    }
    if (VersionComparator::compare(newest.value().version, m_configuration.currentBuild) > 0)
        m_dialogs->showUpdateAvailable(newest.value(), m_configuration.displayVersion);
    else if (m_isUserWaiting)
        m_dialogs->showUpToDate(m_configuration.displayVersion);
}

void UpdaterViewModel::finishCheck()
{
    m_isChecking = false;
    m_isUserWaiting = false;
    emit checkFinished();
}
