#pragma once

#include <QMainWindow>
#include <array>

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
    QMenu* menu(Menu menu) const { return m_menus.at(size_t(menu)); }

    // macOS hides the system title bar and draws its own; elsewhere hiding it
    // would take the window's move, resize and close controls with it.
    static bool usesCustomTitleBar();

protected:
    void showEvent(QShowEvent* event) override;

private:
    ContentView* m_contentView;
    std::array<QMenu*, 4> m_menus; // in the order of Menu
    bool m_titleBarPrepared = false;
};
