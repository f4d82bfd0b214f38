#include "app/StampixApp.h"

#include "app/UpdaterViewModel.h"
#include "model/AppSettings.h"
#include "model/SettingsFileHelper.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/common/AppInfo.h"
#include "views/main/AboutWindow.h"
#include "views/main/ContentView.h"
#include "views/main/QtMessageFileDialogs.h"
#include "views/settings/SettingsWindow.h"

#include <QAction>
#include <QApplication>
#include <QLibraryInfo>
#include <QMenu>
#include <QWindow>

using namespace Qt::StringLiterals;

StampixApp::StampixApp(QObject* parent) : QObject(parent)
{
    // Qt's own texts (network errors, dialog buttons) in Dutch, as the rest of
    // the program speaks; without the file they stay English.
    if (m_qtTranslator.load(u"qtbase_nl"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtTranslator);
    createActions();
    connect(qApp, &QCoreApplication::aboutToQuit, this, &StampixApp::saveBeforeQuit);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &StampixApp::followActiveWindow);
}

StampixApp::StampixApp(const QString& productServiceURL, QObject* parent) : StampixApp(parent)
{
    m_productServiceURL = productServiceURL;
}

StampixApp::~StampixApp()
{
    // The windows' views refer to the store and the model; they go first.
    for (const QPointer<MainWindow>& window : std::as_const(m_windows))
        delete window.data();
    delete m_settingsWindow.data();
    delete m_aboutWindow.data();
}

MainWindow* StampixApp::openMainWindow()
{
    createSharedObjects();
    auto* window = new MainWindow(*m_settings, *m_productListViewModel);
    populateMenus(window);
    m_windows.removeAll(nullptr);
    if (!m_windows.isEmpty())
        window->move(m_windows.last()->pos() + QPoint(24, 24)); // cascaded
    m_windows.append(window);
    window->show();
    return window;
}

void StampixApp::createSharedObjects()
{
    // Once per run, the store first: the model reads its configuration from it.
    if (!m_settings)
        m_settings = std::make_unique<AppSettings>();
    if (!m_productListViewModel) {
        m_productListViewModel = m_productServiceURL
                                     ? std::make_unique<ProductListViewModel>(*m_productServiceURL)
                                     : std::make_unique<ProductListViewModel>();
        connect(m_productListViewModel.get(), &ProductListViewModel::selectedProductIDChanged, this,
                &StampixApp::updatePrintSelectedLabel);
        connect(m_productListViewModel.get(), &ProductListViewModel::productsChanged, this,
                &StampixApp::updatePrintSelectedLabel);
        updatePrintSelectedLabel();
    }
    if (!m_updaterViewModel)
        m_updaterViewModel = std::make_unique<UpdaterViewModel>();
}

QAction* StampixApp::addAction(const QString& text, const QKeySequence& shortcut,
                               void (StampixApp::*slot)())
{
    auto* action = new QAction(text, this);
    action->setShortcut(shortcut);
    // The commands answer from every window, the settings and About windows too.
    action->setShortcutContext(Qt::ApplicationShortcut);
    if (slot)
        connect(action, &QAction::triggered, this, slot);
    return action;
}

void StampixApp::createActions()
{
    m_newWindow = addAction(u"New Window"_s, QKeySequence::New, nullptr);
    connect(m_newWindow, &QAction::triggered, this, &StampixApp::openMainWindow);
    m_importSettings =
        addAction(u"Import Settings..."_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I),
                  &StampixApp::importSettings);
    m_exportSettings =
        addAction(u"Export Settings..."_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
                  &StampixApp::exportSettings);
    m_quit = addAction(u"Quit"_s, QKeySequence::Quit, nullptr);
    m_quit->setMenuRole(QAction::QuitRole);
    connect(m_quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);

    m_refreshProducts = addAction(u"Refresh Products"_s, QKeySequence(Qt::CTRL | Qt::Key_R),
                                  &StampixApp::refreshProducts);
    m_printSelectedLabel = addAction(u"Print Selected Label"_s, QKeySequence(Qt::CTRL | Qt::Key_P),
                                     &StampixApp::printSelectedLabel);
    m_printSelectedLabel->setEnabled(false);
    // Each window has its own panel, off at first and never stored; the
    // command works on the active product window.
    m_labelPreview = addAction(u"Label Preview"_s, QKeySequence(Qt::CTRL | Qt::Key_L), nullptr);
    m_labelPreview->setCheckable(true);
    connect(m_labelPreview, &QAction::triggered, this, &StampixApp::showLabelPreview);

    // Menu roles move these into the application menu on macOS.
    m_openSettings = addAction(u"Settings..."_s, QKeySequence(Qt::CTRL | Qt::Key_Comma),
                               &StampixApp::openSettingsWindow);
    m_openSettings->setMenuRole(QAction::PreferencesRole);
    m_checkForUpdates = addAction(u"Check for Updates..."_s, {}, &StampixApp::checkForUpdates);
    m_checkForUpdates->setMenuRole(QAction::ApplicationSpecificRole);
    m_about = addAction(u"About Stampix (v"_s + AppInfo::version() + u")"_s, {},
                        &StampixApp::openAboutWindow);
    m_about->setMenuRole(QAction::AboutRole);
}

