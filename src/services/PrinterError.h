#pragma once

#include <QString>

// Failure of the printer transport, each with a fixed Dutch description.
class PrinterError
{
public:
    enum class Kind
    {
        connectionFailed,
        sendFailed,
        noPrinterConfigured,
        timeout
    };

    static PrinterError connectionFailed(const QString& message)
    {
        return {Kind::connectionFailed, message};
    }
    static PrinterError sendFailed(const QString& message) { return {Kind::sendFailed, message}; }
    static PrinterError noPrinterConfigured() { return {Kind::noPrinterConfigured, {}}; }
    static PrinterError timeout() { return {Kind::timeout, {}}; }

    Kind kind() const { return m_kind; }
    const QString& payload() const { return m_payload; }
    QString errorDescription() const;

    friend bool operator==(const PrinterError&, const PrinterError&) = default;

private:
    PrinterError(Kind kind, QString payload) : m_kind(kind), m_payload(std::move(payload)) {}

    Kind m_kind;
    QString m_payload;
};
