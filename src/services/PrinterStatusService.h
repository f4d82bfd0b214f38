#pragma once

#include "services/PrinterService.h"
#include "services/PrinterStatus.h"

#include <QCoroTask>
#include <QString>
#include <chrono>

// Asks a ZPL printer how it is, on its own raw port, beside the printing
// transport and with its address and port rules. Keeps no state; each user
// creates its own.
//
// Usage from a view (the result is never an error; show it as it is):
//     const PrinterStatus status = co_await m_statusService.queryStatus(ip, port);
//     resultLabel->setText(status.summary());   // green when status.isReady()
//
// The outcome is known at most connectTimeout (connecting) plus answerDeadline
// (the answer) after the call. summary() is one of:
//  - "Gereed", or "Gereed, formaten in de buffer: N" when formats wait;
//  - the problems, joined by ", ": "Papier op", "Gepauzeerd", "Kop open",
//    "Lint op", "Ontvangstbuffer vol", "Te warm", "Te koud", "Configuratie verloren";
//  - "Geen antwoord op de statusvraag: papier of lint op, kop open of te warm?"
//    when the printer takes the connection but stays silent;
//  - the transport's texts: "Geen printer IP geconfigureerd", "Verbinding time-out",
//    "Verbinding mislukt: ..." (also for a port outside 0 to 65535);
//  - "Onbekend antwoord van de printer" for a malformed, oversized or cut-short answer.
class PrinterStatusService
{
public:
    // Connecting takes as long as it may when printing.
    static constexpr std::chrono::milliseconds kDefaultConnectTimeout =
        PrinterService::kDefaultTimeout;
    static constexpr std::chrono::milliseconds kDefaultAnswerDeadline{5'000};

    explicit PrinterStatusService(
        std::chrono::milliseconds connectTimeout = kDefaultConnectTimeout,
        std::chrono::milliseconds answerDeadline = kDefaultAnswerDeadline);

    // The service may be destroyed while a query runs; the query still ends.
    QCoro::Task<PrinterStatus> queryStatus(QString ip, qint64 port) const;

private:
    std::chrono::milliseconds m_connectTimeout;
    std::chrono::milliseconds m_answerDeadline;
};
