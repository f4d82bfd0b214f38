#pragma once

#include <QString>
#include <QUuid>
#include <optional>

// The settings document's UUID form: 36 characters, 8-4-4-4-12 hexadecimal
// digits, written upper-case and read in either case.
inline QString uuidToText(const QUuid& uuid)
{
    // Upper-cased as bytes: QString::toUpper() applies the full Unicode tables,
    // which made this a fifth of a save.
    return QString::fromLatin1(uuid.toByteArray(QUuid::WithoutBraces).toUpper());
}

inline std::optional<QUuid> uuidFromText(QStringView text)
{
    constexpr qsizetype kCanonicalLength = 36;
    if (text.size() != kCanonicalLength)
        return std::nullopt;
    const QUuid uuid = QUuid::fromString(text);
    // fromString() also answers null for text it cannot parse, so the nil UUID
    // has to be recognised by its text.
    if (uuid.isNull() && text != uuidToText(QUuid()))
        return std::nullopt;
    return uuid;
}
