#pragma once

#include <QJsonValue>
#include <optional>

// A JSON number that is a whole number within qint64 (7 and 7.0, not 7.5 or "7").
inline std::optional<qint64> exactJsonInteger(const QJsonValue& value)
{
    if (!value.isDouble())
        return std::nullopt;
    // toInteger() hands back its default for fractions and for values outside
    // qint64; two different defaults tell that apart from a real result.
    const qint64 first = value.toInteger(0);
    const qint64 second = value.toInteger(1);
    if (first != second)
        return std::nullopt;
    return first;
}
