#include "LabelSink.h"
#include "SettingsViewHarness.h"
#include "services/PrinterService.h"
#include "views/common/BusyIndicator.h"
#include "views/common/Theme.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/TemplateEditorPage.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

QColor textColor(const QLabel* label)
{
    return label->palette().color(label->foregroundRole());
}

} // namespace

// The printer connection test and the template test print, against a label
// sink on the loopback interface.
class SettingsTestPrintTest : public QObject
{
    Q_OBJECT

private slots:
    void testPrintsSucceedInGreen();
    void aTestOutlivesItsWindow();
};

void SettingsTestPrintTest::testPrintsSucceedInGreen()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    SettingsViewHarness harness;
    const Printer printer = SettingsViewHarness::printer(u"Balie"_s, u"127.0.0.1"_s, sink.port());
    harness.setPrinters({printer});
    harness.settings().updateTemplate(0, [&printer](LabelTemplate& t) {
        t.printerID = printer.id;
        t.zplContent = u"^XA^FD{{NAAM}} {{PRIJS}} é^FS^XZ"_s;
    });
    QVERIFY(harness.show());
    auto* page = harness.open<PrinterEditorPage>(Kind::printer);
    QVERIFY(page->testButton()->isEnabled() && !page->resultLabel()->isVisible());

    clickOn(page->testButton());
    // Running: the button is off, the indicator shows, a second press does nothing.
    QVERIFY(harness.view().isPrinterTesting());
    QVERIFY(!page->testButton()->isEnabled() && page->spinner()->isVisible());
    harness.view().testPrinterConnection(0);

    QTRY_VERIFY(!harness.view().isPrinterTesting());
    QVERIFY(page->resultLabel()->isVisible());
    QCOMPARE(page->resultLabel()->text(), u"Verbinding gelukt! Test etiket verstuurd."_s);
    QCOMPARE(textColor(page->resultLabel()), Theme::green(page->palette()));
    QVERIFY(page->testButton()->isEnabled() && !page->spinner()->isVisible());
    QTRY_COMPARE(sink.jobs().size(), 1);
    QCOMPARE(sink.jobs().at(0), PrinterService::kTestLabel.toUtf8());
    QCOMPARE(sink.connectionCount(), 1);

    // The result is one value for the window: another printer's page shows it too.
    harness.settings().addPrinter();
    QCOMPARE(harness.open<PrinterEditorPage>(Kind::printer, 1)->resultLabel()->text(),
             u"Verbinding gelukt! Test etiket verstuurd."_s);

    // The template's test print sends the label with the preview's sample values.
    auto* templatePage = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    clickOn(templatePage->testButton());
    QVERIFY(harness.view().isTemplateTesting() && templatePage->testingRow()->isVisible());
    QVERIFY(!templatePage->resultRow()->isVisible() && !templatePage->testButton()->isEnabled());

    QTRY_VERIFY(!harness.view().isTemplateTesting());
    QVERIFY(!templatePage->testingRow()->isVisible() && templatePage->resultRow()->isVisible());
    QCOMPARE(templatePage->resultLabel()->text(), u"✓ Test etiket verstuurd naar Balie"_s);
    QCOMPARE(textColor(templatePage->resultLabel()), Theme::green(templatePage->palette()));
    QTRY_COMPARE(sink.jobs().size(), 2);
    QCOMPARE(sink.jobs().at(1), u"^XA^FDVoorbeeld Product 19,99 é^FS^XZ"_s.toUtf8());
}

void SettingsTestPrintTest::aTestOutlivesItsWindow()
{
    LabelSink sink;
    QVERIFY(sink.listen());
    auto harness = std::make_unique<SettingsViewHarness>();
    harness->setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"127.0.0.1"_s, sink.port())});
    QVERIFY(harness->show());
    sink.setStatusAnswer("\x02"
                         "030,1,0,1218,000,0,0,0,000,0,0,0\x03\r\n\x02"
                         "000,0,0,0,1,2,6,0,00000000,1,000\x03\r\n\x02"
                         "1234,0\x03\r\n");
    QSignalSpy asked(&sink, &LabelSink::statusQueried);
    harness->view().testPrinterConnection(0);
    harness->view().queryPrinterStatus(0);
    QVERIFY(harness->view().isPrinterTesting());

    // Closing the window mid-test must not touch the deleted view when the
    // test or the status query comes back.
    harness.reset();
    QTRY_COMPARE(sink.jobs().size(), 1);
    QTRY_COMPARE(asked.size(), 1);
    QTest::qWait(200);
}

QTEST_MAIN(SettingsTestPrintTest)
#include "tst_SettingsTestPrint.moc"
