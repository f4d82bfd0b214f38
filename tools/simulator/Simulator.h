#pragma once

#include "SimulatedProductService.h"
#include "SimulatorOptions.h"
#include "VirtualPrinter.h"

#include <QList>
#include <QObject>
#include <QString>

// The product service and the virtual printers of one simulator run, and the
// one-line-per-event log of what they do.
class Simulator : public QObject
{
    Q_OBJECT

public:
    static constexpr QStringView kReadyLine = u"Ready.";

    explicit Simulator(const SimulatorOptions& options, QObject* parent = nullptr);

    // Listens on every port, then writes the demo settings if asked. False with
    // the reason in `error` when anything could not be started.
    bool start(QString* error);

signals:
    // One line of the log, already time-stamped.
    void message(const QString& line);

private:
    bool startPrinters(QString* error);
    void log(const QString& text);
    void announce();

    SimulatorOptions m_options;
    SimulatedProductService m_service;
    QList<VirtualPrinter*> m_printers;
};
