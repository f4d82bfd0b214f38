#include "LabelSink.h"
#include "SettingsViewHarness.h"
#include "VirtualPrinter.h"
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

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

// The page's visible widgets beside `anchor` (their heights overlap), its
// containers left out.
QSet<QWidget*> rowOf(QWidget* page, QWidget* anchor)
{
    const QRect band(anchor->mapTo(page, QPoint()), anchor->size());
    QSet<QWidget*> row;
    for (QWidget* widget : page->findChildren<QWidget*>()) {
        const QRect rect(widget->mapTo(page, QPoint()), widget->size());
        if (widget->isVisible() && (widget == anchor || !widget->isAncestorOf(anchor)) &&
            rect.top() <= band.bottom() && rect.bottom() >= band.top())
            row.insert(widget);
    }
    return row;
}

QColor colorOf(const QLabel* label)
{
    return label->palette().color(label->foregroundRole());
}

} // namespace

// The three editor pages: their bindings to the store, enabled states and
// what they do with an index that is no longer valid.
class SettingsEditorsTest : public QObject
{
    Q_OBJECT

private slots:
    void addressAndPortFields();
    void statusButtonAsksThePrinter_data();
    void statusButtonAsksThePrinter();
    void testPrintsSucceedInGreen();
    void fieldsShowTheirEdgeInEitherPalette_data();
    void fieldsShowTheirEdgeInEitherPalette();
    void writesThroughAStaleRecordAreIgnored();
    void templatePrinterChoice();
    void chipsValidationAndAddingAPrinter();
    void templateTextIsKeptExactly();
    void previewFollowsTheText_data();
    void previewFollowsTheText();
};

void SettingsEditorsTest::addressAndPortFields()
{
    QCOMPARE(PrinterEditorPage::parsePort(u"9100"_s), 9100);
    QCOMPARE(PrinterEditorPage::parsePort(u"-3"_s), -3);
    QCOMPARE(PrinterEditorPage::parsePort(u"abc"_s), std::nullopt);
    QCOMPARE(PrinterEditorPage::parsePort(u"9.100"_s), std::nullopt);
    SettingsViewHarness harness;
    harness.setPrinters({SettingsViewHarness::printer(u"Balie"_s, QString())});
    QVERIFY(harness.show());
    auto* page = harness.open<PrinterEditorPage>(Kind::printer);
    const auto enabled = [page] {
        return QList<bool>{page->testButton()->isEnabled(), page->statusButton()->isEnabled()};
    };
    QCOMPARE(enabled(), (QList<bool>{false, false}));
    QTest::keyClicks(page->ipAddressField(), u"1"_s);
    QCOMPARE(enabled(), (QList<bool>{true, true}));
    QTest::keyClick(page->ipAddressField(), Qt::Key_Backspace);
    QCOMPARE(enabled(), (QList<bool>{false, false}));
    // The address is stored as typed, blanks included.
    QTest::keyClicks(page->ipAddressField(), u" 10.0.0.9 "_s);
    QCOMPARE(harness.settings().printers().at(0).ipAddress, u" 10.0.0.9 "_s);

    // Delete is offered even for the only printer.
    QVERIFY(page->deleteButton()->isVisible());
    QCOMPARE(page->deleteButton()->text(), u"Verwijder Printer"_s);

    // A port that is not a whole number is not stored; leaving the field shows
    // the port in force again.
    QLineEdit* port = page->portField();
    QCOMPARE(port->text(), u"9100"_s);
    port->setFocus();
    port->selectAll();
    QTest::keyClicks(port, u"abc"_s);
    QCOMPARE(harness.settings().printers().at(0).port, 9100);
    page->nameField()->setFocus();
    QTRY_COMPARE(port->text(), u"9100"_s);
    port->setFocus();
    port->selectAll();
    QTest::keyClicks(port, u"6101"_s);
    QCOMPARE(harness.settings().printers().at(0).port, 6101);
}

void SettingsEditorsTest::statusButtonAsksThePrinter_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("summary");
    QTest::newRow("ready") << u"ready"_s << u"Gereed"_s;
    QTest::newRow("paper out") << u"paper-out"_s << u"Papier op"_s;
}

