#include "services/PrinterStatusService.h"

#include "services/PrinterService.h"
#include "services/PrinterStatusQuery.h"

#include <QCoroSignal>
#include <memory>

PrinterStatusService::PrinterStatusService(std::chrono::milliseconds connectTimeout,
                                           std::chrono::milliseconds answerDeadline)
    : m_connectTimeout(connectTimeout), m_answerDeadline(answerDeadline)
{}

QCoro::Task<PrinterStatus> PrinterStatusService::queryStatus(QString ip, qint64 port) const
{
    if (const std::optional<PrinterError> unusable = PrinterService::checkTarget(ip, port))
        co_return PrinterStatus::failed(unusable->errorDescription());

    // Lives in this frame, not in the service, which may go first.
    auto query = std::make_unique<PrinterStatusQuery>(m_connectTimeout, m_answerDeadline);
    query->start(ip, static_cast<quint16>(port));
    if (!query->isFinished())
        co_await qCoro(query.get(), &PrinterStatusQuery::finished);
    const PrinterStatus result = query->result();
    // Possibly resumed from within the query's finished(): delete it later.
    query.release()->deleteLater();
    co_return result;
}
