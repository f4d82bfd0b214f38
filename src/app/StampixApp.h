#pragma once

#include "app/MainWindow.h"
#include "views/main/AboutWindow.h"
#include "views/settings/SettingsWindow.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTranslator>
#include <memory>
#include <optional>

class AppSettings;
class ProductListViewModel;
class QAction;
class UpdaterViewModel;

// The composition root: owns the settings store and the product list model for
// the whole run, opens the main windows and provides the menu commands. It also
// installs Qt's own Dutch texts (dialog buttons, network errors) for the run.
class StampixApp : public QObject
{
    Q_OBJECT

public:
    using Menu = MainWindow::Menu;

    explicit StampixApp(QObject* parent = nullptr);
    // For a product service at another address than the built-in one.
    explicit StampixApp(const QString& productServiceURL, QObject* parent = nullptr);
    ~StampixApp() override;

    // Creates the store and then the model the first time, then a new main window.
    MainWindow* openMainWindow();

    // Null until the first window has been opened.
    AppSettings* settings() const { return m_settings.get(); }
    ProductListViewModel* productListViewModel() const { return m_productListViewModel.get(); }
    // Single-instance windows: null while closed.
    SettingsWindow* settingsWindow() const { return m_settingsWindow; }
    AboutWindow* aboutWindow() const { return m_aboutWindow; }

    QAction* refreshProductsAction() const { return m_refreshProducts; }
    // Checkable: the label preview panel of the active product window.
    QAction* labelPreviewAction() const { return m_labelPreview; }
    QAction* importSettingsAction() const { return m_importSettings; }
    QAction* exportSettingsAction() const { return m_exportSettings; }
    QAction* settingsAction() const { return m_openSettings; }
    QAction* aboutAction() const { return m_about; }

    // Opens the window, or brings the open one to the front, restored.
    void openSettingsWindow();
    void openAboutWindow();

private:
    static void bringForward(QWidget* window);
    void lendShortcuts(QWidget* window) const;
    QAction* addAction(const QString& text, const QKeySequence& shortcut,
                       void (StampixApp::*slot)());
    void createSharedObjects();
    void createActions();
    void importSettings();
    void exportSettings();
    void checkForUpdates();
    void populateMenus(MainWindow* window) const;
    void updatePrintSelectedLabel();
    void refreshProducts();
    void printSelectedLabel();
    MainWindow* previewTarget();
    void followActiveWindow();
    void showLabelPreview(bool shown);
    void saveBeforeQuit();

    QTranslator m_qtTranslator;
    std::optional<QString> m_productServiceURL;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_productListViewModel;
    std::unique_ptr<UpdaterViewModel> m_updaterViewModel;
    QPointer<SettingsWindow> m_settingsWindow;
    QPointer<AboutWindow> m_aboutWindow;
    QList<QPointer<MainWindow>> m_windows;
    QPointer<MainWindow> m_lastActiveWindow;

    QAction* m_newWindow = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_refreshProducts = nullptr;
    QAction* m_printSelectedLabel = nullptr;
    QAction* m_labelPreview = nullptr;
    QAction* m_importSettings = nullptr;
    QAction* m_exportSettings = nullptr;
    QAction* m_openSettings = nullptr;
    QAction* m_checkForUpdates = nullptr;
    QAction* m_about = nullptr;
};