void SettingsEditorsTest::statusButtonAsksThePrinter()
{
    QFETCH(QString, state);
    QFETCH(QString, summary);
    QTemporaryDir jobs;
    VirtualPrinter printer(u"P"_s, jobs.path(), VirtualPrinter::Failure::none,
                           *VirtualPrinter::stateFromName(state));
    QString error;
    QVERIFY2(printer.start(0, &error), qPrintable(error));
    SettingsViewHarness harness;
    harness.setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"127.0.0.1"_s, printer.port())});
    QVERIFY(harness.show());
    auto* page = harness.open<PrinterEditorPage>(Kind::printer);
    QVERIFY(!page->statusLabel()->isVisible());

    // The status question has its own row under the connection test's.
    clickOn(page->statusButton());
    clickOn(page->testButton());
    QVERIFY(!page->statusButton()->isEnabled());
    QCOMPARE(rowOf(page, page->testButton()),
             (QSet<QWidget*>{page->testButton(), page->spinner()}));
    QCOMPARE(rowOf(page, page->statusButton()),
             (QSet<QWidget*>{page->statusButton(), page->statusSpinner(), page->statusLabel()}));
    QVERIFY(page->statusButton()->y() > page->testButton()->geometry().bottom());
    QCOMPARE(page->statusButton()->x(), page->testButton()->x());
    QTRY_VERIFY(page->statusButton()->isEnabled() && !harness.view().isPrinterTesting());
    QCOMPARE(rowOf(page, page->testButton()),
             (QSet<QWidget*>{page->testButton(), page->resultLabel()}));
    QCOMPARE(rowOf(page, page->statusButton()),
             (QSet<QWidget*>{page->statusButton(), page->statusLabel()}));
    QCOMPARE(page->statusLabel()->text(), summary);
    QCOMPARE(colorOf(page->statusLabel()), summary == u"Gereed"_s
                                               ? Theme::green(page->palette())
                                               : Theme::errorText(page->palette()));

    // The answer belongs to the printer that was asked.
    harness.settings().addPrinter();
    QVERIFY(!harness.open<PrinterEditorPage>(Kind::printer, 1)->statusLabel()->isVisible());
    QCOMPARE(harness.open<PrinterEditorPage>(Kind::printer, 0)->statusLabel()->text(), summary);
}

// Against a label sink on the loopback interface.
void SettingsEditorsTest::testPrintsSucceedInGreen()
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
    QVERIFY(!page->testButton()->isEnabled() && page->spinner()->isVisible());
    // A second start while one runs does nothing.
    harness.view().testPrinterConnection(0);
    QTRY_VERIFY(!harness.view().isPrinterTesting());
    QVERIFY(page->testButton()->isEnabled() && !page->spinner()->isVisible());
    QCOMPARE(page->resultLabel()->text(), u"Verbinding gelukt! Test etiket verstuurd."_s);
    QCOMPARE(colorOf(page->resultLabel()), Theme::green(page->palette()));
    QTRY_COMPARE(sink.jobs(), QList<QByteArray>{PrinterService::kTestLabel.toUtf8()});
    QCOMPARE(sink.connectionCount(), 1);

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
    QCOMPARE(colorOf(templatePage->resultLabel()), Theme::green(templatePage->palette()));
    // The label with the preview's sample values.
    QTRY_COMPARE(sink.jobs().size(), 2);
    QCOMPARE(sink.jobs().at(1), u"^XA^FDVoorbeeld Product 19,99 é^FS^XZ"_s.toUtf8());
}

void SettingsEditorsTest::fieldsShowTheirEdgeInEitherPalette_data()
{
    QTest::addColumn<QPalette>("palette");
    QPalette dark(QColor(58, 58, 60), QColor(40, 40, 42));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(44, 44, 47));
    dark.setColor(QPalette::Highlight, QColor(10, 132, 255));
    QTest::newRow("light") << QApplication::palette();
    QTest::newRow("dark") << dark;
}

void SettingsEditorsTest::fieldsShowTheirEdgeInEitherPalette()
{
    QFETCH(QPalette, palette);
    const QPalette light = QApplication::palette();
    SettingsViewHarness harness;
    QVERIFY(harness.show());
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    // The palette changes while the page is open, as a desktop's theme does.
    QApplication::setPalette(palette);
    auto restore = qScopeGuard([&light] { QApplication::setPalette(light); });

    // The field's background stands off the card's, just left of it.
    QTRY_COMPARE(page->palette().color(QPalette::Base), palette.color(QPalette::Base));
    QCOMPARE(harness.view().palette().color(QPalette::Window), palette.color(QPalette::Window));
    const QLineEdit* name = page->nameField();
    const QImage shown = page->grab().toImage();
    const QPoint inField = name->mapTo(page, QPoint(name->width() - 6, name->height() / 2));
    QCOMPARE(shown.pixelColor(inField), palette.color(QPalette::Base));
    QCOMPARE(shown.pixelColor(inField - QPoint(name->width(), 0)),
             palette.color(QPalette::AlternateBase));

    // The template text shows the focus in the accent colour.
    QPlainTextEdit* editor = page->zplEditor();
    editor->setFocus();
    QTRY_VERIFY(editor->hasFocus());
    QCOMPARE(editor->grab().toImage().pixelColor(0, editor->height() / 2),
             palette.color(QPalette::Active, QPalette::Highlight));
}

