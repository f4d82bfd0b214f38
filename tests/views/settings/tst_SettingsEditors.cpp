#include "LabelSink.h"
#include "PrinterAnswers.h"
#include "SettingsViewHarness.h"
#include "labelrender/LabelRenderer.h"
#include "services/PrinterService.h"
#include "views/common/BusyIndicator.h"
#include "views/common/LabelPictureButton.h"
#include "views/common/LabelPreviewView.h"
#include "views/common/Theme.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/InfoBox.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/TemplateEditorPage.h"

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTextDocument>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

QColor colorOf(const QLabel* label)
{
    return label->palette().color(label->foregroundRole());
}

} // namespace

// The three editor pages: bindings to the store, enabled states, stale records.
class SettingsEditorsTest : public QObject
{
    Q_OBJECT

private slots:
    void printerPageAndTestPrint();
    void writesThroughAStaleRecordAreIgnored();
    void templatePage();
};

// Against a label sink on the loopback interface whose printer is out of paper.
void SettingsEditorsTest::printerPageAndTestPrint()
{
    // No grouping separators and no range check.
    QCOMPARE(PrinterEditorPage::parsePort(u"9.100"_s), std::nullopt);
    QCOMPARE(PrinterEditorPage::parsePort(u"-3"_s), -3);
    LabelSink sink;
    QVERIFY(sink.listen());
    sink.setStatusAnswer(kPaperOutAnswer);
    SettingsViewHarness harness;
    const Printer printer{.name = u"Balie"_s, .ipAddress = u"127.0.0.1"_s, .port = sink.port()};
    harness.settings().setPrinters({printer});
    harness.settings().updateTemplate(0, [&printer](LabelTemplate& t) {
        t.printerID = printer.id;
        t.zplContent = u"^XA^FD{{NAAM}} {{PRIJS}} é^FS^XZ"_s;
    });
    QVERIFY(harness.show());
    auto* page = harness.open<PrinterEditorPage>(Kind::printer);
    QVERIFY(!page->resultLabel()->isVisible() && !page->statusLabel()->isVisible());
    // Delete is offered even for the only printer.
    QVERIFY(page->deleteButton()->isVisible());
    QCOMPARE(page->deleteButton()->text(), u"Verwijder Printer"_s);

    clickOn(page->statusButton());
    clickOn(page->testButton());
    QVERIFY(!page->testButton()->isEnabled() && !page->statusButton()->isEnabled());
    QVERIFY(page->spinner()->isVisible() && page->statusSpinner()->isVisible());
    harness.view().testPrinterConnection(0);
    // "Status" has its own row under the connection test's.
    const auto sameRow = [page](QWidget* widget, QWidget* button) {
        const int centre = widget->mapTo(page, widget->rect().center()).y();
        const int top = button->mapTo(page, QPoint()).y();
        return centre >= top && centre < top + button->height();
    };
    QVERIFY(sameRow(page->spinner(), page->testButton()));
    QVERIFY(sameRow(page->statusSpinner(), page->statusButton()));
    QVERIFY(page->statusButton()->y() > page->testButton()->geometry().bottom());
    QTRY_VERIFY(!harness.view().isPrinterTesting() && page->statusButton()->isEnabled());
    QVERIFY(page->testButton()->isEnabled() && !page->spinner()->isVisible());
    QVERIFY(sameRow(page->resultLabel(), page->testButton()));
    QVERIFY(sameRow(page->statusLabel(), page->statusButton()));
    QCOMPARE(page->resultLabel()->text(), u"Verbinding gelukt! Test etiket verstuurd."_s);
    QCOMPARE(colorOf(page->resultLabel()), Theme::green(page->palette()));
    QCOMPARE(page->statusLabel()->text(), u"Papier op"_s);
    QCOMPARE(colorOf(page->statusLabel()), Theme::errorText(page->palette()));
    QTRY_COMPARE(sink.jobs(), QList<QByteArray>{PrinterService::kTestLabel.toUtf8()});
    // The status query's and one test's: the second start did nothing.
    QCOMPARE(sink.connectionCount(), 2);

    // The test result is one value for the window; a status is the asked printer's.
    harness.settings().addPrinter();
    page = harness.open<PrinterEditorPage>(Kind::printer, 1);
    QCOMPARE(page->resultLabel()->text(), u"Verbinding gelukt! Test etiket verstuurd."_s);
    QVERIFY(!page->statusLabel()->isVisible());

    const auto enabled = [page] {
        return QList<bool>{page->testButton()->isEnabled(), page->statusButton()->isEnabled()};
    };
    QCOMPARE(enabled(), (QList<bool>{false, false}));
    QTest::keyClicks(page->ipAddressField(), u"1"_s);
    QCOMPARE(enabled(), (QList<bool>{true, true}));
    QTest::keyClick(page->ipAddressField(), Qt::Key_Backspace);
    QCOMPARE(enabled(), (QList<bool>{false, false}));
    QTest::keyClicks(page->ipAddressField(), u" 10.0.0.9 "_s);
    QCOMPARE(harness.settings().printers().at(1).ipAddress, u" 10.0.0.9 "_s);

    // After a port that is not a whole number, leaving the field shows the one in force.
    QLineEdit* port = page->portField();
    QCOMPARE(port->text(), u"9100"_s);
    port->setFocus();
    port->selectAll();
    QTest::keyClicks(port, u"abc"_s);
    QCOMPARE(harness.settings().printers().at(1).port, 9100);
    page->nameField()->setFocus();
    QTRY_COMPARE(port->text(), u"9100"_s);
    port->setFocus();
    port->selectAll();
    QTest::keyClicks(port, u"6101"_s);
    QCOMPARE(harness.settings().printers().at(1).port, 6101);

    auto* templatePage = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    clickOn(templatePage->testButton());
    QVERIFY(templatePage->testingRow()->isVisible() && !templatePage->resultRow()->isVisible());
    QVERIFY(!templatePage->testButton()->isEnabled());
    QTRY_VERIFY(!harness.view().isTemplateTesting());
    QVERIFY(!templatePage->testingRow()->isVisible() && templatePage->resultRow()->isVisible());
    QCOMPARE(templatePage->resultLabel()->text(), u"✓ Test etiket verstuurd naar Balie"_s);
    QCOMPARE(colorOf(templatePage->resultLabel()), Theme::green(templatePage->palette()));
    // The label with the preview's sample values.
    QTRY_COMPARE(sink.jobs().size(), 2);
    QCOMPARE(sink.jobs().at(1), u"^XA^FDVoorbeeld Product 19,99 é^FS^XZ"_s.toUtf8());
}
void SettingsEditorsTest::writesThroughAStaleRecordAreIgnored()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Een"_s});
    harness.settings().setPrinters({{.name = u"Een"_s, .ipAddress = u"10.0.0.1"_s}});
    QVERIFY(harness.show());
    AppSettings& settings = harness.settings();
    SettingsViewModel& model = harness.view().model();
    // Pages that outlive their records, as between a removal and the next page.
    PrinterEditorPage printer(model);
    DossierEditorPage dossier(model);
    TemplateEditorPage labelTemplate(model);
    printer.setRecord(settings.printers().at(0).id);
    dossier.setRecord(settings.dossiers().at(0).id);
    labelTemplate.setRecord(QUuid::createUuid());
    const QList<LabelTemplate> templatesBefore = settings.templates();
    settings.setPrinters({});
    settings.setDossiers({});

    QCOMPARE(printer.nameField()->text(), QString());
    QTest::keyClicks(printer.nameField(), u"x"_s);
    QTest::keyClicks(printer.portField(), u"1"_s);
    clickOn(printer.testButton());
    clickOn(printer.deleteButton());
    QTest::keyClicks(dossier.nameField(), u"x"_s);
    QTest::keyClicks(dossier.apiKeyField(), u"x"_s);
    QCOMPARE(labelTemplate.nameField()->text(), QString());
    QTest::keyClicks(labelTemplate.nameField(), u"x"_s);
    QTest::keyClicks(labelTemplate.zplEditor(), u"^XA"_s);
    clickOn(labelTemplate.testButton());
    QVERIFY(settings.printers().isEmpty() && settings.dossiers().isEmpty());
    QCOMPARE(settings.templates(), templatesBefore);
    QVERIFY(!model.isPrinterTesting() && !model.templateTestResult());
}

