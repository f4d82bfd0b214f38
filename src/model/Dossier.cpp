#include "model/Dossier.h"

#include "model/JsonObjectReader.h"
#include "model/JsonTextWriter.h"
#include "model/UuidText.h"

#include <QHashFunctions>

using namespace Qt::StringLiterals;

const Dossier& Dossier::defaultDossier()
{
    static const Dossier kDefault{QUuid::createUuid(), u"Standaard Dossier"_s, QString()};
    return kDefault;
}

void Dossier::writeJson(JsonTextWriter& writer) const
{
    writer.beginObject();
    writer.write("apiKey", apiKey);
    writer.write("id", uuidToText(id));
    writer.write("name", name);
    writer.endObject();
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
