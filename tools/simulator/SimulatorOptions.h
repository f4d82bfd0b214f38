#pragma once

#include "ProductCatalogue.h"
#include "SimulatedProductService.h"
#include "VirtualPrinter.h"

#include <QString>
#include <QStringList>
#include <chrono>

// What the simulator serves and how; filled from the command line.
struct SimulatorOptions
{
    static constexpr quint16 kDefaultServicePort = 18480;
    static constexpr quint16 kDefaultPrinterPort = 19100;
    static constexpr int kMaxPrinters = 16;
    static constexpr qsizetype kMaxProducts = 1'000'000;

    quint16 servicePort = kDefaultServicePort;
    quint16 printerPort = kDefaultPrinterPort; // the first printer; the others follow
    int printerCount = 1;
    QString apiKey = QStringLiteral("stampix-demo-key");
    qsizetype productCount = ProductCatalogue::kDefaultSize;
    QString jobsDirectory = QStringLiteral("stampix-jobs");
    std::chrono::milliseconds delay{0};
    SimulatedProductService::Failure serviceFailure = SimulatedProductService::Failure::none;
    VirtualPrinter::Failure printerFailure = VirtualPrinter::Failure::none;
    VirtualPrinter::State printerState = VirtualPrinter::State::ready;
    QString demoHome; // empty: write no demo settings

    enum class Outcome
    {
        run,
        help,
        error
    };

    // Parses the arguments (the first is the program name). On `error`, `message`
    // says what is wrong; on `help`, it holds the usage text.
    static Outcome parse(const QStringList& arguments, SimulatorOptions* options, QString* message);
};
