#include "AppcastFeeds.h"
#include "LoopbackHttpServer.h"
#include "UpdaterViewModel.h"

#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// What the updater showed, in order.
class RecordingUpdateDialogs : public UpdateDialogs
{
public:
    enum class Kind
    {
        upToDate,
        updateAvailable,
        failure,
        notConfigured
    };

    struct Shown
    {
        Kind kind;
        QString currentVersion;
        AppcastItem item;
        QString description;
    };

    QList<Shown> shown;

    void showUpToDate(const QString& currentVersion) override
    {
        shown.append({Kind::upToDate, currentVersion, {}, {}});
    }
    void showUpdateAvailable(const AppcastItem& item, const QString& currentVersion) override
    {
        shown.append({Kind::updateAvailable, currentVersion, item, {}});
    }
    void showFailure(const QString& description) override
    {
        shown.append({Kind::failure, {}, {}, description});
    }
    void showNotConfigured() override { shown.append({Kind::notConfigured, {}, {}, {}}); }
};

using Kind = RecordingUpdateDialogs::Kind;

// The running version is 1.4.0, shown as "1.4"; no check at start.
UpdaterViewModel::Configuration configurationFor(const QUrl& feedURL,
                                                 std::chrono::milliseconds timeout)
{
    UpdaterViewModel::Configuration configuration;
    configuration.feedURL = feedURL;
    configuration.currentVersion = u"1.4.0"_s;
    configuration.displayVersion = u"1.4"_s;
    configuration.timeout = timeout;
    return configuration;
}

LoopbackHttpServer::Response xmlResponse(const QByteArray& body, int status = 200)
{
    LoopbackHttpServer::Response response;
    response.status = status;
    response.headers = {{"Content-Type", "application/rss+xml; charset=utf-8"}};
    response.body = body;
    return response;
}

} // namespace

class TestUpdaterViewModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newerVersionIsOffered();
    void sameOrOlderVersionIsUpToDate_data();
    void sameOrOlderVersionIsUpToDate();
    void unusableFeedsShowAFailure_data();
    void unusableFeedsShowAFailure();
    void refusedConnectionShowsAFailure();
    void slowServerIsCutOffByTheOverallTimeout_data();
    void slowServerIsCutOffByTheOverallTimeout();
    void oversizedFeedIsRefused();
    void buildWithoutFeedIsNotConfigured();
    void secondRequestWhileCheckingIsIgnored();
    void destroyedWhileCheckingStaysQuiet();
    void checkAtStartSpeaksOnlyOfANewerVersion_data();
    void checkAtStartSpeaksOnlyOfANewerVersion();
    void checkAtStartRunsAtMostOnceADay();
    void userCheckTakesOverTheCheckAtStart();

private:
    // Runs one check to its end and returns what it showed.
    QList<RecordingUpdateDialogs::Shown> check(const QUrl& feedURL,
                                               std::chrono::milliseconds timeout = 5s);
    QUrl feedURL() const { return QUrl(m_server->baseUrl() + u"/appcast.xml"_s); }
    UpdaterViewModel::Configuration startConfiguration() const;

    std::unique_ptr<LoopbackHttpServer> m_server;
    LoopbackHttpServer::Response m_response;
    std::unique_ptr<QTemporaryDir> m_home;
};

void TestUpdaterViewModel::init()
{
    m_server = std::make_unique<LoopbackHttpServer>();
    QVERIFY(m_server->listen());
    m_response = {};
    m_server->setHandler([this](const LoopbackHttpServer::Request&) { return m_response; });
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
}

void TestUpdaterViewModel::cleanup()
{
    m_server.reset();
}

UpdaterViewModel::Configuration TestUpdaterViewModel::startConfiguration() const
{
    UpdaterViewModel::Configuration configuration = configurationFor(feedURL(), 5s);
    configuration.checksAtStart = true;
    configuration.scheduleFilePath = m_home->filePath(u".stampix/last-update-check"_s);
    return configuration;
}

