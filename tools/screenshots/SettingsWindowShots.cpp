// Pictures of the settings window (every editor, each empty state, "Over")
// and of the About window, for looking at the layout without a desktop.

#include "MainWindowShots.h"
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
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

void settle(int ms = 150)
{
    const QDeadlineTimer deadline(ms);
    while (!deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

bool waitUntil(const std::function<bool()>& condition, int ms = 3000)
{
    const QDeadlineTimer deadline(ms);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return condition();
}

bool save(QWidget* widget, const QString& outDir, const QString& name)
{
    settle();
    return widget->grab().save(QDir(outDir).filePath(name + u".png"_s));
}

// A label printer on the loopback interface that takes every job.
class LoopbackPrinter : public QObject
{
public:
    LoopbackPrinter()
    {
        m_server.listen(QHostAddress::LocalHost);
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                connect(socket, &QTcpSocket::readyRead, socket, [socket] { socket->readAll(); });
                connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            }
        });
    }
    quint16 port() const { return m_server.serverPort(); }

private:
    QTcpServer m_server;
};

// Keeps the store's file away from the real home directory while shooting.
class ScratchHome
{
public:
    ScratchHome() : m_previous(qgetenv("HOME")), m_hadHome(qEnvironmentVariableIsSet("HOME"))
    {
        qputenv("HOME", m_dir.path().toLocal8Bit());
    }
    ~ScratchHome()
    {
        if (m_hadHome)
            qputenv("HOME", m_previous);
        else
            qunsetenv("HOME");
    }

private:
    QTemporaryDir m_dir;
    QByteArray m_previous;
    bool m_hadHome;
};

void scrollToBottom(QWidget* window)
{
    settle();
    for (QScrollArea* area : window->findChildren<QScrollArea*>()) {
        if (area->isVisible())
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    }
}

Printer makePrinter(const QString& name, const QString& ip, qint64 port = 9100)
{
    Printer printer;
    printer.name = name;
    printer.ipAddress = ip;
    printer.port = port;
    return printer;
}

void fillStore(AppSettings& settings, quint16 printerPort)
{
    Dossier shop{QUuid::createUuid(), u"Winkel Amsterdam"_s, u"ak_live_4f9c2e71b8"_s};
    Dossier warehouse{QUuid::createUuid(), u"Magazijn"_s, QString()};
    Dossier webshop{QUuid::createUuid(), u"Webshop"_s, u"ak_live_91aa03"_s};
    settings.setDossiers({shop, warehouse, webshop});
    settings.setBookyear(u"2026"_s);

    const Printer counter = makePrinter(u"Balie Zebra"_s, u"127.0.0.1"_s, printerPort);
    settings.setPrinters({counter, makePrinter(u"Magazijn ZD420"_s, QString())});

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
                        const QString& outDir, const QString& name, bool whileAsking = false)
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
        save(window, outDir, name + u"-asking"_s);
    waitUntil([&view] { return !view.isQueryingStatus(); }, 8000);
    // The focus stays on the button, as after pressing it with the keyboard.
    if (auto* page = window->findChild<PrinterEditorPage*>())
        page->statusButton()->setFocus(Qt::TabFocusReason);
    save(window, outDir, name);
    settings.updatePrinter(0, [port](Printer& p) { p.port = port; });
}

