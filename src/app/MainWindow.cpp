#include "app/MainWindow.h"

#include "views/main/ContentView.h"

#include <QMenuBar>

#ifdef Q_OS_MACOS
#include "app/MacTitleBar.h"
#endif

using namespace Qt::StringLiterals;

MainWindow::MainWindow(AppSettings& settings, ProductListViewModel& viewModel, QWidget* parent)
    : QMainWindow(parent), m_contentView(new ContentView(settings, viewModel, this)),
      m_fileMenu(menuBar()->addMenu(u"File"_s)), m_viewMenu(menuBar()->addMenu(u"View"_s)),
      m_settingsMenu(menuBar()->addMenu(u"Settings"_s)), m_helpMenu(menuBar()->addMenu(u"Help"_s))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Stampix"_s);
    setCentralWidget(m_contentView);
    m_contentView->setTitleBarVisible(usesCustomTitleBar());
    resize(kInitialSize);
}

QMenu* MainWindow::menu(Menu menu) const
{
    switch (menu) {
    case Menu::File:
        return m_fileMenu;
    case Menu::View:
        return m_viewMenu;
    case Menu::Settings:
        return m_settingsMenu;
    case Menu::Help:
        return m_helpMenu;
    }
    return nullptr;
}

bool MainWindow::usesCustomTitleBar()
{
#ifdef Q_OS_MACOS
    return true;
#else
    return false;
#endif
}

void MainWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (m_titleBarPrepared)
        return;
    m_titleBarPrepared = true;
#ifdef Q_OS_MACOS
    hideSystemTitleBar(this);
#endif
}
