#include "ModalDialogProbe.h"
#include "ProductWindowFixture.h"
#include "app/AppcastReader.h"
#include "app/StampixApp.h"
#include "app/UpdaterViewModel.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/AppInfo.h"
#include "views/main/ContentView.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QNetworkReply>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;
using State = ContentView::ContentState;
using Menu = MainWindow::Menu;
using Mode = LoopbackHttpServer::Response::Mode;
using namespace std::chrono_literals;

namespace {

QByteArray feed(const QByteArray& items)
{
    return R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel>)" +
           items + "</channel></rss>";
}

QByteArray item(const QByteArray& build, const QByteArray& shortVersion = {}, QByteArray url = {})
{
    if (url.isEmpty())
        url = "https://s.example/" + build + ".zip";
    return "<item><sparkle:version>" + build + "</sparkle:version><sparkle:shortVersionString>" +
           shortVersion + "</sparkle:shortVersionString><enclosure url=\"" + url + "\"/></item>";
}

// The visible windows that show an update check waiting for its feed.
QList<QWidget*> checkingWindows()
{
    QList<QWidget*> windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget* window) {
        return !window->isVisible() || window->accessibleName() != u"Controleren op updates…"_s;
    });
    return windows;
}

} // namespace

class StampixAppTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void menusAndFileDialogs();
    void printSelectedLabelPrintsExactlyOneLabel();
    void shortcutsWorkFromTheSettingsWindow();
    void labelPreviewIsPerWindow();
    void singleInstanceWindowsComeForward();
    void readsTheNewestUsableItem_data();
    void readsTheNewestUsableItem();
    void checksForUpdates_data();
    void checksForUpdates();

private:
    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<StampixApp> m_app;
};

void StampixAppTest::init()
{
    m_app.reset();
    m_fixture = std::make_unique<Fixture>();
    m_app = std::make_unique<StampixApp>(m_fixture->server().baseUrl());
}

void StampixAppTest::menusAndFileDialogs()
{
    QCOMPARE(AppInfo::versionOrFallback(u"1.4.2"), u"1.4.2"_s);
    QCOMPARE(AppInfo::versionOrFallback(u" "), u"1.0"_s);
    m_app->openMainWindow();
    MainWindow* second = m_app->openMainWindow();
    const QList<QPair<Menu, QStringList>> menus{
        {Menu::File,
         {u"New Window"_s, u"Import Settings..."_s, u"Export Settings..."_s, u"--"_s, u"Quit"_s}},
        {Menu::View,
         {u"Refresh Products"_s, u"--"_s, u"Print Selected Label"_s, u"--"_s, u"Label Preview"_s}},
        {Menu::Settings, {u"Settings..."_s, u"--"_s, u"Check for Updates..."_s}},
        {Menu::Help, {u"About Stampix (v%1)"_s.arg(QStringLiteral(STAMPIX_PROJECT_VERSION))}}};
    for (const auto& [menu, expected] : menus) {
        QStringList texts;
        for (const QAction* action : second->menu(menu)->actions())
            texts.append(action->isSeparator() ? u"--"_s : action->text());
        QCOMPARE(texts, expected);
    }

    const QList<std::pair<QAction*, QStringList>> commands{
        {m_app->exportSettingsAction(),
         {u"Exporteer Instellingen"_s, u"Kies een locatie om de instellingen op te slaan"_s,
          u"JSON (*.json)"_s, u"Annuleren"_s, u"stampix-settings.json"_s}},
        {m_app->importSettingsAction(),
         {u"Importeer Instellingen"_s, u"Selecteer een settings.json bestand om te importeren"_s,
          u"JSON (*.json)"_s, u"Annuleren"_s}}};
    for (const auto& [command, expected] : commands) {
        QStringList shown;
        // Offscreen there is no platform dialog: Qt's own, in Dutch, is shown under the message.
        whenShown<QDialog>([&](QDialog* window) {
            auto* dialog = window->findChild<QFileDialog*>();
            auto* message = window->findChild<QLabel*>(u"messageLabel"_s);
            QVERIFY(dialog && message);
            auto* list = dialog->findChild<QListView*>(u"listView"_s);
            auto* buttons = dialog->findChild<QDialogButtonBox*>();
            if (message->isVisible() && message->y() < list->mapTo(window, QPoint()).y())
                shown << window->windowTitle() << message->text() << dialog->nameFilters()
                      << buttons->button(QDialogButtonBox::Cancel)->text();
            if (dialog->acceptMode() == QFileDialog::AcceptSave)
                shown << QFileInfo(dialog->selectedFiles().value(0)).fileName();
        });
        command->trigger();
        QCOMPARE(shown, expected);
    }
}