QList<RecordingUpdateDialogs::Shown> TestUpdaterViewModel::check(const QUrl& feedURL,
                                                                 std::chrono::milliseconds timeout)
{
    auto dialogs = std::make_unique<RecordingUpdateDialogs>();
    RecordingUpdateDialogs* recorded = dialogs.get();
    UpdaterViewModel updater(configurationFor(feedURL, timeout), std::move(dialogs));
    QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);

    updater.checkForUpdates();
    [&] {
        QVERIFY(updater.isChecking());
        QVERIFY(finished.wait(10000));
    }();
    if (!updater.isChecking())
        return recorded->shown;
    return {};
}

void TestUpdaterViewModel::newerVersionIsOffered()
{
    m_response = xmlResponse(AppcastFeeds::channel({
        AppcastFeeds::item("1.3.2", "1.3.2"),
        AppcastFeeds::item("1.10", "1.10"),
        AppcastFeeds::item("1.9", "1.9"),
    }));

    const auto shown = check(feedURL());

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::updateAvailable);
    QCOMPARE(shown[0].item.version, u"1.10"_s);
    QCOMPARE(shown[0].item.releaseNotesURL, QUrl(u"https://stampix.example/notes/1.10.html"_s));
    QCOMPARE(shown[0].item.downloadURL,
             QUrl(u"https://stampix.example/download/Stampix-1.10.zip"_s));
    QCOMPARE(shown[0].currentVersion, u"1.4"_s);
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(m_server->requests()[0].method, QByteArray("GET"));
    QCOMPARE(m_server->requests()[0].path, QByteArray("/appcast.xml"));
}

void TestUpdaterViewModel::sameOrOlderVersionIsUpToDate_data()
{
    QTest::addColumn<QByteArrayList>("versions");

    QTest::newRow("same") << QByteArrayList{"1.4.0"};
    QTest::newRow("same, shorter") << QByteArrayList{"1.3", "1.4"};
    QTest::newRow("older") << QByteArrayList{"1.3.9", "0.9"};
    QTest::newRow("pre-release of the running version") << QByteArrayList{"1.4b2", "1.4rc1"};
}

void TestUpdaterViewModel::sameOrOlderVersionIsUpToDate()
{
    QFETCH(QByteArrayList, versions);
    QByteArrayList items;
    for (const QByteArray& version : versions)
        items.append(AppcastFeeds::item(version, version));
    m_response = xmlResponse(AppcastFeeds::channel(items));

    const auto shown = check(feedURL());

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::upToDate);
    QCOMPARE(shown[0].currentVersion, u"1.4"_s);
}

void TestUpdaterViewModel::unusableFeedsShowAFailure_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");

    const QByteArray good = AppcastFeeds::channel({AppcastFeeds::item("9.0", "9.0")});
    QTest::newRow("not xml") << 200 << QByteArray("{\"version\": \"9.0\"}");
    QTest::newRow("cut off") << 200 << good.left(good.size() - 40);
    QTest::newRow("no versions") << 200 << AppcastFeeds::channel({});
    QTest::newRow("empty") << 200 << QByteArray();
    QTest::newRow("not found") << 404 << QByteArray("<html>missing</html>");
    QTest::newRow("server error with a good body") << 500 << good;
}

void TestUpdaterViewModel::unusableFeedsShowAFailure()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    m_response = xmlResponse(body, status);

    const auto shown = check(feedURL());

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::failure);
    QVERIFY(!shown[0].description.isEmpty());
}

void TestUpdaterViewModel::refusedConnectionShowsAFailure()
{
    // A port that was just free on loopback and has no listener now.
    QTcpServer probe;
    QVERIFY(probe.listen(QHostAddress::LocalHost));
    const quint16 port = probe.serverPort();
    probe.close();

    QElapsedTimer elapsed;
    elapsed.start();
    const auto shown = check(QUrl(u"http://127.0.0.1:%1/appcast.xml"_s.arg(port)), 5s);

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::failure);
    QVERIFY(!shown[0].description.isEmpty());
    // Refused at once, not only when the time-out ends.
    QVERIFY2(elapsed.elapsed() < 3000, QByteArray::number(elapsed.elapsed()));
}