void StampixApp::openSettingsWindow()
{
    createSharedObjects();
    if (!m_settingsWindow) {
        m_settingsWindow = new SettingsWindow(*m_settings);
        lendShortcuts(m_settingsWindow);
    }
    bringForward(m_settingsWindow);
}

void StampixApp::openAboutWindow()
{
    if (!m_aboutWindow) {
        m_aboutWindow = new AboutWindow();
        lendShortcuts(m_aboutWindow);
    }
    bringForward(m_aboutWindow);
}

void StampixApp::lendShortcuts(QWidget* window) const
{
    // An application shortcut only fires while a widget holding its action is
    // visible; these windows may stay open after every product window closed.
    window->addActions({m_newWindow, m_importSettings, m_exportSettings, m_quit, m_refreshProducts,
                        m_printSelectedLabel, m_openSettings});
}

void StampixApp::bringForward(QWidget* window)
{
    // show() and raise() leave a minimised window minimised.
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

void StampixApp::importSettings()
{
    createSharedObjects();
    QtMessageFileDialogs dialogs(QApplication::activeWindow());
    SettingsFileHelper::importSettings(*m_settings, dialogs);
}

void StampixApp::exportSettings()
{
    createSharedObjects();
    QtMessageFileDialogs dialogs(QApplication::activeWindow());
    SettingsFileHelper::exportSettings(*m_settings, dialogs);
}

void StampixApp::checkForUpdates()
{
    createSharedObjects();
    m_updaterViewModel->checkForUpdates();
}

void StampixApp::populateMenus(MainWindow* window) const
{
    const auto separator = [window] {
        auto* action = new QAction(window);
        action->setSeparator(true);
        return action;
    };
    window->menu(Menu::File)
        ->addActions({m_newWindow, m_importSettings, m_exportSettings, separator(), m_quit});
    window->menu(Menu::View)
        ->addActions(
            {m_refreshProducts, separator(), m_printSelectedLabel, separator(), m_labelPreview});
    window->menu(Menu::Settings)->addActions({m_openSettings, separator(), m_checkForUpdates});
    window->menu(Menu::Help)->addAction(m_about);
}

void StampixApp::updatePrintSelectedLabel()
{
    m_printSelectedLabel->setEnabled(m_productListViewModel &&
                                     m_productListViewModel->selectedProduct().has_value());
}

MainWindow* StampixApp::previewTarget()
{
    m_windows.removeAll(nullptr);
    if (!m_lastActiveWindow && !m_windows.isEmpty())
        return m_windows.last();
    return m_lastActiveWindow;
}

void StampixApp::followActiveWindow()
{
    for (const QPointer<MainWindow>& window : std::as_const(m_windows)) {
        if (window && window->isActiveWindow())
            m_lastActiveWindow = window;
    }
    const MainWindow* target = previewTarget();
    m_labelPreview->setChecked(target && target->contentView()->isLabelPreviewShown());
}

void StampixApp::showLabelPreview(bool shown)
{
    MainWindow* target = previewTarget();
    if (target)
        target->contentView()->setLabelPreviewShown(shown);
    m_labelPreview->setChecked(target && shown);
}

void StampixApp::refreshProducts()
{
    if (m_productListViewModel)
        m_productListViewModel->fetchProducts();
}

void StampixApp::printSelectedLabel()
{
    // The product selected at the moment of the command: one label, whatever
    // the quantity and the checks say.
    if (!m_productListViewModel)
        return;
    if (const std::optional<Product> product = m_productListViewModel->selectedProduct())
        m_productListViewModel->printLabel(*product);
}

void StampixApp::saveBeforeQuit()
{
    if (m_settings)
        m_settings->savePendingChanges();
}
