#include "SettingsWindow.h"

#include "SettingsView.h"
#include "model/AppSettings.h"

#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SettingsWindow::SettingsWindow(AppSettings& settings, QWidget* parent)
    : QWidget(parent, Qt::Window), m_settings(settings), m_view(new SettingsView(settings))
{
    setWindowTitle(u"Settings"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(kMinimumSize);
    setMaximumSize(kMaximumSize);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);

    const double width = settings.settingsWindowWidth();
    const double height = settings.settingsWindowHeight();
    if (width > 0 && height > 0) {
        m_storedFrame = QSize(qRound(width), qRound(height));
        // A first guess; the frame is known only once the window is shown.
        resize(*m_storedFrame);
    }
    centerOnScreen();
}

void SettingsWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_setupScheduled)
        return;
    m_setupScheduled = true;
    QTimer::singleShot(kSetupDelay, this, &SettingsWindow::restoreFrame);
}

void SettingsWindow::restoreFrame()
{
    // The stored size is the outer frame; restoring it as the frame (rather
    // than as the content) keeps a visible title bar from growing the window
    // a little at every opening.
    if (m_storedFrame) {
        const QSize decoration = frameGeometry().size() - size();
        resize(*m_storedFrame - decoration);
    }
    centerOnScreen();
}

void SettingsWindow::centerOnScreen()
{
    const QScreen* target = screen();
    if (!target)
        return;
    QRect frame = frameGeometry();
    frame.moveCenter(target->availableGeometry().center());
    move(frame.topLeft());
}

void SettingsWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QSize frame = frameGeometry().size();
    m_settings.setSettingsWindowWidth(frame.width());
    m_settings.setSettingsWindowHeight(frame.height());
}