void SettingsEditorsTest::writesThroughAStaleRecordAreIgnored()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Een"_s});
    harness.setPrinters({SettingsViewHarness::printer(u"Een"_s, u"10.0.0.1"_s)});
    QVERIFY(harness.show());
    AppSettings& settings = harness.settings();
    SettingsViewModel& model = harness.view().model();
    // Pages that outlive their records, as one does between the record's
    // removal and the detail area showing another page.
    PrinterEditorPage printer(model);
    DossierEditorPage dossier(model);
    TemplateEditorPage labelTemplate(model);
    printer.setRecord(settings.printers().at(0).id);
    dossier.setRecord(settings.dossiers().at(0).id);
    labelTemplate.setRecord(QUuid::createUuid());
    for (QWidget* page : std::initializer_list<QWidget*>{&printer, &dossier, &labelTemplate})
        page->show();
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

void SettingsEditorsTest::templatePrinterChoice()
{
    SettingsViewHarness harness;
    const Printer withAddress = SettingsViewHarness::printer(u"Balie"_s, u"10.0.0.5"_s);
    const Printer withoutAddress = SettingsViewHarness::printer(u"Magazijn"_s, QString());
    harness.setPrinters({withAddress, withoutAddress});
    QVERIFY(harness.show());
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    QComboBox* choice = page->printerChoice();

    QVERIFY(choice->isVisible() && !page->noPrintersRow()->isVisible());
    QCOMPARE(choice->count(), 3);
    QCOMPARE(choice->itemText(0), u"Geen printer geselecteerd"_s);
    QCOMPARE(choice->itemText(1), u"Balie (10.0.0.5)"_s);
    QCOMPARE(choice->itemText(2), u"Magazijn"_s);
    QCOMPARE(choice->currentIndex(), 0);
    QVERIFY(page->printerHint()->isVisible());
    QCOMPARE(page->printerHint()->text(),
             u"Selecteer een printer om etiketten te kunnen printen met dit template"_s);

    choice->setCurrentIndex(2);
    emit choice->activated(2);
    QCOMPARE(harness.settings().templates().at(0).printerID, withoutAddress.id);
    QVERIFY(!page->printerHint()->isVisible());

    choice->setCurrentIndex(0);
    emit choice->activated(0);
    QCOMPARE(harness.settings().templates().at(0).printerID, std::nullopt);
    QVERIFY(page->printerHint()->isVisible());

    // The test print needs a printer, and a delete a second template.
    QVERIFY(!page->testButton()->isEnabled());
    QVERIFY(!page->deleteButton()->isVisible());
    harness.settings().updateTemplate(
        0, [&withAddress](LabelTemplate& t) { t.printerID = withAddress.id; });
    // Bound to a printer that has no address: enabled, and the press says why
    // nothing was sent, in red with the cross.
    harness.settings().updatePrinter(0, [](Printer& p) { p.ipAddress.clear(); });
    QVERIFY(page->testButton()->isEnabled());
    clickOn(page->testButton());
    QVERIFY(!harness.view().isTemplateTesting() && page->resultRow()->isVisible());
    QCOMPARE(page->resultLabel()->text(), u"Geen printer geconfigureerd"_s);
    QCOMPARE(colorOf(page->resultLabel()), Theme::errorText(page->palette()));
    harness.settings().addTemplate();
    QVERIFY(page->deleteButton()->isVisible());
    QCOMPARE(page->deleteButton()->text(), u"Verwijder Etiket"_s);
}

// On the template page of a store without printers.
void SettingsEditorsTest::chipsValidationAndAddingAPrinter()
{
    SettingsViewHarness harness;
    QVERIFY(harness.show());
    harness.clickHeader(Kind::printer);
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    QStringList chipTexts;
    for (const QToolButton* chip : page->chips()) {
        chipTexts << chip->text();
        QCOMPARE(chip->toolTip(), u"Klik om te kopiëren"_s);
    }
    QCOMPARE(chipTexts, (QStringList{u"{{ARTIKELNR}}"_s, u"{{BARCODE}}"_s, u"{{NAAM}}"_s,
                                     u"{{OMSCHRIJVING}}"_s, u"{{PRIJS}}"_s}));

    // A click or Return copies the key and shows so for a while (how long is
    // the model's rule).
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

    QCOMPARE(page->zplEditor()->toPlainText(), LabelTemplate::kDefaultZPL);
    QVERIFY(page->validationMessages().isEmpty());
    page->zplEditor()->clear();
    QCOMPARE(harness.settings().templates().at(0).zplContent, QString());
    QCOMPARE(page->validationMessages(),
             (QStringList{
                 u"Ontbreekt ^XA (etiket start)"_s, u"Ontbreekt ^XZ (etiket einde)"_s,
                 u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s}));
    QTest::keyClicks(page->zplEditor(), u"^XA{{BARCODE}}^XZ"_s);
    QCOMPARE(harness.settings().templates().at(0).zplContent, u"^XA{{BARCODE}}^XZ"_s);
    QVERIFY(page->validationMessages().isEmpty());
    QCOMPARE(harness.pageAs<TemplateEditorPage>(), page);
    // The store's notifications did not reset the text under the cursor.
    QCOMPARE(page->zplEditor()->textCursor().position(), 17);

    QVERIFY(!page->printerChoice()->isVisible() && page->noPrintersRow()->isVisible());
    QVERIFY(!page->printerHint()->isVisible());
    QCOMPARE(page->addPrinterButton()->text(), u"Printer Toevoegen"_s);

    clickOn(page->addPrinterButton());
    QCOMPARE(harness.settings().printers().size(), 1);
    QCOMPARE(harness.view().selectedTab(),
             SettingsTabKey::make(Kind::printer, harness.settings().printers().at(0).id));
    // Neither bound to the template nor opening the Printers group.
    QCOMPARE(harness.settings().templates().at(0).printerID, std::nullopt);
    QVERIFY(!harness.view().model().isExpanded(Kind::printer));
}

