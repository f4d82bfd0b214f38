#include "services/APIError.h"

using namespace Qt::StringLiterals;

namespace {

QString shown(const QString& payload)
{
    if (payload.size() <= APIError::kMaxShownPayload)
        return payload;
    qsizetype end = APIError::kMaxShownPayload;
    // Never half a character: a surrogate pair stays whole or goes whole.
    if (payload.at(end - 1).isHighSurrogate())
        --end;
    return payload.left(end) + u'\u2026';
}

} // namespace

QString APIError::errorDescription() const
{
    switch (m_kind) {
    case Kind::networkError:
        return u"Netwerkfout: "_s + shown(m_payload);
    case Kind::serverError:
        return u"Serverfout: "_s + shown(m_payload);
    case Kind::invalidURL:
        return u"Ongeldige API URL"_s;
    case Kind::noAPIKey:
        return u"Geen API key geconfigureerd"_s;
    case Kind::invalidResponse:
        return u"Ongeldige respons van server"_s;
    }
    return {};
}
