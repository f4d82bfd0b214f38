#pragma once

#include <QJsonValue>
#include <QString>

// "a string", "a number", ...: how a decoding error names what it found.
inline QString jsonTypeName(const QJsonValue& value)
{
    using namespace Qt::StringLiterals;
    switch (value.type()) {
    case QJsonValue::Null:
        return u"null"_s;
    case QJsonValue::Bool:
        return u"a boolean"_s;
    case QJsonValue::Double:
        return u"a number"_s;
    case QJsonValue::String:
        return u"a string"_s;
    case QJsonValue::Array:
        return u"an array"_s;
    case QJsonValue::Object:
        return u"an object"_s;
    case QJsonValue::Undefined:
        break;
    }
    return u"nothing"_s;
}
