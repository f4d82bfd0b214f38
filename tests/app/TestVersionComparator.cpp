#include "VersionComparator.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestVersionComparator : public QObject
{
    Q_OBJECT

private slots:
    void ordersVersions_data();
    void ordersVersions();
    void equalVersions_data();
    void equalVersions();
};

void TestVersionComparator::ordersVersions_data()
{
    QTest::addColumn<QString>("older");
    QTest::addColumn<QString>("newer");

    QTest::newRow("numeric, not textual") << u"1.9"_s << u"1.10"_s;
    QTest::newRow("major wins") << u"1.99.99"_s << u"2.0"_s;
    QTest::newRow("further component") << u"1.0"_s << u"1.0.1"_s;
    QTest::newRow("zeros then a number") << u"1.0"_s << u"1.0.0.1"_s;
    QTest::newRow("beta before release") << u"2.0b1"_s << u"2.0"_s;
    QTest::newRow("beta before release with zero") << u"2.0b1"_s << u"2.0.0"_s;
    QTest::newRow("beta before patch") << u"2.0b5"_s << u"2.0.1"_s;
    QTest::newRow("betas by number") << u"2.0b2"_s << u"2.0b10"_s;
    QTest::newRow("alpha before beta") << u"2.0a3"_s << u"2.0b1"_s;
    QTest::newRow("beta before rc") << u"2.0b9"_s << u"2.0rc1"_s;
    QTest::newRow("separated suffix") << u"2.0-rc.1"_s << u"2.0"_s;
    QTest::newRow("huge components") << u"1.18446744073709551615"_s << u"1.18446744073709551616"_s;
    QTest::newRow("plain build numbers") << u"99"_s << u"100"_s;
    QTest::newRow("nothing before anything") << QString() << u"0.1"_s;
}

void TestVersionComparator::ordersVersions()
{
    QFETCH(QString, older);
    QFETCH(QString, newer);
    QVERIFY(VersionComparator::compare(older, newer) < 0);
    QVERIFY(VersionComparator::compare(newer, older) > 0);
    QVERIFY(VersionComparator::compare(older, older) == 0);
    QVERIFY(VersionComparator::compare(newer, newer) == 0);
}

void TestVersionComparator::equalVersions_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");

    QTest::newRow("trailing zero") << u"1.0"_s << u"1.0.0"_s;
    QTest::newRow("single component") << u"1"_s << u"1.0.0"_s;
    QTest::newRow("leading zeros") << u"01.002"_s << u"1.2"_s;
    QTest::newRow("tag case") << u"2.0B1"_s << u"2.0b1"_s;
    QTest::newRow("tag after trailing zero") << u"1.0.0b1"_s << u"1.0b1"_s;
    QTest::newRow("separators") << u"2.0-rc1"_s << u"2.0rc.1"_s;
    QTest::newRow("surrounding blanks") << u" 3.1 "_s << u"3.1"_s;
}

void TestVersionComparator::equalVersions()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QVERIFY(VersionComparator::compare(left, right) == 0);
    QVERIFY(VersionComparator::compare(right, left) == 0);
}

QTEST_GUILESS_MAIN(TestVersionComparator)
#include "TestVersionComparator.moc"
