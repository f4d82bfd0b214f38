#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

// Runs `inspect` on the modal dialog of type T once it is on screen; a bounded
// number of polls keeps a missing dialog from hanging the test.
template <typename T> void whenShown(const std::function<void(T*)>& inspect, int pollsLeft = 200)
{
    QTimer::singleShot(10, qApp, [inspect, pollsLeft] {
        if (auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget())) {
            inspect(dialog);
            // A failed check returns early; never leave the dialog blocking the run.
            if (dialog->isVisible())
                static_cast<QDialog*>(dialog)->reject();
            return;
        }
        if (pollsLeft > 0)
            whenShown(inspect, pollsLeft - 1);
    });
}
