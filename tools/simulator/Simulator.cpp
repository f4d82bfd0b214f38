#include "Simulator.h"

#include "DemoHome.h"

#include <QDir>
#include <QTime>

using namespace Qt::StringLiterals;

namespace {

QString jobLine(const QString& printerName, const QString& filePath, const QByteArray& job)
{
    const QString field = VirtualPrinter::firstFieldData(job);
    return u"%1  %2 bytes  %3  %4"_s.arg(printerName)
        .arg(job.size())
        .arg(field.isEmpty() ? u"(no ^FD field)"_s : u'"' + field + u'"', filePath);
}

} // namespace

Simulator::Simulator(const SimulatorOptions& options, QObject* parent)
    : QObject(parent), m_options(options),
      m_service(ProductCatalogue(options.productCount), options.apiKey)
{
    m_service.setFailure(options.serviceFailure);
    m_service.setDelay(options.delay);
    connect(&m_service, &SimulatedProductService::requestAnswered, this,
            [this](const QString& summary) { log(u"service  "_s + summary); });
}

bool Simulator::start(QString* error)
{
    if (!m_service.listen(m_options.servicePort)) {
        *error =
            u"cannot listen on 127.0.0.1:%1 for the product service"_s.arg(m_options.servicePort);
        return false;
    }
    if (!startPrinters(error))
        return false;
    if (!m_options.demoHome.isEmpty()) {
        if (const std::optional<QString> failed = DemoHome::write(
                m_options.demoHome, m_options.apiKey, m_printers.constFirst()->port())) {
            *error = failed.value();
            return false;
        }
    }
    announce();
    return true;
}

bool Simulator::startPrinters(QString* error)
{
    const QString jobs = QDir(m_options.jobsDirectory).absolutePath();
    for (int i = 1; i <= m_options.printerCount; ++i) {
        auto* printer = new VirtualPrinter(u"Virtual printer %1"_s.arg(i),
                                           QDir(jobs).filePath(u"printer-%1"_s.arg(i)),
                                           m_options.printerFailure, m_options.printerState, this);
        const quint16 port = m_options.printerPort == 0 ? 0 : m_options.printerPort + i - 1;
        if (!printer->start(port, error)) {
            *error = u"%1: %2"_s.arg(printer->name(), *error);
            return false;
        }
        connect(printer, &VirtualPrinter::jobWritten, this,
                [this, name = printer->name()](const QString& path, const QByteArray& job) {
                    log(jobLine(name, path, job));
                });
        connect(printer, &VirtualPrinter::jobNotWritten, this,
                [this, name = printer->name()](const QString& why) {
                    log(u"%1  job received but not saved: %2"_s.arg(name, why));
                });
        connect(printer, &VirtualPrinter::pictureNotWritten, this,
                [this, name = printer->name()](const QString& why) {
                    log(u"%1  job saved without a picture: %2"_s.arg(name, why));
                });
        connect(printer, &VirtualPrinter::emptyConnection, this, [this, name = printer->name()] {
            log(u"%1  connection closed without data"_s.arg(name));
        });
        connect(printer, &VirtualPrinter::statusQueried, this, [this, printer] {
            const bool silent = VirtualPrinter::statusAnswer(printer->state()).isEmpty();
            log(u"%1  status query: %2%3"_s.arg(printer->name(),
                                                VirtualPrinter::stateName(printer->state()),
                                                silent ? u" (no answer)"_s : QString()));
        });
        m_printers.append(printer);
    }
    return true;
}

void Simulator::log(const QString& text)
{
    emit message(QTime::currentTime().toString(u"HH:mm:ss.zzz"_s) + u"  "_s + text);
}

void Simulator::announce()
{
    QString service = u"Product service: %1/product  API key \"%2\", %3 products"_s
                          .arg(m_service.baseUrl(), m_options.apiKey)
                          .arg(m_service.catalogue().size());
    if (m_options.serviceFailure != SimulatedProductService::Failure::none)
        service +=
            u", failure: "_s + SimulatedProductService::failureName(m_options.serviceFailure);
    if (m_options.delay.count() > 0)
        service += u", delay %1 ms"_s.arg(m_options.delay.count());
    emit message(service);
    for (const VirtualPrinter* printer : std::as_const(m_printers)) {
        QString line = u"%1: 127.0.0.1:%2  jobs in %3"_s.arg(printer->name())
                           .arg(printer->port())
                           .arg(printer->jobDirectory());
        if (printer->failure() != VirtualPrinter::Failure::none)
            line += u", failure: "_s + VirtualPrinter::failureName(printer->failure());
        if (printer->state() != VirtualPrinter::State::ready)
            line += u", state: "_s + VirtualPrinter::stateName(printer->state());
        emit message(line);
    }
    if (!m_options.demoHome.isEmpty())
        emit message(u"Demo settings: "_s + DemoHome::settingsFilePath(m_options.demoHome));
    emit message(kReadyLine.toString());
}
