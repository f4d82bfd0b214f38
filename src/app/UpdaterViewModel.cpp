#include "UpdaterViewModel.h"

#include "AppcastReader.h"
#include "BuildConfig.h"
#include "MessageBoxUpdateDialogs.h"
#include "UpdateFeedClient.h"
#include "VersionComparator.h"

#include <QPointer>

UpdaterViewModel::Configuration UpdaterViewModel::Configuration::fromBuild()
{
    Configuration configuration;
    configuration.feedURL = QUrl(QString::fromUtf16(BuildConfig::kUpdateFeedURL).trimmed());
    configuration.currentVersion = QString::fromUtf16(BuildConfig::kFullVersion);
    configuration.displayVersion = QString::fromUtf16(BuildConfig::kVersion);
    return configuration;
}

UpdaterViewModel::UpdaterViewModel(QObject* parent)
    : UpdaterViewModel(Configuration::fromBuild(), std::make_unique<MessageBoxUpdateDialogs>(),
                       parent)
{}

UpdaterViewModel::UpdaterViewModel(Configuration configuration,
                                   std::unique_ptr<UpdateDialogs> dialogs, QObject* parent)
    : QObject(parent), m_configuration(std::move(configuration)), m_dialogs(std::move(dialogs)),
      m_feedClient(new UpdateFeedClient(m_configuration.timeout, this))
{}

UpdaterViewModel::~UpdaterViewModel() = default;

void UpdaterViewModel::checkForUpdates()
{
    if (m_isChecking)
        return;
    m_isChecking = true;
    if (m_configuration.feedURL.isEmpty()) {
        m_dialogs->showNotConfigured();
        finishCheck();
        return;
    }
    runCheck();
}

QCoro::Task<> UpdaterViewModel::runCheck()
{
    QPointer<UpdaterViewModel> self(this);
    const Expected<QByteArray, QString> feed =
        co_await m_feedClient->fetch(m_configuration.feedURL);
    if (!self)
        co_return;
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
    if (!feed) {
        m_dialogs->showFailure(feed.error());
        return;
    }
    const Expected<AppcastItem, QString> newest = AppcastReader::newestItem(feed.value());
    if (!newest) {
        m_dialogs->showFailure(newest.error());
        return;
    }
    if (VersionComparator::compare(newest.value().version, m_configuration.currentVersion) > 0)
        m_dialogs->showUpdateAvailable(newest.value(), m_configuration.displayVersion);
    else
        m_dialogs->showUpToDate(m_configuration.displayVersion);
}

void UpdaterViewModel::finishCheck()
{
    m_isChecking = false;
    emit checkFinished();
}
