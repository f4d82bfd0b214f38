#include "Simulator.h"
#include "SimulatorOptions.h"

#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>

int main(int argc, char* argv[])
{
    // Drawing the job pictures needs fonts, so a GUI application, but no screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("stampix-simulator"));

    QTextStream out(stdout);
    QTextStream err(stderr);
    SimulatorOptions options;
    QString message;
    switch (SimulatorOptions::parse(QCoreApplication::arguments(), &options, &message)) {
    case SimulatorOptions::Outcome::help:
        out << message;
        return 0;
    case SimulatorOptions::Outcome::error:
        err << "stampix-simulator: " << message << "\n";
        return 2;
    case SimulatorOptions::Outcome::run:
        break;
    }

    Simulator simulator(options);
    // Flushed per line, so a log file shows each job as it arrives.
    QObject::connect(&simulator, &Simulator::message, &app,
                     [&out](const QString& line) { out << line << Qt::endl; });
    if (!simulator.start(&message)) {
        err << "stampix-simulator: " << message << Qt::endl;
        return 1;
    }
    return app.exec();
}
