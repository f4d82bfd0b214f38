#include "model/LabelTemplate.h"

#include "model/JsonObjectReader.h"
#include "model/UuidText.h"

#include <QHashFunctions>

using namespace Qt::StringLiterals;

const QString LabelTemplate::kDefaultZPL = u"^XA\n"
                                           u"^FO50,50^A0N,50,50^FD{{ARTIKELNR}}^FS\n"
                                           u"^FO50,120^A0N,40,40^FD{{NAAM}}^FS\n"
                                           u"^FO50,180^A0N,35,35^FDE {{PRIJS}}^FS\n"
                                           u"^XZ"_s;

namespace {

// An absent value and a present one never hash alike by accident of the value.
template <typename T> size_t hashOptional(size_t seed, const std::optional<T>& value) noexcept
{
    seed = qHashMulti(seed, value.has_value());
    return value ? qHashMulti(seed, *value) : seed;
}

} // namespace

const LabelTemplate& LabelTemplate::defaultTemplate()
{
    static const LabelTemplate kDefault{
        QUuid::createUuid(), u"Standaard Etiket"_s, kDefaultZPL, {}, {}, {}};
    return kDefault;
}

QJsonObject LabelTemplate::toJson() const
{
    // The legacy printer fields are deliberately not written.
    QJsonObject object{{u"id"_s, uuidToText(id)}, {u"name"_s, name}, {u"zplContent"_s, zplContent}};
    if (printerID)
        object.insert(u"printerID"_s, uuidToText(*printerID));
    return object;
}

std::optional<LabelTemplate> LabelTemplate::fromJson(const QJsonValue& value, QString* error)
{
    JsonObjectReader reader(value);
    LabelTemplate labelTemplate;
    labelTemplate.id = reader.requiredUuid(u"id");
    labelTemplate.name = reader.requiredString(u"name");
    labelTemplate.zplContent = reader.requiredString(u"zplContent");
    labelTemplate.printerID = reader.optionalUuid(u"printerID");
    labelTemplate.printerIP = reader.optionalString(u"printerIP");
    labelTemplate.printerPort = reader.optionalInteger(u"printerPort");
    return reader.result(std::move(labelTemplate), error);
}

size_t qHash(const LabelTemplate& labelTemplate, size_t seed) noexcept
{
    seed = qHashMulti(seed, labelTemplate.id, labelTemplate.name, labelTemplate.zplContent);
    seed = hashOptional(seed, labelTemplate.printerID);
    seed = hashOptional(seed, labelTemplate.printerIP);
    return hashOptional(seed, labelTemplate.printerPort);
}
