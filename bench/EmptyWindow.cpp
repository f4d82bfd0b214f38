// The start-up baseline: a minimal Qt Widgets program that shows an empty
// window and reports once it has painted.

#include "FirstPaintReporter.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    FirstPaintReporter reporter([&window](QWidget* widget) { return widget == &window; });
    window.resize(1100, 700);
    window.show();
    return QApplication::exec();
}
