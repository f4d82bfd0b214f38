#include "LabelSink.h"
#include "PrinterAnswers.h"
#include "TestHome.h"
#include "model/AppSettings.h"
#include "viewmodels/SettingsViewModel.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = SettingsTabKey::Kind;

// The settings window's state without its widgets (adding and the test
// results are checked through the sidebar and the pages).
class SettingsViewModelTest : public QObject
{
    Q_OBJECT

private slots:
    void keysUseUpperCaseUuidsAndParseStrictly_data();
    void keysUseUpperCaseUuidsAndParseStrictly();
    void deletingMovesTheSelection_data();
    void deletingMovesTheSelection();
    void copyFeedbackEndsWithTheRightCopy_data();
    void copyFeedbackEndsWithTheRightCopy();
    void aTestOutlivesItsWindow();
};

void SettingsViewModelTest::keysUseUpperCaseUuidsAndParseStrictly_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("hasID");
    QTest::newRow("dossier") << u"dossier-6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F"_s << Kind::dossier
                             << true;
    QTest::newRow("about") << u"about"_s << Kind::about << false;
    // The kind comes from the prefix; a bad UUID leaves no id.
    QTest::newRow("not a UUID") << u"printer-xyz"_s << Kind::printer << false;
    QTest::newRow("braces") << u"dossier-{6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F}"_s << Kind::dossier
                            << false;
    QTest::newRow("About") << u"About"_s << Kind::none << false;
}

void SettingsViewModelTest::keysUseUpperCaseUuidsAndParseStrictly()
{
    QFETCH(QString, key);
    QFETCH(Kind, kind);
    QFETCH(bool, hasID);
    const QUuid id = QUuid::fromString(u"{6f1c2b0e-8d4a-4c3b-9e2f-1a2b3c4d5e6f}"_s);
    const SettingsTabKey::Parsed parsed = SettingsTabKey::parse(key);
    QCOMPARE(parsed.kind, kind);
    QCOMPARE(parsed.id, hasID ? std::optional(id) : std::nullopt);
    if (hasID || kind == Kind::about)
        QCOMPARE(SettingsTabKey::make(kind, id), key);
}

void SettingsViewModelTest::deletingMovesTheSelection_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("dossiers");
    QTest::addColumn<int>("records");   // of `kind`
    QTest::addColumn<Kind>("selected"); // its first record, or none: unchanged
    QTest::newRow("second of three dossiers") << Kind::dossier << 1 << 3 << 3 << Kind::dossier;
    QTest::newRow("first of two templates")
        << Kind::labelTemplate << 0 << 1 << 2 << Kind::labelTemplate;
    QTest::newRow("last printer") << Kind::printer << 0 << 2 << 1 << Kind::dossier;
    QTest::newRow("last printer, no dossiers") << Kind::printer << 0 << 0 << 1 << Kind::none;
    QTest::newRow("stale index") << Kind::printer << 1 << 1 << 1 << Kind::none;
}

void SettingsViewModelTest::deletingMovesTheSelection()
{
    QFETCH(Kind, kind);
    QFETCH(int, index);
    QFETCH(int, dossiers);
    QFETCH(int, records);
    QFETCH(Kind, selected);
    TestHome home;
    AppSettings settings;
    settings.setDossiers({});
    settings.setTemplates({});
    SettingsViewModel model(settings);
    for (int i = 0; i < dossiers; ++i)
        settings.addDossier();
    while (model.ids(kind).size() < records)
        model.addRecord(kind);
    model.setSelectedTab(u"before"_s);

    model.deleteRecord(kind, index);
    QCOMPARE(model.ids(kind).size(), index < records ? records - 1 : records);
    QCOMPARE(model.selectedTab(), selected == Kind::none
                                      ? u"before"_s
                                      : SettingsTabKey::make(selected, model.ids(selected)[0]));
}

void SettingsViewModelTest::copyFeedbackEndsWithTheRightCopy_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<bool>("clearedByLastCopy");
    QTest::newRow("one copy") << QStringList{u"{{PRIJS}}"_s} << true;
    QTest::newRow("another key") << QStringList{u"{{NAAM}}"_s, u"{{PRIJS}}"_s} << true;
    QTest::newRow("same key twice") << QStringList{u"{{NAAM}}"_s, u"{{NAAM}}"_s} << false;
}

// Each copy shows for its full time; the same key again does not extend the first.
void SettingsViewModelTest::copyFeedbackEndsWithTheRightCopy()
{
    QFETCH(QStringList, keys);
    QFETCH(bool, clearedByLastCopy);
    // Shortened from the real two seconds; the rule is the same.
    constexpr auto kFeedback = 50ms;
    TestHome home;
    AppSettings settings;
    SettingsViewModel model(settings);
    model.setCopyFeedbackDuration(kFeedback);

    // Timers of equal length fire in the order they were started, so a marker
    // started between the copies tells which copy's check cleared the feedback.
    QTimer marker;
    marker.setSingleShot(true);
    marker.setTimerType(Qt::PreciseTimer);
    std::optional<bool> markerDoneAtClear;
    connect(&model, &SettingsViewModel::resultsChanged, &marker, [&] {
        if (!model.copiedPlaceholder())
            markerDoneAtClear = !marker.isActive();
    });
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (i == keys.size() - 1)
            marker.start(kFeedback);
        model.placeholderCopied(keys.at(i));
        QCOMPARE(model.copiedPlaceholder(), keys.at(i));
    }
    QTRY_VERIFY(markerDoneAtClear.has_value());
    QCOMPARE(*markerDoneAtClear, clearedByLastCopy);
}

void SettingsViewModelTest::aTestOutlivesItsWindow()
{
    TestHome home;
    LabelSink sink;
    QVERIFY(sink.listen());
    sink.setStatusAnswer(kPaperOutAnswer);
    QSignalSpy asked(&sink, &LabelSink::statusQueried);
    AppSettings settings;
    settings.setPrinters({{.name = u"Balie"_s, .ipAddress = u"127.0.0.1"_s, .port = sink.port()}});
    auto model = std::make_unique<SettingsViewModel>(settings);
    model->testPrinterConnection(0);
    model->queryPrinterStatus(0);
    QVERIFY(model->isPrinterTesting() && model->isQueryingStatus());

    // Closed mid-test: the answers that come back must not touch the deleted state.
    model.reset();
    QTRY_COMPARE(sink.jobs().size(), 1);
    QTRY_COMPARE(asked.size(), 1);
    QTest::qWait(200);
}

QTEST_MAIN(SettingsViewModelTest)
#include "tst_SettingsViewModel.moc"