void StampixAppTest::printSelectedLabelPrintsExactlyOneLabel()
{
    const QList<Product> products{Fixture::product(1, u"B-2"_s, u"Beitel"_s),
                                  Fixture::product(2, u"A-1"_s, u"Hamer"_s)};
    m_fixture->serveProducts(products);
    MainWindow* window = m_app->openMainWindow();
    m_fixture->configure(*m_app->settings());
    QTRY_COMPARE_WITH_TIMEOUT(window->contentView()->contentState(), State::ProductList, 5000);
    ProductListViewModel* model = m_app->productListViewModel();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    model->setPrintQuantity(5);
    model->toggleChecked(products.at(0));
    model->toggleChecked(products.at(1));
    model->setSelectedProductID(1);
    QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
    QTRY_COMPARE(model->successMessage(), std::optional(u"Etiket geprint voor B-2"_s));
    QTest::qWait(200);
    QCOMPARE(m_fixture->sink().jobs(), QList<QByteArray>{Fixture::expectedLabel(products.at(0))});
}

void StampixAppTest::shortcutsWorkFromTheSettingsWindow()
{
    MainWindow* main = m_app->openMainWindow();
    m_app->openSettingsWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_app->settingsWindow()));
    m_fixture->configure(*m_app->settings());
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 1, 5000);
    QTest::keyClick(m_app->settingsWindow(), Qt::Key_R, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 2, 5000);
    main->close();
    QTest::keyClick(m_app->settingsWindow(), Qt::Key_R, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(m_fixture->productRequestCount(), 3, 5000);
}

