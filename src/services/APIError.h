#pragma once

#include <QString>

// Failure of the product client, each with a fixed Dutch description.
class APIError
{
public:
    // A service may send any amount of text; the alert shows its start.
    static constexpr qsizetype kMaxShownPayload = 500;

    enum class Kind
    {
        networkError,
        serverError,
        invalidURL,
        noAPIKey,
        invalidResponse
    };

    static APIError networkError(const QString& underlying)
    {
        return {Kind::networkError, underlying};
    }
    static APIError serverError(const QString& message) { return {Kind::serverError, message}; }
    static APIError invalidURL() { return {Kind::invalidURL, {}}; }
    static APIError noAPIKey() { return {Kind::noAPIKey, {}}; }
    static APIError invalidResponse() { return {Kind::invalidResponse, {}}; }

    Kind kind() const { return m_kind; }
    // The whole text, as received.
    const QString& payload() const { return m_payload; }
    // For the user: a payload longer than kMaxShownPayload is cut and ends in "…".
    QString errorDescription() const;

    friend bool operator==(const APIError&, const APIError&) = default;

private:
    APIError(Kind kind, QString payload) : m_kind(kind), m_payload(std::move(payload)) {}

    Kind m_kind;
    QString m_payload;
};
