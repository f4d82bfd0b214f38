#include "SimulatorOptions.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

struct Parser
{
    const SimulatorOptions defaults;
    QCommandLineParser parser;
    QCommandLineOption servicePort{u"service-port"_s,
                                   u"Port of the product service (0: any free port)."_s, u"port"_s,
                                   QString::number(defaults.servicePort)};
    QCommandLineOption printerPort{u"printer-port"_s,
                                   u"Port of the first virtual printer; further printers use "
                                   u"the ports after it (0: any free ports)."_s,
                                   u"port"_s, QString::number(defaults.printerPort)};
    QCommandLineOption printers{u"printers"_s, u"Number of virtual printers."_s, u"count"_s,
                                QString::number(defaults.printerCount)};
    QCommandLineOption apiKey{u"api-key"_s, u"The API key the service accepts."_s, u"key"_s,
                              defaults.apiKey};
    QCommandLineOption products{u"products"_s,
                                u"Catalogue size, up to 1000000 (100000 for load tests)."_s,
                                u"count"_s, QString::number(defaults.productCount)};
    QCommandLineOption jobsDirectory{u"jobs-dir"_s,
                                     u"Folder for the printed jobs, one subfolder per printer."_s,
                                     u"dir"_s, defaults.jobsDirectory};
    QCommandLineOption delay{u"delay"_s, u"Delay of every service answer, in milliseconds."_s,
                             u"ms"_s, u"0"_s};
    QCommandLineOption serviceFailure{
        u"service-failure"_s,
        u"Make the service fail: %1."_s.arg(SimulatedProductService::failureNames().join(u", "_s)),
        u"mode"_s, u"none"_s};
    QCommandLineOption printerFailure{
        u"printer-failure"_s,
        u"Make the printers fail: %1."_s.arg(VirtualPrinter::failureNames().join(u", "_s)),
        u"mode"_s, u"none"_s};
    QCommandLineOption printerState{
        u"printer-state"_s,
        u"What the printers answer to a status query (head-open and ribbon-out stay "
        u"silent; every state takes jobs): %1."_s.arg(VirtualPrinter::stateNames().join(u", "_s)),
        u"state"_s, u"ready"_s};
    QCommandLineOption demoHome{u"demo-home"_s,
                                u"Before serving, write demo settings for these services to "
                                u"<dir>/.stampix/settings.json (never your own home)."_s,
                                u"dir"_s};

    Parser()
    {
        parser.setApplicationDescription(
            u"Loopback stand-ins for the Kalmora Online product service and for network "
            u"label printers, for trying Stampix without an account or a printer."_s);
        parser.addHelpOption();
        parser.addOptions({servicePort, printerPort, printers, apiKey, products, jobsDirectory,
                           delay, serviceFailure, printerFailure, printerState, demoHome});
    }
};

} // namespace

SimulatorOptions::Outcome SimulatorOptions::parse(const QStringList& arguments,
                                                  SimulatorOptions* options, QString* message)
{
    Parser p;
    if (!p.parser.parse(arguments)) {
        *message = p.parser.errorText();
        return Outcome::error;
    }
    if (p.parser.isSet(u"help"_s)) {
        *message = p.parser.helpText();
        return Outcome::help;
    }
    if (!p.parser.positionalArguments().isEmpty()) {
        *message = u"unexpected argument: %1"_s.arg(p.parser.positionalArguments().constFirst());
        return Outcome::error;
    }

    // The first value out of bounds is the one the message names.
    const auto number = [&](const QCommandLineOption& option, const char* unit, qint64 lowest,
                            qint64 highest) {
        bool ok = false;
        const qint64 value = p.parser.value(option).toLongLong(&ok);
        if ((!ok || value < lowest || value > highest) && message->isEmpty())
            *message = u"--%1 takes %2 from %3 to %4"_s
                           .arg(option.names().constFirst(), QString::fromLatin1(unit))
                           .arg(lowest)
                           .arg(highest);
        return value;
    };
    const auto oneOf = [&](const QCommandLineOption& option, bool known, const QStringList& names) {
        if (!known && message->isEmpty())
            *message =
                u"--%1 takes one of: %2"_s.arg(option.names().constFirst(), names.join(u", "_s));
    };
    message->clear();
    const qint64 servicePort = number(p.servicePort, "a port", 0, 65535);
    const qint64 printerPort = number(p.printerPort, "a port", 0, 65535);
    const qint64 printerCount = number(p.printers, "a count", 1, kMaxPrinters);
    if (message->isEmpty() && printerPort != 0 && printerPort + printerCount - 1 > 65535)
        *message = u"the printers' ports would pass 65535"_s;
    const qint64 products = number(p.products, "a count", 0, kMaxProducts);
    const qint64 delay = number(p.delay, "milliseconds", 0, 3'600'000);
    const auto serviceFailure =
        SimulatedProductService::failureFromName(p.parser.value(p.serviceFailure));
    oneOf(p.serviceFailure, serviceFailure.has_value(), SimulatedProductService::failureNames());
    const auto printerFailure = VirtualPrinter::failureFromName(p.parser.value(p.printerFailure));
    oneOf(p.printerFailure, printerFailure.has_value(), VirtualPrinter::failureNames());
    const auto printerState = VirtualPrinter::stateFromName(p.parser.value(p.printerState));
    oneOf(p.printerState, printerState.has_value(), VirtualPrinter::stateNames());
    const QString apiKey = p.parser.value(p.apiKey);
    if (apiKey.isEmpty() && message->isEmpty())
        *message = u"--api-key must not be empty"_s;
    if (p.parser.isSet(p.demoHome) && p.parser.value(p.demoHome).isEmpty() && message->isEmpty())
        *message = u"--demo-home needs a folder"_s;
    if (!message->isEmpty())
        return Outcome::error;

    options->servicePort = quint16(servicePort);
    options->printerPort = quint16(printerPort);
    options->printerCount = int(printerCount);
    options->apiKey = apiKey;
    options->productCount = products;
    options->jobsDirectory = p.parser.value(p.jobsDirectory);
    options->delay = std::chrono::milliseconds(delay);
    options->serviceFailure = *serviceFailure;
    options->printerFailure = *printerFailure;
    options->printerState = *printerState;
    options->demoHome = p.parser.value(p.demoHome);
    return Outcome::run;
}
