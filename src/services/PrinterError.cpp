#include "services/PrinterError.h"

using namespace Qt::StringLiterals;

PrinterError PrinterError::connectionFailed(const QString& message)
{
    return {Kind::connectionFailed, message};
}

PrinterError PrinterError::sendFailed(const QString& message)
{
    return {Kind::sendFailed, message};
}

PrinterError PrinterError::noPrinterConfigured()
{
    return {Kind::noPrinterConfigured, {}};
}

PrinterError PrinterError::timeout()
{
    return {Kind::timeout, {}};
}

QString PrinterError::errorDescription() const
{
    switch (m_kind) {
    case Kind::connectionFailed:
        return u"Verbinding mislukt: "_s + m_payload;
    case Kind::sendFailed:
        return u"Verzenden mislukt: "_s + m_payload;
    case Kind::noPrinterConfigured:
        return u"Geen printer IP geconfigureerd"_s;
    case Kind::timeout:
        return u"Verbinding time-out"_s;
    }
    return {};
}