// One template page, in a store that gets its printers on the way.
void SettingsEditorsTest::templatePage()
{
    SettingsViewHarness harness;
    harness.settings().updateTemplate(
        0, [](LabelTemplate& t) { t.zplContent = u"^XA\r\n^FD\u00a0{{PRIJS}}\u2029^FS\r^XZ\n"_s; });
    QVERIFY(harness.show());
    harness.clickHeader(Kind::printer);
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    QPlainTextEdit* editor = page->zplEditor();

    // The editing rules are tested with the function; the page keeps to them,
    // and the store's notifications leave the cursor and the undo history alone.
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_X);
    harness.settings().updateTemplate(0, [](LabelTemplate& t) { t.name = u"Ander"_s; });
    QCOMPARE(editor->textCursor().position(), 1);
    QVERIFY(editor->document()->isUndoAvailable());
    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(editor, Qt::Key_Y);
    QCOMPARE(harness.settings().templates().at(0).zplContent,
             u"x^XA\r\n^FD\u00a0{{PRIJS}}\u2029^FS\r^XZ\n\ny"_s);

    QStringList chipTexts;
    for (const QToolButton* chip : page->chips()) {
        chipTexts << chip->text();
        QCOMPARE(chip->toolTip(), u"Klik om te kopiëren"_s);
    }
    QCOMPARE(chipTexts, (QStringList{u"{{ARTIKELNR}}"_s, u"{{BARCODE}}"_s, u"{{NAAM}}"_s,
                                     u"{{OMSCHRIJVING}}"_s, u"{{PRIJS}}"_s}));
    // A click or Return copies the key; how long that shows is the model's rule.
    harness.view().model().setCopyFeedbackDuration(std::chrono::milliseconds(100));
    QCOMPARE(page->copyHint()->text(), u"Klik op een placeholder om te kopiëren naar klembord"_s);
    clickOn(page->chips().constLast());
    QCOMPARE(QGuiApplication::clipboard()->text(), u"{{PRIJS}}"_s);
    page->chips().at(2)->setFocus();
    QTest::keyClick(page->chips().at(2), Qt::Key_Return);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"{{NAAM}}"_s);
    QCOMPARE(page->copyFeedbackLabel()->text(), u"{{NAAM}} gekopieerd naar klembord"_s);
    QVERIFY(page->copyFeedback()->isVisible() && !page->copyHint()->isVisible());
    QTRY_VERIFY(page->copyHint()->isVisible() && !page->copyFeedback()->isVisible());

    editor->clear();
    QCOMPARE(page->validationMessages(),
             (QStringList{
                 u"Ontbreekt ^XA (etiket start)"_s, u"Ontbreekt ^XZ (etiket einde)"_s,
                 u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s}));
    QTest::keyClicks(editor, u"^XA{{BARCODE}}^XZ"_s);
    QCOMPARE(harness.settings().templates().at(0).zplContent, u"^XA{{BARCODE}}^XZ"_s);
    QVERIFY(page->validationMessages().isEmpty());

    QVERIFY(!page->printerChoice()->isVisible() && page->noPrintersRow()->isVisible());
    QVERIFY(!page->printerHint()->isVisible());
    QCOMPARE(page->addPrinterButton()->text(), u"Printer Toevoegen"_s);
    clickOn(page->addPrinterButton());
    QCOMPARE(harness.view().selectedTab(),
             SettingsTabKey::make(Kind::printer, harness.settings().printers().at(0).id));
    // Neither bound to the template nor opening the Printers group.
    QCOMPARE(harness.settings().templates().at(0).printerID, std::nullopt);
    QVERIFY(!harness.view().model().isExpanded(Kind::printer));

    harness.settings().addPrinter();
    harness.settings().updatePrinter(0, [](Printer& p) { p.ipAddress = u"10.0.0.5"_s; });
    page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    QComboBox* choice = page->printerChoice();
    QVERIFY(choice->isVisible() && !page->noPrintersRow()->isVisible());
    QCOMPARE(choice->count(), 3);
    QCOMPARE(choice->itemText(0), u"Geen printer geselecteerd"_s);
    QCOMPARE(choice->itemText(1), u"Nieuwe Printer (10.0.0.5)"_s);
    QCOMPARE(choice->itemText(2), u"Nieuwe Printer"_s);
    QCOMPARE(choice->currentIndex(), 0);
    QVERIFY(page->printerHint()->isVisible());
    QCOMPARE(page->printerHint()->text(),
             u"Selecteer een printer om etiketten te kunnen printen met dit template"_s);
    QVERIFY(!page->testButton()->isEnabled());

    // Bound to a printer without address: enabled, and the press says why, in red.
    choice->setCurrentIndex(2);
    emit choice->activated(2);
    QCOMPARE(harness.settings().templates().at(0).printerID, harness.settings().printers()[1].id);
    QVERIFY(!page->printerHint()->isVisible() && page->testButton()->isEnabled());
    clickOn(page->testButton());
    QVERIFY(!harness.view().isTemplateTesting() && page->resultRow()->isVisible());
    QCOMPARE(page->resultLabel()->text(), u"Geen printer geconfigureerd"_s);
    QCOMPARE(colorOf(page->resultLabel()), Theme::errorText(page->palette()));
    choice->setCurrentIndex(0);
    emit choice->activated(0);
    QCOMPARE(harness.settings().templates().at(0).printerID, std::nullopt);

    QVERIFY(!page->deleteButton()->isVisible());
    harness.settings().addTemplate();
    QVERIFY(page->deleteButton()->isVisible());
    QCOMPARE(page->deleteButton()->text(), u"Verwijder Etiket"_s);

    // The label drawn with the sample values, once the typing paused.
    LabelPreviewView* preview = page->preview();
    QTRY_COMPARE(preview->sizeText(), u"Etiketformaat onbekend: de ZPL zet geen ^PW en ^LL."_s);
    const QString wide = u"^XA^PW1200^LL400^FO10,10^A0N,30^FD{{NAAM}}^FS^XZ"_s;
    editor->clear();
    editor->insertPlainText(wide);
    const QImage expected =
        LabelRenderer()
            .render(harness.view().model().zplService().previewZPL(wide).value())
            .labels.at(0)
            .image;
    QTRY_COMPARE(preview->picture()->image(), expected);
    QCOMPARE(preview->sizeText(), u"150 × 50 mm (1200 × 400 punten)"_s);
    // Drawn smaller: the page never gets wider than the area.
    QVERIFY(page->width() <= page->parentWidget()->width());
    clickOn(preview->picture());
    QScrollArea* fullSize = preview->fullSizeWindow();
    QVERIFY(fullSize && fullSize->isVisible());
    QCOMPARE(fullSize->widget()->size(), expected.size());
}

QTEST_MAIN(SettingsEditorsTest)
#include "tst_SettingsEditors.moc"
