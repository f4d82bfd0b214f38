#include "app/MainWindow.h"

#include "views/main/ContentView.h"

#include <QMenuBar>

#ifdef Q_OS_MACOS
#include "app/MacTitleBar.h"
#endif

using namespace Qt::StringLiterals;

MainWindow::MainWindow(AppSettings& settings, ProductListViewModel& viewModel, QWidget* parent)
    : QMainWindow(parent), m_contentView(new ContentView(settings, viewModel, this)),
      m_menus{menuBar()->addMenu(u"File"_s), menuBar()->addMenu(u"View"_s),
              menuBar()->addMenu(u"Settings"_s), menuBar()->addMenu(u"Help"_s)}
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Stampix"_s);
    setCentralWidget(m_contentView);
    m_contentView->setTitleBarVisible(usesCustomTitleBar());
    resize(kInitialSize);
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
