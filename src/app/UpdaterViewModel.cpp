#include "app/UpdaterViewModel.h"

#include "BuildConfig.h"
#include "app/AppcastReader.h"
#include "app/VersionComparator.h"
#include "views/common/AppInfo.h"
#ifdef STAMPIX_HAVE_SPARKLE
#include "app/SparkleUpdater.h"
#endif

#include <QCoroSignal>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QSaveFile>
#include <QTimer>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The program looks on its own at most once a day, however often it starts.
constexpr std::chrono::hours kCheckInterval{24};
// Far more than one timestamp; anything longer is not ours.
constexpr qint64 kMaxRecordSize = 256;
// A feed is a few kilobytes; anything far larger is not one.
constexpr qint64 kMaximumFeedSize = 4 * 1024 * 1024;

// Due when no check was recorded, the record is unreadable, a day has passed,
// or the record lies in the future (a clock that was set back must not
// silence the checks).
bool isCheckDue(const QString& recordPath, const QDateTime& now)
{
    QFile file(recordPath);
    const QByteArray text =
        file.open(QIODevice::ReadOnly) ? file.read(kMaxRecordSize + 1).trimmed() : QByteArray();
    const QDateTime last = QDateTime::fromString(QString::fromUtf8(text), Qt::ISODate);
    return text.size() > kMaxRecordSize || !last.isValid() || last > now ||
           last.secsTo(now) >= std::chrono::seconds(kCheckInterval).count();
}

// A record that cannot be written only means the next start checks again.
void recordCheck(const QString& recordPath, const QDateTime& now)
{
    QDir().mkpath(QFileInfo(recordPath).absolutePath());
    QSaveFile file(recordPath);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(now.toUTC().toString(Qt::ISODate).toUtf8() + '\n');
        file.commit();
    }
}

Expected<QByteArray, QString> readFeed(QNetworkReply* reply, bool timedOut)
{
    if (timedOut)
        return u"De server van de updatefeed reageerde niet op tijd."_s;
    // Apart from the deadline, only the size guard cancels a reply; a reply
    // that finished before the guard saw it is measured here.
    if (reply->error() == QNetworkReply::OperationCanceledError ||
        reply->bytesAvailable() > kMaximumFeedSize)
        return u"De updatefeed is te groot."_s;
    if (reply->error() != QNetworkReply::NoError)
        return reply->errorString();
    return reply->readAll();
}

} // namespace

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
    : UpdaterViewModel(Configuration::fromBuild(), parent)
{
#ifdef STAMPIX_HAVE_SPARKLE
    m_sparkle = std::make_unique<SparkleUpdater>();
#endif
}

UpdaterViewModel::UpdaterViewModel(Configuration configuration, QObject* parent)
    : QObject(parent), m_configuration(std::move(configuration)),
      m_manager(new QNetworkAccessManager(this))
{
    // After start-up has finished, so the first window is not held up.
    if (m_configuration.checksAtStart)
        QTimer::singleShot(0, this, &UpdaterViewModel::checkAtStartIfDue);
}

UpdaterViewModel::~UpdaterViewModel()
{
    // A reply deleted with the manager never finishes, which would leave its
    // check suspended for good; aborted, it finishes now and returns at once.
    m_isWaitingForFeed = false;
    for (QNetworkReply* reply : m_manager->findChildren<QNetworkReply*>())
        reply->abort();
}

void UpdaterViewModel::checkForUpdates()
{
#ifdef STAMPIX_HAVE_SPARKLE
    if (m_sparkle) {
        m_sparkle->checkForUpdates();
        return;
    }
#endif
    if (m_isChecking && !m_isWaitingForFeed)
        return;
    const bool isRunning = std::exchange(m_isChecking, true);
    m_isUserWaiting = true;
    if (m_configuration.feedURL.isEmpty()) {
        m_dialogs.showNotConfigured();
        finishCheck();
        return;
    }
    m_dialogs.showChecking([this] { cancelCheck(); });
    if (!isRunning)
        runCheck();
}

void UpdaterViewModel::cancelCheck()
{
    if (!m_isWaitingForFeed)
        return;
    m_isWaitingForFeed = false;
    m_dialogs.closeChecking();
    for (QNetworkReply* reply : m_manager->findChildren<QNetworkReply*>())
        reply->abort();
    finishCheck();
}

void UpdaterViewModel::checkAtStartIfDue()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    if (m_isChecking || m_configuration.feedURL.isEmpty() ||
        !isCheckDue(m_configuration.scheduleFilePath, now))
        return;
    // Recorded before the answer: a failing feed is tried again tomorrow, not at every start.
    recordCheck(m_configuration.scheduleFilePath, now);
    m_isChecking = true;
    m_isUserWaiting = false;
    runCheck();
}

QCoro::Task<> UpdaterViewModel::runCheck()
{
    QPointer<UpdaterViewModel> self(this);
    m_isWaitingForFeed = true;
    QNetworkRequest request(m_configuration.feedURL);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    QNetworkReply* reply = m_manager->get(request);
    // The transfer time-out only measures silence; a server that trickles
    // bytes must still be cut off, hence a timer of our own. It belongs to the
    // reply because this coroutine may resume inside the timer's own signal.
    auto* deadline = new QTimer(reply);
    deadline->setSingleShot(true);
    connect(deadline, &QTimer::timeout, reply, &QNetworkReply::abort);
    deadline->start(m_configuration.timeout);
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > kMaximumFeedSize)
            reply->abort();
    });
    // A reply never finishes inside get(), so the signal cannot be missed.
    co_await qCoro(reply, &QNetworkReply::finished);
    if (!self)
        co_return;
    reply->deleteLater();
    // A cancelled check has ended already.
    if (!m_isWaitingForFeed)
        co_return;
    m_isWaitingForFeed = false;
    m_dialogs.closeChecking();
    const Expected<QByteArray, QString> feed = readFeed(reply, !deadline->isActive());
    deadline->stop();
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
            m_dialogs.showFailure(newest.error());
        return;
    }
    if (VersionComparator::compare(newest.value().version, m_configuration.currentBuild) > 0)
        m_dialogs.showUpdateAvailable(newest.value(), m_configuration.displayVersion);
    else if (m_isUserWaiting)
        m_dialogs.showUpToDate(m_configuration.displayVersion);
}

void UpdaterViewModel::finishCheck()
{
    m_isChecking = false;
    m_isUserWaiting = false;
    emit checkFinished();
}
