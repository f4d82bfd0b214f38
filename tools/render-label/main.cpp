#include "RenderLabelCommand.h"

#include <QGuiApplication>
#include <cstdio>

int main(int argc, char* argv[])
{
    // Fonts need a GUI application, not a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("stampix-render-label"));
    QTextStream errors(stderr);
    return RenderLabelCommand::run(QGuiApplication::arguments(), errors);
}
