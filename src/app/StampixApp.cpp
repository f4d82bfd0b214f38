#include "StampixApp.h"

#include "AboutWindow.h"
#include "AppInfo.h"
#include "ContentView.h"
#include "NativeSettingsFileDialogs.h"
#include "views/settings/SettingsWindow.h"
#include "UpdaterViewModel.h"
#include "model/AppSettings.h"
#include "model/SettingsFileHelper.h"
#include "viewmodels/ProductListViewModel.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint kCascadeOffset{24, 24};

QAction* separatorAction(QObject* parent)
{
    auto* separator = new QAction(parent);
    separator->setSeparator(true);
    return separator;
}

} // namespace

StampixApp::StampixApp(QObject* parent) : QObject(parent)
{
    createActions();
    connect(qApp, &QCoreApplication::aboutToQuit, this, &StampixApp::saveBeforeQuit);
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
    if (!m_windows.isEmpty() && m_windows.last())
        window->move(m_windows.last()->pos() + kCascadeOffset);
    m_windows.append(window);
    emit mainWindowOpened(window);
    window->show();
    return window;
}

QList<MainWindow*> StampixApp::mainWindows() const
{
    QList<MainWindow*> windows;
    for (const QPointer<MainWindow>& window : m_windows) {
        if (window)
            windows.append(window);
    }
    return windows;
}

void StampixApp::addMenuAction(Menu menu, QAction* action)
{
    m_addedActions[menu].append(action);
    for (MainWindow* window : mainWindows())
        placeAction(window, menu, action);
}

void StampixApp::addMenuSeparator(Menu menu)
{
    addMenuAction(menu, separatorAction(this));
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

void StampixApp::createActions()
{
    m_newWindow = new QAction(u"New Window"_s, this);
    m_newWindow->setShortcut(QKeySequence::New);
    connect(m_newWindow, &QAction::triggered, this, &StampixApp::openMainWindow);

    m_quit = new QAction(u"Quit"_s, this);
    m_quit->setShortcut(QKeySequence::Quit);
    m_quit->setMenuRole(QAction::QuitRole);
    connect(m_quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);

    m_refreshProducts = new QAction(u"Refresh Products"_s, this);
    m_refreshProducts->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    connect(m_refreshProducts, &QAction::triggered, this, &StampixApp::refreshProducts);

    m_printSelectedLabel = new QAction(u"Print Selected Label"_s, this);
    m_printSelectedLabel->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    m_printSelectedLabel->setEnabled(false);
    connect(m_printSelectedLabel, &QAction::triggered, this, &StampixApp::printSelectedLabel);

    m_quitSeparator = separatorAction(this);
    m_printSeparator = separatorAction(this);
    createWindowActions();
}

void StampixApp::createWindowActions()
{
    m_importSettings = new QAction(u"Import Settings..."_s, this);
    m_importSettings->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_I));
    connect(m_importSettings, &QAction::triggered, this, &StampixApp::importSettings);
    m_exportSettings = new QAction(u"Export Settings..."_s, this);
    m_exportSettings->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    connect(m_exportSettings, &QAction::triggered, this, &StampixApp::exportSettings);
    addMenuAction(Menu::File, m_importSettings);
    addMenuAction(Menu::File, m_exportSettings);

    // Menu roles move these into the application menu on macOS.
    m_openSettings = new QAction(u"Settings..."_s, this);
    m_openSettings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    m_openSettings->setMenuRole(QAction::PreferencesRole);
    connect(m_openSettings, &QAction::triggered, this, &StampixApp::openSettingsWindow);
    m_checkForUpdates = new QAction(u"Check for Updates..."_s, this);
    m_checkForUpdates->setMenuRole(QAction::ApplicationSpecificRole);
    connect(m_checkForUpdates, &QAction::triggered, this, &StampixApp::checkForUpdates);
    addMenuAction(Menu::Settings, m_openSettings);
    addMenuSeparator(Menu::Settings);
    addMenuAction(Menu::Settings, m_checkForUpdates);

    m_about = new QAction(u"About Stampix (v"_s + AppInfo::version() + u")"_s, this);
    m_about->setMenuRole(QAction::AboutRole);
    connect(m_about, &QAction::triggered, this, &StampixApp::openAboutWindow);
    addMenuAction(Menu::Help, m_about);
}

void StampixApp::openSettingsWindow()
{
    createSharedObjects();
    if (!m_settingsWindow)
        m_settingsWindow = new SettingsWindow(*m_settings);
    m_settingsWindow->show();
    m_settingsWindow->raise();
    m_settingsWindow->activateWindow();
}

void StampixApp::openAboutWindow()
{
    if (!m_aboutWindow)
        m_aboutWindow = new AboutWindow();
    m_aboutWindow->show();
    m_aboutWindow->raise();
    m_aboutWindow->activateWindow();
}

void StampixApp::importSettings()
{
    createSharedObjects();
    NativeSettingsFileDialogs dialogs(QApplication::activeWindow());
    SettingsFileHelper::importSettings(*m_settings, dialogs);
}

void StampixApp::exportSettings()
{
    createSharedObjects();
    NativeSettingsFileDialogs dialogs(QApplication::activeWindow());
    SettingsFileHelper::exportSettings(*m_settings, dialogs);
}

void StampixApp::checkForUpdates()
{
    createSharedObjects();
    m_updaterViewModel->checkForUpdates();
}

void StampixApp::populateMenus(MainWindow* window) const
{
    QMenu* file = window->menu(Menu::File);
    file->addAction(m_newWindow);
    file->addAction(m_quitSeparator);
    file->addAction(m_quit);

    QMenu* view = window->menu(Menu::View);
    view->addAction(m_refreshProducts);
    view->addAction(m_printSeparator);
    view->addAction(m_printSelectedLabel);

    for (Menu menu : {Menu::File, Menu::View, Menu::Settings, Menu::Help}) {
        for (QAction* action : m_addedActions.value(menu))
            placeAction(window, menu, action);
        // An empty menu stays out of the menu bar until something is added to it.
        window->menu(menu)->menuAction()->setVisible(!window->menu(menu)->isEmpty());
    }
}

void StampixApp::placeAction(MainWindow* window, Menu menu, QAction* action) const
{
    QMenu* target = window->menu(menu);
    if (menu == Menu::File)
        target->insertAction(m_quitSeparator, action);
    else
        target->addAction(action);
    target->menuAction()->setVisible(true);
}

void StampixApp::updatePrintSelectedLabel()
{
    m_printSelectedLabel->setEnabled(m_productListViewModel &&
                                     m_productListViewModel->selectedProduct().has_value());
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
