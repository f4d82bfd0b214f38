#pragma once

#include "services/PrinterError.h"

#include <QCoroTask>
#include <QString>
#include <chrono>
#include <optional>

// Delivers ZPL text to a network label printer: one raw TCP connection per
// call, the UTF-8 bytes, end of stream, close.
class PrinterService
{
public:
    static constexpr std::chrono::milliseconds kDefaultTimeout{10'000};
    // Exactly 41 bytes.
    static const QString kTestLabel;

    struct ConnectionTestResult
    {
        bool success = false;
        QString message;
    };

    explicit PrinterService(std::chrono::milliseconds timeout = kDefaultTimeout);

    // Completes exactly once: nothing on success, the error otherwise.
    QCoro::Task<std::optional<PrinterError>> sendZPL(QString zpl, QString ip, qint64 port) const;
    QCoro::Task<ConnectionTestResult> testConnection(QString ip, qint64 port) const;

    // The address and port rules of every printer connection: an empty address
    // is no printer, and a port must fit 16 bits. Empty when both are usable.
    static std::optional<PrinterError> checkTarget(const QString& ip, qint64 port);

private:
    std::chrono::milliseconds m_timeout;
};
