#include "model/JsonObjectReader.h"

#include "model/JsonTypeName.h"
#include "model/UuidText.h"

using namespace Qt::StringLiterals;

JsonObjectReader::JsonObjectReader(const QJsonValue& value)
{
    if (value.isObject())
        m_object = value.toObject();
    else
        fail(u"expected an object, found "_s + jsonTypeName(value));
}

QString JsonObjectReader::requiredString(QStringView key)
{
    return toText(key, requiredMember(key));
}

std::optional<QString> JsonObjectReader::optionalString(QStringView key)
{
    return optional(key, &JsonObjectReader::toText);
}

QUuid JsonObjectReader::requiredUuid(QStringView key)
{
    return toUuid(key, requiredMember(key));
}

std::optional<QUuid> JsonObjectReader::optionalUuid(QStringView key)
{
    return optional(key, &JsonObjectReader::toUuid);
}

qint64 JsonObjectReader::requiredInteger(QStringView key)
{
    return toInteger(key, requiredMember(key));
}

std::optional<qint64> JsonObjectReader::optionalInteger(QStringView key)
{
    return optional(key, &JsonObjectReader::toInteger);
}

std::optional<double> JsonObjectReader::optionalNumber(QStringView key)
{
    const std::optional<QJsonValue> value = presentMember(key);
    if (!value)
        return std::nullopt;
    if (!value->isDouble()) {
        failType(key, u"a number", *value);
        return std::nullopt;
    }
    return value->toDouble();
}

template <typename T>
std::optional<T> JsonObjectReader::optional(QStringView key,
                                            T (JsonObjectReader::*convert)(QStringView,
                                                                           const QJsonValue&))
{
    const std::optional<QJsonValue> value = presentMember(key);
    if (!value)
        return std::nullopt;
    T converted = (this->*convert)(key, *value);
    if (hasFailed())
        return std::nullopt;
    return converted;
}

std::optional<QJsonValue> JsonObjectReader::presentMember(QStringView key)
{
    if (hasFailed())
        return std::nullopt;
    QJsonValue value = m_object.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return value;
}

QJsonValue JsonObjectReader::requiredMember(QStringView key)
{
    if (hasFailed())
        return {};
    if (!m_object.contains(key))
        fail(u"\"%1\" is missing"_s.arg(key));
    return m_object.value(key);
}

QString JsonObjectReader::toText(QStringView key, const QJsonValue& value)
{
    if (hasFailed())
        return {};
    if (!value.isString()) {
        failType(key, u"a string", value);
        return {};
    }
    return value.toString();
}

QUuid JsonObjectReader::toUuid(QStringView key, const QJsonValue& value)
{
    const QString text = toText(key, value);
    if (hasFailed())
        return {};
    const std::optional<QUuid> uuid = uuidFromText(text);
    if (!uuid) {
        fail(u"\"%1\" is not a valid UUID: \"%2\""_s.arg(key, text));
        return {};
    }
    return *uuid;
}

qint64 JsonObjectReader::toInteger(QStringView key, const QJsonValue& value)
{
    if (hasFailed())
        return 0;
    // QJsonValue has one number type; an integer is a number without a
    // fraction that fits in 64 bits (toInteger() answers 0 otherwise).
    const qint64 integer = value.toInteger();
    if (!value.isDouble() || value.toDouble() != static_cast<double>(integer)) {
        failType(key, u"an integer", value);
        return 0;
    }
    return integer;
}

void JsonObjectReader::failType(QStringView key, QStringView expected, const QJsonValue& found)
{
    QString foundText = jsonTypeName(found);
    if (found.isDouble())
        foundText += u" ("_s + QString::number(found.toDouble()) + u')';
    fail(u"\"%1\" must be %2, found %3"_s.arg(key, expected, foundText));
}

void JsonObjectReader::fail(const QString& message)
{
    if (m_error.isEmpty())
        m_error = message;
}
