#include "services/PrinterService.h"

#include "services/PrinterSendJob.h"

#include <QCoroSignal>
#include <QCoroTimer>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString PrinterService::kTestLabel = u"^XA^FO50,50^A0N,30,30^FDTest Etiket^FS^XZ"_s;

namespace {

constexpr qint64 kMaxPort = 65535;

} // namespace

PrinterService::PrinterService(std::chrono::milliseconds timeout) : m_timeout(timeout) {}

QCoro::Task<std::optional<PrinterError>> PrinterService::sendZPL(QString zpl, QString ip,
                                                                 qint64 port) const
{
    if (std::optional<PrinterError> unusable = checkTarget(ip, port))
        co_return unusable;

    // The job lives in this frame, not in the service: the service may be gone
    // before the job ends, so nothing after the await touches this.
    auto job = std::make_unique<PrinterSendJob>(zpl.toUtf8(), m_timeout);
    job->start(ip, static_cast<quint16>(port));
    if (job->isFinished()) {
        // A printer close by can take a label before start() returns; the
        // event loop still gets its turn, or a long run would freeze the window.
        co_await QCoro::sleepFor(0ms);
        co_return job->result();
    }
    co_await qCoro(job.get(), &PrinterSendJob::finished);
    // Resumed from within the job's finished(): it may not be deleted here.
    const std::optional<PrinterError> result = job->result();
    job.release()->deleteLater();
    co_return result;
}

std::optional<PrinterError> PrinterService::checkTarget(const QString& ip, qint64 port)
{
    if (ip.isEmpty())
        return PrinterError::noPrinterConfigured();
    if (port < 0 || port > kMaxPort)
        return PrinterError::connectionFailed(
            u"Ongeldige poort %1 (toegestaan: 0 tot en met 65535)"_s.arg(port));
    return std::nullopt;
}

QCoro::Task<PrinterService::ConnectionTestResult> PrinterService::testConnection(QString ip,
                                                                                 qint64 port) const
{
    if (ip.isEmpty())
        co_return ConnectionTestResult{false, u"Geen IP adres geconfigureerd"_s};

    const std::optional<PrinterError> error = co_await sendZPL(kTestLabel, ip, port);
    if (error)
        co_return ConnectionTestResult{false, error->errorDescription()};
    co_return ConnectionTestResult{true, u"Verbinding gelukt! Test etiket verstuurd."_s};
}