void SettingsEditorsTest::templateTextIsKeptExactly()
{
    // The editing rules are tested with the function; this shows the page keeps to them.
    const QString stored = u"^XA\r\n^FD\u00a0{{PRIJS}}\u2029^FS\r^XZ\n"_s;
    SettingsViewHarness harness;
    harness.settings().updateTemplate(0, [&stored](LabelTemplate& t) { t.zplContent = stored; });
    QVERIFY(harness.show());
    QPlainTextEdit* editor = harness.open<TemplateEditorPage>(Kind::labelTemplate)->zplEditor();

    // Opening the page and changes elsewhere leave the text, the cursor and
    // the undo history alone.
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_X);
    const int cursor = editor->textCursor().position();
    harness.settings().addPrinter();
    harness.settings().updateTemplate(0, [](LabelTemplate& t) { t.name = u"Ander"_s; });
    QCOMPARE(editor->textCursor().position(), cursor);
    QVERIFY(editor->document()->isUndoAvailable());

    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(editor, Qt::Key_Y);
    QCOMPARE(harness.settings().templates().at(0).zplContent,
             u"x^XA\r\n^FD\u00a0{{PRIJS}}\u2029^FS\r^XZ\n\ny"_s);
}

void SettingsEditorsTest::previewFollowsTheText_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("warning"); // a fragment of the only warning; empty: none
    QTest::newRow("size set, wider than the page")
        << u"^XA^PW1200^LL400^FO10,10^A0N,30^FD{{NAAM}}^FS^XZ"_s
        << u"150 × 50 mm (1200 × 400 punten)"_s << QString();
    QTest::newRow("size unknown") << u"^XA^FO10,10^A0N,30^FD{{NAAM}}^FS^XZ"_s
                                  << u"Etiketformaat onbekend: de ZPL zet geen ^PW en ^LL."_s
                                  << QString();
    QTest::newRow("accent without ^CI28")
        << u"^XA^PW406^LL203^FO10,10^A0N,30^FDPrijs € {{PRIJS}}^FS^XZ"_s
        << u"50,8 × 25,4 mm (406 × 203 punten)"_s << u"in het sjabloon zonder ^CI28"_s;
}

void SettingsEditorsTest::previewFollowsTheText()
{
    QFETCH(QString, typed);
    QFETCH(QString, size);
    QFETCH(QString, warning);
    SettingsViewHarness harness;
    QVERIFY(harness.show());
    auto* page = harness.open<TemplateEditorPage>(Kind::labelTemplate);
    LabelPreviewView* preview = page->preview();
    LabelPictureButton* picture = preview->picture();
    QVERIFY(picture->isVisible());

    page->zplEditor()->clear();
    page->zplEditor()->insertPlainText(typed);
    // Drawn with the sample values, once the typing paused.
    const QImage expected =
        LabelRenderer()
            .render(harness.view().model().zplService().previewZPL(typed).value())
            .labels.at(0)
            .image;
    QTRY_COMPARE(picture->image(), expected);
    QCOMPARE(preview->sizeText(), size);
    QCOMPARE(preview->warnings().size(), warning.isEmpty() ? 0 : 1);
    QVERIFY(warning.isEmpty() || preview->warnings().at(0).contains(warning));
    // A wide label is drawn smaller; the page never gets wider than the area.
    QVERIFY(page->width() <= page->parentWidget()->width());

    clickOn(picture);
    QScrollArea* fullSize = preview->fullSizeWindow();
    QVERIFY(fullSize && fullSize->isVisible());
    QCOMPARE(fullSize->widget()->size(), expected.size());
}

QTEST_MAIN(SettingsEditorsTest)
#include "tst_SettingsEditors.moc"
