#pragma once

#include <QString>

// Failure of the product client, each with a fixed Dutch description.
class APIError
{
public:
    enum class Kind
    {
        networkError,
        serverError,
        invalidURL,
        noAPIKey,
        invalidResponse
    };

    static APIError networkError(const QString& underlyingDescription);
    static APIError serverError(const QString& message);
    static APIError invalidURL();
    static APIError noAPIKey();
    static APIError invalidResponse();

    Kind kind() const { return m_kind; }
    const QString& payload() const { return m_payload; }
    QString errorDescription() const;

    friend bool operator==(const APIError&, const APIError&) = default;

private:
    APIError(Kind kind, QString payload) : m_kind(kind), m_payload(std::move(payload)) {}

    Kind m_kind;
    QString m_payload;
};
