#include "views/main/SpacebarHandler.h"

#include <QCoreApplication>
#include <QKeyEvent>

SpacebarHandler::SpacebarHandler(std::function<void()> onSpacebar, QObject* parent)
    : QObject(parent), m_onSpacebar(std::move(onSpacebar))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool SpacebarHandler::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Space)
        return QObject::eventFilter(watched, event);

    // Accepted and filtered: no shortcut fires, no widget sees the key, no blank is typed.
    key->accept();
    if (type == QEvent::KeyPress && m_onSpacebar)
        m_onSpacebar();
    return true;
}
