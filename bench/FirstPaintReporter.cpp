#include "FirstPaintReporter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>

FirstPaintReporter::FirstPaintReporter(std::function<bool(QWidget*)> isAwaited, QObject* parent)
    : QObject(parent), m_isAwaited(std::move(isAwaited))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FirstPaintReporter::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_reported && event->type() == QEvent::Paint && watched->isWidgetType() &&
        m_isAwaited(static_cast<QWidget*>(watched))) {
        m_reported = true;
        QTimer::singleShot(0, this, &FirstPaintReporter::report);
    }
    return false;
}

void FirstPaintReporter::report()
{
    std::fputs(kMarker, stdout);
    std::fflush(stdout);
    QCoreApplication::exit(0);
}