// The status line green and red, and the template text with the focus, in the
// application's palette as the window opens with it; `suffix` names the palette.
void renderStatusAndFocusShots(AppSettings& settings, const QString& outDir, const QString& suffix)
{
    auto* window = new SettingsWindow(settings);
    window->show();
    window->activateWindow();
    settle(300);
    SettingsView& view = *window->view();
    view.select(Kind::printer, settings.printers().at(0).id);
    view.testPrinterConnection(0);
    waitUntil([&view] { return !view.isPrinterTesting(); });
    shootPrinterStatus(window, settings, VirtualPrinter::State::ready, outDir,
                       u"settings-printer-status-ready"_s + suffix);
    shootPrinterStatus(window, settings, VirtualPrinter::State::paperOut, outDir,
                       u"settings-printer-status-paper-out"_s + suffix);
    if (suffix.isEmpty())
        shootPrinterStatus(window, settings, VirtualPrinter::State::headOpen, outDir,
                           u"settings-printer-status-silent"_s, true);

    window->resize(SettingsWindow::kMaximumSize);
    view.select(Kind::labelTemplate, settings.templates().at(0).id);
    settle();
    if (auto* page = window->findChild<TemplateEditorPage*>())
        page->zplEditor()->setFocus(Qt::TabFocusReason);
    save(window, outDir, u"settings-template-focus"_s + suffix);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void renderSettingsShots(const QString& outDir)
{
    QDir().mkpath(outDir);
    ScratchHome home;
    LoopbackPrinter printer;
    auto settings = std::make_unique<AppSettings>();
    fillStore(*settings, printer.port());

    auto* window = new SettingsWindow(*settings);
    window->show();
    settle(300);
    SettingsView& view = *window->view();
    const auto select = [&view](Kind kind, const QUuid& id) {
        view.select(kind, id);
    };

    // Dossier page (opens on the first dossier).
    save(window, outDir, u"settings-dossier"_s);

    // A save that failed: a directory stands where the settings file goes.
    const QString settingsFile = settings->settingsFilePath();
    QFile::remove(settingsFile);
    QDir().mkdir(settingsFile);
    settings->setBookyear(settings->bookyear());
    settings->savePendingChanges();
    save(window, outDir, u"settings-save-failed"_s);
    QDir().rmdir(settingsFile);
    settings->setBookyear(settings->bookyear());
    settings->savePendingChanges();

    // Printer page after a successful connection test.
    select(Kind::printer, settings->printers().at(0).id);
    view.testPrinterConnection(0);
    waitUntil([&view] { return !view.isPrinterTesting(); });
    save(window, outDir, u"settings-printer"_s);

    // A printer without address: "Test Verbinding" is off.
    select(Kind::printer, settings->printers().at(1).id);
    save(window, outDir, u"settings-printer-no-address"_s);

    // Template page, at the tallest the window gets: bound, a test print
    // sent, a placeholder just copied.
    const QSize normalSize = window->size();
    window->resize(SettingsWindow::kMaximumSize);
    select(Kind::labelTemplate, settings->templates().at(0).id);
    view.testPrintTemplate(0);
    waitUntil([&view] { return !view.isTemplateTesting(); });
    view.copyPlaceholder(u"{{PRIJS}}"_s);
    save(window, outDir, u"settings-template"_s);
    scrollToBottom(window);
    save(window, outDir, u"settings-template-preview"_s);

    // The preview while typing: an accent without ^CI28 gives a warning. The
    // picture has the keyboard focus.
    auto* editor = window->findChild<QPlainTextEdit*>();
    editor->moveCursor(QTextCursor::End);
    editor->moveCursor(QTextCursor::StartOfBlock); // before ^XZ
    editor->insertPlainText(u"^FO330,92^A0N,22,22^FDCrème^FS\n"_s);
    settle(int(TemplateEditorPage::kPreviewDelay.count()) + 150);
    window->findChild<LabelPictureButton*>()->setFocus(Qt::TabFocusReason);
    scrollToBottom(window);
    save(window, outDir, u"settings-template-preview-warning"_s);
    // A click on the picture opens it at 100 %.
    auto* preview = window->findChild<LabelPreviewView*>();
    preview->picture()->click();
    save(preview->fullSizeWindow(), outDir, u"settings-template-preview-full-size"_s);
    preview->fullSizeWindow()->close();
    editor->undo();

    // Template without printer and with an incomplete label: hint and messages.
    select(Kind::labelTemplate, settings->templates().at(1).id);
    save(window, outDir, u"settings-template-invalid"_s);
    scrollToBottom(window);
    save(window, outDir, u"settings-template-invalid-bottom"_s);
    window->resize(normalSize);

    // No printers at all: the template page offers to add one.
    const QList<Printer> printers = settings->printers();
    settings->setPrinters({});
    save(window, outDir, u"settings-template-no-printers"_s);

    // Empty states: a key that names nothing, with records and without.
    view.setSelectedTab(u"printer-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    save(window, outDir, u"settings-empty-printers"_s);
    settings->setPrinters(printers);
    save(window, outDir, u"settings-select-printer"_s);
    view.setSelectedTab(u"template-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    save(window, outDir, u"settings-select-template"_s);
    view.setSelectedTab(u"dossier-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    save(window, outDir, u"settings-select-dossier"_s);

    // "Over" with the Printers group closed.
    view.setSelectedTab(SettingsTabKey::about());
    view.setExpanded(Kind::printer, false);
    save(window, outDir, u"settings-over"_s);
    view.setExpanded(Kind::printer, true);

    // No dossiers, nothing selected.
    settings->setDossiers({});
    view.setSelectedTab(QString());
    save(window, outDir, u"settings-nothing-selected"_s);
    view.setSelectedTab(u"dossier-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    save(window, outDir, u"settings-empty-dossiers"_s);
    settings->setTemplates({});
    view.setSelectedTab(u"template-"_s + SettingsTabKey::uuidText(QUuid::createUuid()));
    save(window, outDir, u"settings-empty-templates"_s);

    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // The status line and the focused template text, light and dark, from a
    // store filled afresh (the empty states above left no template).
    settings->addTemplate();
    fillStore(*settings, printer.port());
    renderStatusAndFocusShots(*settings, outDir, QString());
    const QPalette light = QApplication::palette();
    QApplication::setPalette(MainWindowShots::darkPalette());
    renderStatusAndFocusShots(*settings, outDir, u"-dark"_s);
    QApplication::setPalette(light);

    auto* about = new AboutWindow;
    about->show();
    save(about, outDir, u"about"_s);
    about->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
