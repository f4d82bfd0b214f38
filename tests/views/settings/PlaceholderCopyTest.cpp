#include "SettingsViewHarness.h"
#include "views/settings/InfoBox.h"
#include "views/settings/PlaceholderChip.h"
#include "views/settings/TemplateEditorPage.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = SettingsTabKey::Kind;

namespace {

// Shortened from the real two seconds; the rule is the same.
constexpr auto kFeedback = 1500ms;

PlaceholderChip* chip(TemplateEditorPage* page, const QString& key)
{
    for (PlaceholderChip* candidate : page->chips()) {
        if (candidate->text() == key)
            return candidate;
    }
    return nullptr;
}

} // namespace

// Clicking a placeholder copies it and shows feedback for a fixed time per click.
class PlaceholderCopyTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clickCopiesAndShowsFeedbackForItsTime();
    void anotherChipKeepsItsFullTime();
    void aSecondClickOnTheSameChipDoesNotExtend();

private:
    // Waits until the feedback is cleared; returns the time since `since` started.
    qint64 waitForClear(const QElapsedTimer& since);

    std::unique_ptr<SettingsViewHarness> m_harness;
    TemplateEditorPage* m_page = nullptr;
};

void PlaceholderCopyTest::init()
{
    m_harness = std::make_unique<SettingsViewHarness>();
    m_harness->view().setCopyFeedbackDuration(kFeedback);
    QVERIFY(m_harness->show());
    m_page = m_harness->open<TemplateEditorPage>(Kind::labelTemplate);
    QVERIFY(m_page);
}

void PlaceholderCopyTest::cleanup()
{
    m_page = nullptr;
    m_harness.reset();
}

qint64 PlaceholderCopyTest::waitForClear(const QElapsedTimer& since)
{
    QSignalSpy changes(&m_harness->view(), &SettingsView::copiedPlaceholderChanged);
    while (m_harness->view().copiedPlaceholder() && since.elapsed() < 5000)
        changes.wait(50);
    return since.elapsed();
}

void PlaceholderCopyTest::clickCopiesAndShowsFeedbackForItsTime()
{
    QVERIFY(m_page->copyHint()->isVisible());
    QVERIFY(!m_page->copyFeedback()->isVisible());
    QCOMPARE(m_page->copyHint()->text(), u"Klik op een placeholder om te kopiëren naar klembord"_s);

    QElapsedTimer clock;
    clock.start();
    clickOn(chip(m_page, u"{{PRIJS}}"_s));
    QCOMPARE(QGuiApplication::clipboard()->text(), u"{{PRIJS}}"_s);
    QCOMPARE(m_harness->view().copiedPlaceholder(), u"{{PRIJS}}"_s);
    QVERIFY(m_page->copyFeedback()->isVisible());
    QCOMPARE(m_page->copyFeedbackLabel()->text(), u"{{PRIJS}} gekopieerd naar klembord"_s);
    // The hint keeps its place under the feedback.
    QVERIFY(!m_page->copyHint()->isVisible());
    QVERIFY(m_page->copyHint()->sizePolicy().retainSizeWhenHidden());

    const qint64 cleared = waitForClear(clock);
    QVERIFY2(cleared >= kFeedback.count(), qPrintable(QString::number(cleared)));
    QVERIFY(!m_harness->view().copiedPlaceholder());
    QVERIFY(m_page->copyHint()->isVisible());
    QVERIFY(!m_page->copyFeedback()->isVisible());
}

void PlaceholderCopyTest::anotherChipKeepsItsFullTime()
{
    clickOn(chip(m_page, u"{{NAAM}}"_s));
    QTest::qWait(500);
    QElapsedTimer sinceSecond;
    sinceSecond.start();
    clickOn(chip(m_page, u"{{PRIJS}}"_s));
    QCOMPARE(QGuiApplication::clipboard()->text(), u"{{PRIJS}}"_s);
    QCOMPARE(m_page->copyFeedbackLabel()->text(), u"{{PRIJS}} gekopieerd naar klembord"_s);

    // The first click's check has run by now and found another key.
    QTest::qWait(1200);
    QCOMPARE(m_harness->view().copiedPlaceholder(), u"{{PRIJS}}"_s);
    const qint64 cleared = waitForClear(sinceSecond);
    QVERIFY2(cleared >= kFeedback.count(), qPrintable(QString::number(cleared)));
}

void PlaceholderCopyTest::aSecondClickOnTheSameChipDoesNotExtend()
{
    QElapsedTimer sinceFirst;
    sinceFirst.start();
    clickOn(chip(m_page, u"{{NAAM}}"_s));
    QTest::qWait(500);
    clickOn(chip(m_page, u"{{NAAM}}"_s));
    QCOMPARE(m_harness->view().copiedPlaceholder(), u"{{NAAM}}"_s);

    // Cleared by the first click's check, not 500 ms later by the second's.
    const qint64 cleared = waitForClear(sinceFirst);
    QVERIFY2(cleared >= kFeedback.count(), qPrintable(QString::number(cleared)));
    QVERIFY2(cleared < kFeedback.count() + 400, qPrintable(QString::number(cleared)));
}

QTEST_MAIN(PlaceholderCopyTest)
#include "PlaceholderCopyTest.moc"
