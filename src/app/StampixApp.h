#pragma once

#include "MainWindow.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

class AppSettings;
class ProductListViewModel;
class QAction;

// The composition root: owns the settings store and the product list model for
// the whole run, opens the main windows and provides the menu commands.
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
    QList<MainWindow*> mainWindows() const;

    // Null until the first window has been opened.
    AppSettings* settings() const { return m_settings.get(); }
    ProductListViewModel* productListViewModel() const { return m_productListViewModel.get(); }

    QAction* newWindowAction() const { return m_newWindow; }
    QAction* quitAction() const { return m_quit; }
    QAction* refreshProductsAction() const { return m_refreshProducts; }
    QAction* printSelectedLabelAction() const { return m_printSelectedLabel; }

    // Adds a command to the menu of every main window, open now or later. File
    // commands go after "New Window" and before "Quit"; others are appended.
    // The actions stay owned by the caller.
    void addMenuAction(Menu menu, QAction* action);
    void addMenuSeparator(Menu menu);

signals:
    void mainWindowOpened(MainWindow* window);

private:
    void createSharedObjects();
    void createActions();
    void populateMenus(MainWindow* window) const;
    void placeAction(MainWindow* window, Menu menu, QAction* action) const;
    void updatePrintSelectedLabel();
    void refreshProducts();
    void printSelectedLabel();
    void saveBeforeQuit();

    std::optional<QString> m_productServiceURL;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_productListViewModel;
    QList<QPointer<MainWindow>> m_windows;

    QAction* m_newWindow = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_refreshProducts = nullptr;
    QAction* m_printSelectedLabel = nullptr;
    // One separator per menu position, shared by all windows.
    QAction* m_quitSeparator = nullptr;
    QAction* m_printSeparator = nullptr;
    QMap<Menu, QList<QAction*>> m_addedActions;
};
