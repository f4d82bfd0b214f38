#include "LabelSink.h"
#include "SettingsViewHarness.h"
#include "views/common/BusyIndicator.h"
#include "views/common/Theme.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/TemplateEditorPage.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

QColor textColor(const QLabel* label)
{
    return label->palette().color(label->foregroundRole());
}

} // namespace

// How the pages show a printer connection test and a template test print
// while they run and after, against a label sink on the loopback interface.
class SettingsTestPrintTest : public QObject
{
    Q_OBJECT

private slots:
    void testPrintsSucceedInGreen();
};

void SettingsTestPrintTest::testPrintsSucceedInGreen()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    SettingsViewHarness harness;
    const Printer printer = SettingsViewHarness::printer(u"Balie"_s, u"127.0.0.1"_s, sink.port());
    harness.setPrinters({printer});
    harness.settings().updateTemplate(0,
                                      [&printer](LabelTemplate& t) { t.printerID = printer.id; });
    QVERIFY(harness.show());
    auto* page = harness.open<PrinterEditorPage>(Kind::printer);
    QVERIFY(page->testButton()->isEnabled() && !page->resultLabel()->isVisible());

    clickOn(page->testButton());
    QVERIFY(!page->testButton()->isEnabled() && page->spinner()->isVisible());
    QTRY_VERIFY(!harness.view().isPrinterTesting());
    QVERIFY(page->testButton()->isEnabled() && !page->spinner()->isVisible());
    QVERIFY(page->resultLabel()->isVisible());
    QCOMPARE(page->resultLabel()->text(), u"Verbinding gelukt! Test etiket verstuurd."_s);
    QCOMPARE(textColor(page->resultLabel()), Theme::green(page->palette()));

    // The result is one value for the window: another printer's page shows it too.
    harness.settings().addPrinter();
    QCOMPARE(harness.open<PrinterEditorPage>(Kind::printer, 1)->resultLabel()->text(),
             u"Verbinding gelukt! Test etiket verstuurd."_s);

    auto* templatePage = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    clickOn(templatePage->testButton());
    QVERIFY(templatePage->testingRow()->isVisible() && !templatePage->resultRow()->isVisible());
    QVERIFY(!templatePage->testButton()->isEnabled());
    QTRY_VERIFY(!harness.view().isTemplateTesting());
    QVERIFY(!templatePage->testingRow()->isVisible() && templatePage->resultRow()->isVisible());
    QCOMPARE(templatePage->resultLabel()->text(), u"✓ Test etiket verstuurd naar Balie"_s);
    QCOMPARE(textColor(templatePage->resultLabel()), Theme::green(templatePage->palette()));
}

QTEST_MAIN(SettingsTestPrintTest)
#include "tst_SettingsTestPrint.moc"
