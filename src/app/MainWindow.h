#pragma once

#include <QMainWindow>

class AppSettings;
class ContentView;
class ProductListViewModel;
class QMenu;

// One product window: ContentView with the program's menus. Every main window
// shows the same store and view model.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class Menu
    {
        File,
        View,
        Settings,
        Help
    };

    static constexpr QSize kInitialSize{1000, 640};

    MainWindow(AppSettings& settings, ProductListViewModel& viewModel, QWidget* parent = nullptr);

    ContentView* contentView() const { return m_contentView; }
    QMenu* menu(Menu menu) const;

    // macOS hides the system title bar and draws its own; elsewhere hiding it
    // would take the window's move, resize and close controls with it.
    static bool usesCustomTitleBar();

protected:
    void showEvent(QShowEvent* event) override;

private:
    ContentView* m_contentView;
    QMenu* m_fileMenu;
    QMenu* m_viewMenu;
    QMenu* m_settingsMenu;
    QMenu* m_helpMenu;
    bool m_titleBarPrepared = false;
};
