#pragma once

#include <QByteArray>
#include <QString>

namespace stampixfuzz {

// Prints which property broke and aborts the process.
[[noreturn]] void fail(const char* property, const QString& detail = QString());

inline void check(bool holds, const char* property, const QString& detail = QString())
{
    if (!holds)
        fail(property, detail);
}

inline QByteArray toBytes(const std::uint8_t* data, std::size_t size)
{
    // fromRawData would not copy, but Qt's parsers may keep references past
    // the call; a copy keeps the fuzzer's buffer out of that.
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

} // namespace stampixfuzz
