// Pictures of the settings window (every editor, each empty state, "Over")
// and of the About window, for looking at the layout without a desktop.

#include "LabelSink.h"
#include "ScreenshotFolder.h"
#include "TestHome.h"
#include "VirtualPrinter.h"
#include "model/AppSettings.h"
#include "views/common/LabelPictureButton.h"
#include "views/common/LabelPreviewView.h"
#include "views/main/AboutWindow.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsView.h"
#include "views/settings/SettingsWindow.h"
#include "views/settings/TemplateEditorPage.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

void scrollToBottom(QWidget* window)
{
    ScreenshotFolder::settle();
    for (QScrollArea* area : window->findChildren<QScrollArea*>()) {
        if (area->isVisible())
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    }
}

void fillStore(AppSettings& settings, quint16 printerPort)
{
    Dossier shop{QUuid::createUuid(), u"Winkel Amsterdam"_s, u"ak_live_4f9c2e71b8"_s};
    Dossier warehouse{QUuid::createUuid(), u"Magazijn"_s, QString()};
    Dossier webshop{QUuid::createUuid(), u"Webshop"_s, u"ak_live_91aa03"_s};
    settings.setDossiers({shop, warehouse, webshop});
    settings.setBookyear(u"2026"_s);

    const Printer counter{QUuid::createUuid(), u"Balie Zebra"_s, u"127.0.0.1"_s, printerPort};
    settings.setPrinters({counter, {QUuid::createUuid(), u"Magazijn ZD420"_s, QString(), 9100}});

    LabelTemplate shelf = settings.templates().constFirst();
    shelf.name = u"Schaplabel"_s;
    shelf.zplContent = u"^XA^PW480^LL320\n"
                       u"^FO20,20^A0N,30,30^FB440,2,0,L^FD{{NAAM}}^FS\n"
                       u"^FO20,92^A0N,22,22^FDArt. {{ARTIKELNR}}^FS\n"
                       u"^FO20,124^A0N,64,64^FDPrijs {{PRIJS}}^FS\n"
                       u"^FO90,204^BY2^BEN,70,Y,N^FD{{BARCODE}}^FS\n"
                       u"^XZ"_s;
    shelf.printerID = counter.id;
    LabelTemplate small = shelf;
    small.id = QUuid::createUuid();
    small.name = u"Prijssticker klein"_s;
    small.printerID.reset();
    small.zplContent = u"^XA\n^FO20,20^A0N,25,25^FDPrijs^FS\n"_s;
    settings.setTemplates({shelf, small});
}

// The printer page after asking a simulator printer in `state` for its status,
// the button focused; the connection test's result, if any, stays above it. With `whileAsking`,
// also a picture of the question still running.
void shootPrinterStatus(SettingsWindow* window, AppSettings& settings, VirtualPrinter::State state,
                        ScreenshotFolder& folder, const QString& name, bool whileAsking = false)
{
    QTemporaryDir jobs;
    VirtualPrinter printer(u"Status"_s, jobs.path(), VirtualPrinter::Failure::none, state);
    QString error;
    if (!printer.start(0, &error)) {
        qWarning("no printer for %s: %s", qPrintable(name), qPrintable(error));
        return;
    }
    const qint64 port = settings.printers().at(0).port;
    settings.updatePrinter(0, [&printer](Printer& p) { p.port = printer.port(); });
    SettingsView& view = *window->view();
    view.select(Kind::printer, settings.printers().at(0).id);
    view.queryPrinterStatus(0);
    if (whileAsking)
        folder.save(window, name + u"-asking"_s);
    folder.waitFor(
        "status answer", [&view] { return !view.isQueryingStatus(); }, 8000);
    // The focus stays on the button, as after pressing it with the keyboard.
    if (auto* page = window->findChild<PrinterEditorPage*>())
        page->statusButton()->setFocus(Qt::TabFocusReason);
    folder.save(window, name);
    settings.updatePrinter(0, [port](Printer& p) { p.port = port; });
}