void StampixAppTest::labelPreviewIsPerWindow()
{
    MainWindow* first = m_app->openMainWindow();
    MainWindow* second = m_app->openMainWindow();
    QAction* command = m_app->labelPreviewAction();
    const auto shown = [&] {
        return QList<bool>{first->contentView()->isLabelPreviewShown(),
                           second->contentView()->isLabelPreviewShown(), command->isChecked()};
    };
    QVERIFY(QTest::qWaitForWindowActive(second));
    QCOMPARE(shown(), (QList<bool>{false, false, false}));
    QTest::keyClick(second, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(shown(), (QList<bool>{false, true, true}));

    // The check mark follows the active window; the shortcut works on it.
    first->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(first));
    QCOMPARE(shown(), (QList<bool>{false, true, false}));
    QTest::keyClick(first, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(shown(), (QList<bool>{true, true, true}));
}

void StampixAppTest::singleInstanceWindowsComeForward()
{
    m_app->openMainWindow();
    for (QAction* open : {m_app->settingsAction(), m_app->aboutAction()}) {
        const auto window = [&]() -> QWidget* {
            return open == m_app->aboutAction() ? static_cast<QWidget*>(m_app->aboutWindow())
                                                : m_app->settingsWindow();
        };
        open->trigger();
        QPointer<QWidget> first = window();
        QVERIFY(first && first->isVisible());
        first->setWindowState(Qt::WindowMinimized);
        open->trigger();
        QCOMPARE(window(), first.data());
        QVERIFY(!first->isMinimized() && first->isVisible());
    }
}

void StampixAppTest::readsTheNewestUsableItem_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::addColumn<QString>("expected");
    QTest::newRow("newest by number, versions on the enclosure")
        << feed(
               item("9", "1.9") +
               R"(<item><enclosure url="https://s.example/a.zip" sparkle:version="10" sparkle:shortVersionString="1.10"/></item>)")
        << u"10 1.10 https://s.example/a.zip"_s;
    // Downloads come over https; plain http only from this machine.
    QTest::newRow("web downloads only, https link behind a plain enclosure")
        << feed(
               R"(<item><sparkle:version>8</sparkle:version><enclosure url="file:///etc/passwd"/></item>
                   <item><sparkle:version>7</sparkle:version><enclosure url="http://s.example/7.zip"/><link>https://s.example/7</link></item>)")
        << u"7 7 https://s.example/7"_s;
    QTest::newRow("no items") << feed({}) << u"De updatefeed noemt geen enkele versie."_s;
    QTest::newRow("only plain http") << feed(item("9", {}, "http://s.example/9.zip") +
                                             item("8", {}, "HTTP://localhost.s.example/"))
                                     << u"De updatefeed biedt geen enkele versie via https aan."_s;
    QTest::newRow("loopback") << feed(item("9", {}, "http://[::1]:8080/9.zip"))
                              << u"9 9 http://[::1]:8080/9.zip"_s;
}

void StampixAppTest::readsTheNewestUsableItem()
{
    QFETCH(QByteArray, feed);
    QFETCH(QString, expected);
    const auto newest = AppcastReader::newestItem(feed);
    const AppcastItem item = newest ? newest.value() : AppcastItem();
    const QString read =
        newest ? u"%1 %2 %3"_s.arg(item.version, item.displayVersion(), item.downloadURL.toString())
               : newest.error();
    QVERIFY2(read.startsWith(expected), qPrintable(read));
}

void StampixAppTest::checksForUpdates_data()
{
    QTest::addColumn<int>("mode"); // -1: no feed configured
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("shown"); // empty: the user cancels the wait, nothing shows
    const QByteArray build3 = feed(item("3", "1.5.0"));
    const QString failed = u"Controleren op updates mislukt Kon niet controleren op updates: "_s;
    QTest::newRow("newer build") << 0 << build3
                                 << u"Stampix 1.5.0 is beschikbaar; je gebruikt versie 1.4.2."_s;
    QTest::newRow("same build") << 0 << feed(item("2", "1.4.2"))
                                << u"Stampix is bijgewerkt Je gebruikt versie 1.4.2,"_s;
    QTest::newRow("trickling") << int(Mode::trickle) << build3
                               << failed + u"De server van de updatefeed reageerde niet op tijd."_s;
    QTest::newRow("too big") << int(Mode::stream) << QByteArray()
                             << failed + u"De updatefeed is te groot."_s;
    QTest::newRow("no feed") << -1 << QByteArray() << u"Updates niet beschikbaar"_s;
    QTest::newRow("Annuleren") << int(Mode::neverAnswer) << QByteArray() << QString();
}

void StampixAppTest::checksForUpdates()
{
    QFETCH(int, mode);
    QFETCH(QByteArray, body);
    QFETCH(QString, shown);
    LoopbackHttpServer& server = m_fixture->server();
    // Answered after a while, so the window that shows the wait can be looked at.
    const LoopbackHttpServer::Response response{
        200, {}, body, 300ms, Mode(std::max(mode, 0)), 20ms, -1, 6 * 1024 * 1024};
    server.setHandler([&](const LoopbackHttpServer::Request&) { return response; });
    UpdaterViewModel updater(
        {mode < 0 ? QUrl() : QUrl(server.baseUrl()), u"2"_s, u"1.4.2"_s, 1500ms, false, {}});
    const QSignalSpy finished(&updater, &UpdaterViewModel::checkFinished);
    QString text;
    const auto recordMessage = [&text] {
        whenShown<QMessageBox>([&text](QMessageBox* box) {
            text = box->text() + u' ' + box->informativeText();
            QVERIFY(checkingWindows().isEmpty());
        });
    };
    if (mode < 0)
        recordMessage();
    updater.checkForUpdates();
    if (mode >= 0) {
        const QList<QWidget*> windows = checkingWindows();
        QCOMPARE(windows.size(), 1);
        auto* window = qobject_cast<QProgressDialog*>(windows.first());
        QVERIFY(window && !window->isModal());
        QCOMPARE(window->labelText(), u"Controleren op updates…"_s);
        auto* cancel = window->findChild<QPushButton*>();
        QCOMPARE(cancel->text(), u"Annuleren"_s);
        // A second command brings the same window forward.
        window->setWindowState(Qt::WindowMinimized);
        updater.checkForUpdates();
        QCOMPARE(checkingWindows(), windows);
        QVERIFY(!window->isMinimized());
        QTRY_COMPARE(server.requests().size(), 1);
        recordMessage();
        if (shown.isEmpty()) {
            QTest::mouseClick(cancel, Qt::LeftButton);
            QVERIFY(!updater.isChecking());
            QVERIFY(checkingWindows().isEmpty());
            // The request goes at once, and its time-out shows nothing later.
            QTRY_VERIFY_WITH_TIMEOUT(updater.findChildren<QNetworkReply*>().isEmpty(), 500);
            QTest::qWait(2000);
        }
    }
    QTRY_VERIFY_WITH_TIMEOUT(!updater.isChecking(), 5000);
    QVERIFY2(shown.isEmpty() ? text.isEmpty() : text.contains(shown), qPrintable(text));
    QVERIFY(checkingWindows().isEmpty());
    QCOMPARE(finished.count(), 1);
}

QTEST_MAIN(StampixAppTest)
#include "tst_StampixApp.moc"
