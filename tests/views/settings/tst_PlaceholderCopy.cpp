#include "SettingsViewHarness.h"
#include "views/settings/InfoBox.h"
#include "views/settings/TemplateEditorPage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = SettingsTabKey::Kind;

namespace {

// Shortened from the real two seconds; the rule is the same.
constexpr auto kFeedback = 50ms;

} // namespace

// Clicking a placeholder copies it and shows feedback for a fixed time per
// click: a later click on another chip keeps its full time, a second click on
// the same chip does not extend the first. Return presses a chip as a click does.
class PlaceholderCopyTest : public QObject
{
    Q_OBJECT

private slots:
    void feedbackEndsWithTheRightClick_data();
    void feedbackEndsWithTheRightClick();
};

void PlaceholderCopyTest::feedbackEndsWithTheRightClick_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<bool>("clearedByLastClick");
    QTest::addColumn<bool>("byReturn");
    QTest::newRow("one click") << QStringList{u"{{PRIJS}}"_s} << true << false;
    QTest::newRow("another chip") << QStringList{u"{{NAAM}}"_s, u"{{PRIJS}}"_s} << true << false;
    QTest::newRow("same chip twice") << QStringList{u"{{NAAM}}"_s, u"{{NAAM}}"_s} << false << false;
    QTest::newRow("Return") << QStringList{u"{{BARCODE}}"_s} << true << true;
}

void PlaceholderCopyTest::feedbackEndsWithTheRightClick()
{
    QFETCH(QStringList, keys);
    QFETCH(bool, clearedByLastClick);
    QFETCH(bool, byReturn);
    SettingsViewHarness harness;
    harness.view().setCopyFeedbackDuration(kFeedback);
    QVERIFY(harness.show());
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    QCOMPARE(page->copyHint()->text(), u"Klik op een placeholder om te kopiëren naar klembord"_s);

    // Timers of equal length fire in the order they were started, so a marker
    // started between the clicks tells which click's check cleared the feedback.
    QTimer marker;
    marker.setSingleShot(true);
    marker.setTimerType(Qt::PreciseTimer);
    std::optional<bool> markerDoneAtClear;
    connect(&harness.view(), &SettingsView::copiedPlaceholderChanged, &marker, [&] {
        if (!harness.view().copiedPlaceholder())
            markerDoneAtClear = !marker.isActive();
    });
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (i == keys.size() - 1)
            marker.start(kFeedback);
        const auto chips = page->chips();
        QToolButton* chip = *std::find_if(chips.begin(), chips.end(), [&](const QToolButton* c) {
            return c->text() == keys.at(i);
        });
        if (byReturn) {
            chip->setFocus();
            QTest::keyClick(chip, Qt::Key_Return);
        } else {
            clickOn(chip);
        }
    }
    QCOMPARE(QGuiApplication::clipboard()->text(), keys.constLast());
    QCOMPARE(page->copyFeedbackLabel()->text(), keys.constLast() + u" gekopieerd naar klembord"_s);
    QVERIFY(page->copyFeedback()->isVisible());
    QVERIFY(!page->copyHint()->isVisible());

    QTRY_VERIFY(markerDoneAtClear.has_value());
    QCOMPARE(*markerDoneAtClear, clearedByLastClick);
    QVERIFY(page->copyHint()->isVisible());
    QVERIFY(!page->copyFeedback()->isVisible());
}

QTEST_MAIN(PlaceholderCopyTest)
#include "tst_PlaceholderCopy.moc"