void TestUpdaterViewModel::slowServerIsCutOffByTheOverallTimeout_data()
{
    QTest::addColumn<int>("mode");

    QTest::newRow("silent") << int(LoopbackHttpServer::Response::Mode::neverAnswer);
    // Bytes keep arriving, so only a deadline of our own ends this.
    QTest::newRow("trickling") << int(LoopbackHttpServer::Response::Mode::trickle);
}

void TestUpdaterViewModel::slowServerIsCutOffByTheOverallTimeout()
{
    QFETCH(int, mode);
    m_response = xmlResponse(AppcastFeeds::channel({AppcastFeeds::item("9.0", "9.0")}));
    m_response.mode = LoopbackHttpServer::Response::Mode(mode);
    m_response.trickleInterval = 20ms;

    QElapsedTimer elapsed;
    elapsed.start();
    const auto shown = check(feedURL(), 400ms);

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::failure);
    QCOMPARE(shown[0].description, u"De server van de updatefeed reageerde niet op tijd."_s);
    QVERIFY2(elapsed.elapsed() >= 350 && elapsed.elapsed() < 3000,
             QByteArray::number(elapsed.elapsed()));
}

void TestUpdaterViewModel::oversizedFeedIsRefused()
{
    m_response = xmlResponse({});
    m_response.mode = LoopbackHttpServer::Response::Mode::stream;
    m_response.streamLength = 6 * 1024 * 1024;

    const auto shown = check(feedURL());

    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown[0].kind, Kind::failure);
    QCOMPARE(shown[0].description, u"De updatefeed is te groot."_s);
}

void TestUpdaterViewModel::buildWithoutFeedIsNotConfigured()
{
    auto dialogs = std::make_unique<RecordingUpdateDialogs>();
    RecordingUpdateDialogs* recorded = dialogs.get();
    UpdaterViewModel updater(configurationFor(QUrl(), 1s), std::move(dialogs));
    QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);

    updater.checkForUpdates();

    QCOMPARE(finished.size(), 1);
    QVERIFY(!updater.isChecking());
    QCOMPARE(recorded->shown.size(), 1);
    QCOMPARE(recorded->shown[0].kind, Kind::notConfigured);

    // The build's own settings have no feed either, unless one was packaged.
    const UpdaterViewModel::Configuration build = UpdaterViewModel::Configuration::fromBuild();
    QVERIFY(!build.currentVersion.isEmpty());
    QVERIFY(!build.displayVersion.isEmpty());
}

void TestUpdaterViewModel::secondRequestWhileCheckingIsIgnored()
{
    m_response = xmlResponse(AppcastFeeds::channel({AppcastFeeds::item("2.0", "2.0")}));
    m_response.delay = 200ms;
    auto dialogs = std::make_unique<RecordingUpdateDialogs>();
    RecordingUpdateDialogs* recorded = dialogs.get();
    UpdaterViewModel updater(configurationFor(feedURL(), 5s), std::move(dialogs));
    QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);

    updater.checkForUpdates();
    updater.checkForUpdates();
    QVERIFY(finished.wait(5000));
    QTest::qWait(100);

    QCOMPARE(finished.size(), 1);
    QCOMPARE(recorded->shown.size(), 1);
    QCOMPARE(m_server->requests().size(), 1);

    // Once the answer has been seen, the next request runs again.
    updater.checkForUpdates();
    QVERIFY(finished.wait(5000));
    QCOMPARE(recorded->shown.size(), 2);
    QCOMPARE(m_server->requests().size(), 2);
}

void TestUpdaterViewModel::destroyedWhileCheckingStaysQuiet()
{
    m_response.mode = LoopbackHttpServer::Response::Mode::neverAnswer;
    auto updater = std::make_unique<UpdaterViewModel>(configurationFor(feedURL(), 1500ms),
                                                      std::make_unique<RecordingUpdateDialogs>());
    QSignalSpy requestArrived(m_server.get(), &LoopbackHttpServer::requestReceived);

    updater->checkForUpdates();
    QVERIFY(requestArrived.wait(5000));
    updater.reset();
    // Past the time-out of the destroyed check: nothing may resume into it.
    QTest::qWait(1600);
    m_server.reset();
    QTest::qWait(50);
}

