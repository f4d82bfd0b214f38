#include "services/PrinterError.h"

using namespace Qt::StringLiterals;

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
