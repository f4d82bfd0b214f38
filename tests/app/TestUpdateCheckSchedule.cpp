#include "UpdateCheckSchedule.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;

class TestUpdateCheckSchedule : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void dueDependsOnTheRecordedTime_data();
    void dueDependsOnTheRecordedTime();
    void recordedCheckHoldsForADay();
    void unwritableLocationReportsFailure();

private:
    QString recordPath() const { return m_dir->filePath(u"sub/last-update-check"_s); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

const QDateTime kNow(QDate(2026, 11, 23), QTime(9, 30), Qt::UTC);

} // namespace

void TestUpdateCheckSchedule::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void TestUpdateCheckSchedule::dueDependsOnTheRecordedTime_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<bool>("due");

    QTest::newRow("never checked") << QByteArray() << true;
    QTest::newRow("an hour ago") << kNow.addSecs(-3600).toString(Qt::ISODate).toUtf8() << false;
    QTest::newRow("just under a day")
        << kNow.addSecs(-86399).toString(Qt::ISODate).toUtf8() << false;
    QTest::newRow("a day ago") << kNow.addDays(-1).toString(Qt::ISODate).toUtf8() << true;
    // 25.5 hours ago; read without its offset it would look like 21.5.
    QTest::newRow("another time zone") << QByteArray("2026-11-22T12:00:00+04:00") << true;
    QTest::newRow("in the future") << kNow.addDays(3).toString(Qt::ISODate).toUtf8() << true;
    QTest::newRow("not a time") << QByteArray("gisteren") << true;
    QTest::newRow("long garbage") << QByteArray(4096, 'x') << true;
}

void TestUpdateCheckSchedule::dueDependsOnTheRecordedTime()
{
    QFETCH(QByteArray, record);
    QFETCH(bool, due);
    if (!record.isEmpty()) {
        QVERIFY(QDir().mkpath(QFileInfo(recordPath()).absolutePath()));
        QFile file(recordPath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(record + '\n');
    }

    QCOMPARE(UpdateCheckSchedule(recordPath()).isDue(kNow), due);
}

void TestUpdateCheckSchedule::recordedCheckHoldsForADay()
{
    const UpdateCheckSchedule schedule(recordPath());
    QVERIFY(schedule.recordCheck(kNow));

    QVERIFY(!schedule.isDue(kNow));
    QVERIFY(!schedule.isDue(kNow.addSecs(23 * 3600)));
    QVERIFY(schedule.isDue(kNow.addSecs(24 * 3600)));
    // A record written in local time reads back as the same moment.
    QVERIFY(schedule.recordCheck(kNow.toLocalTime()));
    QVERIFY(!schedule.isDue(kNow.addSecs(3600)));
}

void TestUpdateCheckSchedule::unwritableLocationReportsFailure()
{
    // A plain file where the record's folder should be.
    QFile blocker(m_dir->filePath(u"sub"_s));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    const UpdateCheckSchedule schedule(recordPath());
    QVERIFY(!schedule.recordCheck(kNow));
    QVERIFY(schedule.isDue(kNow));
}

QTEST_GUILESS_MAIN(TestUpdateCheckSchedule)
#include "TestUpdateCheckSchedule.moc"
