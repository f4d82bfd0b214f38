#pragma once

#include <QJsonObject>
#include <QString>
#include <QUuid>
#include <optional>

// One company administration in the invoicing service with the key that opens it.
struct Dossier
{
    QUuid id = QUuid::createUuid();
    QString name;
    QString apiKey;

    // Shared per run: the same id for every use within one run.
    static const Dossier& defaultDossier();

    QJsonObject toJson() const;
    // Missing keys, wrong JSON types and bad UUID texts fail; `error` says which.
    static std::optional<Dossier> fromJson(const QJsonValue& value, QString* error);

    friend bool operator==(const Dossier&, const Dossier&) = default;
};

size_t qHash(const Dossier& dossier, size_t seed = 0) noexcept;
