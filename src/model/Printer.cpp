#include "model/Printer.h"

#include "model/JsonObjectReader.h"
#include "model/UuidText.h"

#include <QHashFunctions>

using namespace Qt::StringLiterals;

QJsonObject Printer::toJson() const
{
    return {{u"id"_s, uuidToText(id)},
            {u"name"_s, name},
            {u"ipAddress"_s, ipAddress},
            {u"port"_s, port}};
}

std::optional<Printer> Printer::fromJson(const QJsonValue& value, QString* error)
{
    JsonObjectReader reader(value);
    Printer printer;
    printer.id = reader.requiredUuid(u"id");
    printer.name = reader.requiredString(u"name");
    printer.ipAddress = reader.requiredString(u"ipAddress");
    printer.port = reader.requiredInteger(u"port");
    return reader.result(std::move(printer), error);
}

size_t qHash(const Printer& printer, size_t seed) noexcept
{
    return qHashMulti(seed, printer.id, printer.name, printer.ipAddress, printer.port);
}
