#include "AppcastFeeds.h"
#include "AppcastReader.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestAppcastReader : public QObject
{
    Q_OBJECT

private slots:
    void readsItemsInFeedOrder();
    void newestIsChosenByVersionNotByPosition();
    void versionsOnTheEnclosureOfOlderFeeds();
    void leavesOutItemsThatCannotBeOffered();
    void rejectsBrokenFeeds_data();
    void rejectsBrokenFeeds();
};

void TestAppcastReader::readsItemsInFeedOrder()
{
    const auto items = AppcastReader::read(AppcastFeeds::channel(
        {AppcastFeeds::item("130", "1.3"), AppcastFeeds::item("120", "1.2")}));
    QVERIFY(items);
    QCOMPARE(items.value().size(), 2);
    const AppcastItem& first = items.value().at(0);
    QCOMPARE(first.title, u"Version 1.3"_s);
    QCOMPARE(first.version, u"130"_s);
    QCOMPARE(first.shortVersionString, u"1.3"_s);
    QCOMPARE(first.displayVersion(), u"1.3"_s);
    QCOMPARE(first.releaseNotesURL, QUrl(u"https://stampix.example/notes/1.3.html"_s));
    QCOMPARE(first.downloadURL, QUrl(u"https://stampix.example/download/Stampix-1.3.zip"_s));
    QCOMPARE(items.value().at(1).version, u"120"_s);
}

void TestAppcastReader::newestIsChosenByVersionNotByPosition()
{
    const auto newest = AppcastReader::newestItem(AppcastFeeds::channel({
        AppcastFeeds::item("1.9", "1.9"),
        AppcastFeeds::item("1.10", "1.10"),
        AppcastFeeds::item("2.0b1", "2.0-beta1"),
        AppcastFeeds::item("1.2", "1.2"),
    }));
    QVERIFY(newest);
    QCOMPARE(newest.value().version, u"2.0b1"_s);

    // Equal versions: the first one listed.
    const auto tie = AppcastReader::newestItem(AppcastFeeds::channel({
        AppcastFeeds::item("3.0", "3.0-first"),
        AppcastFeeds::item("3.0.0", "3.0-second"),
    }));
    QVERIFY(tie);
    QCOMPARE(tie.value().shortVersionString, u"3.0-first"_s);
}

void TestAppcastReader::versionsOnTheEnclosureOfOlderFeeds()
{
    const QByteArray legacy = R"(
    <item>
      <title>Old style</title>
      <enclosure url="https://stampix.example/old.zip" sparkle:version="41"
                 sparkle:shortVersionString="0.9" length="1" type="application/zip"/>
    </item>
    <item>
      <sparkle:version>50</sparkle:version>
      <enclosure url="https://stampix.example/mixed.zip" sparkle:version="49"
                 sparkle:shortVersionString="1.0"/>
    </item>)";
    const auto items = AppcastReader::read(AppcastFeeds::channel({legacy}));
    QVERIFY(items);
    QCOMPARE(items.value().size(), 2);
    QCOMPARE(items.value().at(0).version, u"41"_s);
    QCOMPARE(items.value().at(0).displayVersion(), u"0.9"_s);
    QVERIFY(items.value().at(0).releaseNotesURL.isEmpty());
    // The item's own element wins over the enclosure's attribute.
    QCOMPARE(items.value().at(1).version, u"50"_s);
    QCOMPARE(items.value().at(1).displayVersion(), u"1.0"_s);
}

void TestAppcastReader::leavesOutItemsThatCannotBeOffered()
{
    const QByteArray items = R"xml(
    <item><title>No version</title><enclosure url="https://stampix.example/a.zip"/></item>
    <item><sparkle:version>7</sparkle:version></item>
    <item><sparkle:version>8</sparkle:version><enclosure url="file:///etc/passwd"/></item>
    <item><sparkle:version>9</sparkle:version><enclosure url="javascript:alert(1)"/></item>
    <item><sparkle:version>10</sparkle:version><link>https://stampix.example/get</link>
          <sparkle:releaseNotesLink>file:///tmp/notes.html</sparkle:releaseNotesLink></item>)xml";
    const auto offeredItems = AppcastReader::read(AppcastFeeds::channel({items}));
    QVERIFY(offeredItems);
    QCOMPARE(offeredItems.value().size(), 1);
    const AppcastItem& offered = offeredItems.value().constFirst();
    QCOMPARE(offered.version, u"10"_s);
    QCOMPARE(offered.displayVersion(), u"10"_s);
    // Without an enclosure the item's web page is where to download.
    QCOMPARE(offered.downloadURL, QUrl(u"https://stampix.example/get"_s));
    QVERIFY(offered.releaseNotesURL.isEmpty());
}

void TestAppcastReader::rejectsBrokenFeeds_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::addColumn<QString>("errorStart");

    const QString badXml = u"De updatefeed is geen geldige XML: "_s;
    const QByteArray full = AppcastFeeds::channel({AppcastFeeds::item("2", "2")});
    QTest::newRow("empty") << QByteArray() << badXml;
    QTest::newRow("plain text") << QByteArray("Service Unavailable") << badXml;
    QTest::newRow("cut off") << full.left(full.size() / 2) << badXml;
    QTest::newRow("mismatched tags") << QByteArray("<rss><channel></rss>") << badXml;
    QTest::newRow("html page") << QByteArray("<html><body>Not here</body></html>")
                               << u"De updatefeed is geen RSS-feed."_s;
    QTest::newRow("no items") << AppcastFeeds::channel({})
                              << u"De updatefeed noemt geen enkele versie."_s;
    QTest::newRow("items outside a channel")
        << QByteArray("<rss><item><sparkle:version xmlns:sparkle=\"http://www.andymatuschak.org/"
                      "xml-namespaces/sparkle\">3</sparkle:version></item></rss>")
        << u"De updatefeed noemt geen enkele versie."_s;
}

void TestAppcastReader::rejectsBrokenFeeds()
{
    QFETCH(QByteArray, feed);
    QFETCH(QString, errorStart);
    const auto read = AppcastReader::read(feed);
    QVERIFY(!read);
    QVERIFY2(read.error().startsWith(errorStart), qPrintable(read.error()));
    QVERIFY(!AppcastReader::newestItem(feed));
}

QTEST_GUILESS_MAIN(TestAppcastReader)
#include "TestAppcastReader.moc"