void TestUpdaterViewModel::checkAtStartSpeaksOnlyOfANewerVersion_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<bool>("offered");

    QTest::newRow("newer") << 200 << QByteArray("1.5") << true;
    QTest::newRow("same") << 200 << QByteArray("1.4") << false;
    QTest::newRow("feed missing") << 404 << QByteArray("9.0") << false;
}

void TestUpdaterViewModel::checkAtStartSpeaksOnlyOfANewerVersion()
{
    QFETCH(int, status);
    QFETCH(QByteArray, version);
    QFETCH(bool, offered);
    m_response = xmlResponse(AppcastFeeds::channel({AppcastFeeds::item(version, version)}), status);
    auto dialogs = std::make_unique<RecordingUpdateDialogs>();
    RecordingUpdateDialogs* recorded = dialogs.get();

    UpdaterViewModel updater(startConfiguration(), std::move(dialogs));
    QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);
    QVERIFY(finished.wait(5000));

    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(recorded->shown.size(), offered ? 1 : 0);
    if (offered) {
        QCOMPARE(recorded->shown[0].kind, Kind::updateAvailable);
        QCOMPARE(recorded->shown[0].item.version, QString::fromUtf8(version));
    }
    QVERIFY(!updater.isChecking());
    QVERIFY(QFile::exists(startConfiguration().scheduleFilePath));
}

void TestUpdaterViewModel::checkAtStartRunsAtMostOnceADay()
{
    m_response = xmlResponse(AppcastFeeds::channel({AppcastFeeds::item("1.5", "1.5")}));
    const UpdaterViewModel::Configuration configuration = startConfiguration();
    const auto startAndSettle = [&](const UpdaterViewModel::Configuration& used) {
        UpdaterViewModel updater(used, std::make_unique<RecordingUpdateDialogs>());
        QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);
        finished.wait(400);
    };

    startAndSettle(configuration);
    QCOMPARE(m_server->requests().size(), 1);

    // Started again the same day.
    startAndSettle(configuration);
    QCOMPARE(m_server->requests().size(), 1);

    // The next day.
    QFile record(configuration.scheduleFilePath);
    QVERIFY(record.open(QIODevice::WriteOnly));
    record.write(
        QDateTime::currentDateTimeUtc().addSecs(-25 * 3600).toString(Qt::ISODate).toUtf8());
    record.close();
    startAndSettle(configuration);
    QCOMPARE(m_server->requests().size(), 2);

    // A build without the check at start never looks on its own.
    QVERIFY(QFile::remove(configuration.scheduleFilePath));
    UpdaterViewModel::Configuration off = configuration;
    off.checksAtStart = false;
    startAndSettle(off);
    QCOMPARE(m_server->requests().size(), 2);
    QVERIFY(!QFile::exists(configuration.scheduleFilePath));
}

void TestUpdaterViewModel::userCheckTakesOverTheCheckAtStart()
{
    m_response = xmlResponse(AppcastFeeds::channel({AppcastFeeds::item("1.4", "1.4")}));
    m_response.delay = 300ms;
    auto dialogs = std::make_unique<RecordingUpdateDialogs>();
    RecordingUpdateDialogs* recorded = dialogs.get();
    UpdaterViewModel updater(startConfiguration(), std::move(dialogs));
    QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);
    QSignalSpy requestArrived(m_server.get(), &LoopbackHttpServer::requestReceived);
    QVERIFY(requestArrived.wait(5000));

    updater.checkForUpdates();
    QVERIFY(finished.wait(5000));

    // One request, and the user hears its outcome as after their own check.
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(recorded->shown.size(), 1);
    QCOMPARE(recorded->shown[0].kind, Kind::upToDate);
}

QTEST_MAIN(TestUpdaterViewModel)
#include "TestUpdaterViewModel.moc"
