#include "model/Dossier.h"

#include "model/JsonObjectReader.h"
#include "model/UuidText.h"

#include <QHashFunctions>

using namespace Qt::StringLiterals;

const Dossier& Dossier::defaultDossier()
{
    static const Dossier kDefault{QUuid::createUuid(), u"Standaard Dossier"_s, QString()};
    return kDefault;
}

QJsonObject Dossier::toJson() const
{
    return {{u"id"_s, uuidToText(id)}, {u"name"_s, name}, {u"apiKey"_s, apiKey}};
}

std::optional<Dossier> Dossier::fromJson(const QJsonValue& value, QString* error)
{
    JsonObjectReader reader(value);
    Dossier dossier;
    dossier.id = reader.requiredUuid(u"id");
    dossier.name = reader.requiredString(u"name");
    dossier.apiKey = reader.requiredString(u"apiKey");
    return reader.result(std::move(dossier), error);
}

size_t qHash(const Dossier& dossier, size_t seed) noexcept
{
    return qHashMulti(seed, dossier.id, dossier.name, dossier.apiKey);
}