// The status line green and red, and the template text with the focus, in the
// application's palette as the window opens with it; `suffix` names the palette.
void renderStatusAndFocusShots(AppSettings& settings, ScreenshotFolder& folder,
                               const QString& suffix)
{
    auto* window = new SettingsWindow(settings);
    window->show();
    window->activateWindow();
    ScreenshotFolder::settle(300);
    SettingsView& view = *window->view();
    view.select(Kind::printer, settings.printers().at(0).id);
    view.testPrinterConnection(0);
    folder.waitFor("connection test", [&view] { return !view.isPrinterTesting(); });
    shootPrinterStatus(window, settings, VirtualPrinter::State::ready, folder,
                       u"settings-printer-status-ready"_s + suffix);
    shootPrinterStatus(window, settings, VirtualPrinter::State::paperOut, folder,
                       u"settings-printer-status-paper-out"_s + suffix);
    if (suffix.isEmpty())
        shootPrinterStatus(window, settings, VirtualPrinter::State::headOpen, folder,
                           u"settings-printer-status-silent"_s, true);

    window->resize(SettingsWindow::kMaximumSize);
    view.select(Kind::labelTemplate, settings.templates().at(0).id);
    ScreenshotFolder::settle();
    if (auto* page = window->findChild<TemplateEditorPage*>())
        page->zplEditor()->setFocus(Qt::TabFocusReason);
    folder.save(window, u"settings-template-focus"_s + suffix);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void renderSettingsShots(ScreenshotFolder& folder)
{
    TestHome home;
    LabelSink printer;
    printer.listen();
    auto settings = std::make_unique<AppSettings>();
    fillStore(*settings, printer.port());

    auto* window = new SettingsWindow(*settings);
    window->show();
    ScreenshotFolder::settle(300);
    SettingsView& view = *window->view();

    // Dossier page (opens on the first dossier).
    folder.save(window, u"settings-dossier"_s);

    ScreenshotFolder::blockSettingsFile(*settings, true);
    folder.save(window, u"settings-save-failed"_s);
    ScreenshotFolder::blockSettingsFile(*settings, false);

    // Printer page after a successful connection test.
    view.select(Kind::printer, settings->printers().at(0).id);
    view.testPrinterConnection(0);
    folder.waitFor("connection test", [&view] { return !view.isPrinterTesting(); });
    folder.save(window, u"settings-printer"_s);

    // A printer without address: "Test Verbinding" is off.
    view.select(Kind::printer, settings->printers().at(1).id);
    folder.save(window, u"settings-printer-no-address"_s);

    // Template page, at the tallest the window gets: bound, a test print
    // sent, a placeholder just copied.
    const QSize normalSize = window->size();
    window->resize(SettingsWindow::kMaximumSize);
    view.select(Kind::labelTemplate, settings->templates().at(0).id);
    view.testPrintTemplate(0);
    folder.waitFor("test print", [&view] { return !view.isTemplateTesting(); });
    view.copyPlaceholder(u"{{PRIJS}}"_s);
    folder.save(window, u"settings-template"_s);
    scrollToBottom(window);
    folder.save(window, u"settings-template-preview"_s);

    // The preview while typing: an accent without ^CI28 gives a warning. The
    // picture has the keyboard focus.
    auto* editor = window->findChild<QPlainTextEdit*>();
    editor->moveCursor(QTextCursor::End);
    editor->moveCursor(QTextCursor::StartOfBlock); // before ^XZ
    editor->insertPlainText(u"^FO330,92^A0N,22,22^FDCrème^FS\n"_s);
    ScreenshotFolder::settle(int(TemplateEditorPage::kPreviewDelay.count()) + 150);
    window->findChild<LabelPictureButton*>()->setFocus(Qt::TabFocusReason);
    scrollToBottom(window);
    folder.save(window, u"settings-template-preview-warning"_s);
    // A click on the picture opens it at 100 %.
    auto* preview = window->findChild<LabelPreviewView*>();
    preview->picture()->click();
    folder.save(preview->fullSizeWindow(), u"settings-template-preview-full-size"_s);
    preview->fullSizeWindow()->close();
    editor->undo();

    // Template without printer and with an incomplete label: hint and messages.
    view.select(Kind::labelTemplate, settings->templates().at(1).id);
    folder.save(window, u"settings-template-invalid"_s);
    scrollToBottom(window);
    folder.save(window, u"settings-template-invalid-bottom"_s);
    window->resize(normalSize);

    // No printers at all: the template page offers to add one.
    const QList<Printer> printers = settings->printers();
    settings->setPrinters({});
    folder.save(window, u"settings-template-no-printers"_s);

    // Empty states: a key that names nothing, with records and without.
    view.setSelectedTab(u"printer-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    folder.save(window, u"settings-empty-printers"_s);
    settings->setPrinters(printers);
    folder.save(window, u"settings-select-printer"_s);
    view.setSelectedTab(u"template-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    folder.save(window, u"settings-select-template"_s);
    view.setSelectedTab(u"dossier-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    folder.save(window, u"settings-select-dossier"_s);

    // "Over" with the Printers group closed.
    view.setSelectedTab(SettingsTabKey::about());
    view.setExpanded(Kind::printer, false);
    folder.save(window, u"settings-over"_s);
    view.setExpanded(Kind::printer, true);

    // No dossiers, nothing selected.
    settings->setDossiers({});
    view.setSelectedTab(QString());
    folder.save(window, u"settings-nothing-selected"_s);
    view.setSelectedTab(u"dossier-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    folder.save(window, u"settings-empty-dossiers"_s);
    settings->setTemplates({});
    view.setSelectedTab(u"template-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    folder.save(window, u"settings-empty-templates"_s);

    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // The status line and the focused template text, light and dark, from a
    // store filled afresh (the empty states above left no template).
    settings->addTemplate();
    fillStore(*settings, printer.port());
    renderStatusAndFocusShots(*settings, folder, QString());
    const QPalette light = QApplication::palette();
    QApplication::setPalette(ScreenshotFolder::darkPalette());
    renderStatusAndFocusShots(*settings, folder, u"-dark"_s);
    QApplication::setPalette(light);

    auto* about = new AboutWindow;
    about->show();
    folder.save(about, u"about"_s);
    about->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
