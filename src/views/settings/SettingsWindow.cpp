#include "views/settings/SettingsWindow.h"

#include "model/AppSettings.h"
#include "views/settings/SettingsView.h"

#include <QResizeEvent>
#include <QScreen>
#include <QStyle>
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

    // The stored size is the content's, so the window system's frame around
    // it does not make the window grow from one opening to the next.
    QSize size = sizeHint().expandedTo(kMinimumSize).boundedTo(kMaximumSize);
    if (settings.settingsWindowWidth() > 0 && settings.settingsWindowHeight() > 0)
        size =
            QSize(qRound(settings.settingsWindowWidth()), qRound(settings.settingsWindowHeight()))
                .expandedTo(kMinimumSize)
                .boundedTo(kMaximumSize);
    if (const QScreen* target = screen())
        setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size,
                                        target->availableGeometry()));
    else
        resize(size);
}

void SettingsWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // Only the user's resizing comes from the window system; the window's
    // own set-up does not count.
    if (!event->spontaneous() || !isVisible() || event->size() == event->oldSize())
        return;
    m_settings.setSettingsWindowWidth(event->size().width());
    m_settings.setSettingsWindowHeight(event->size().height());
}
