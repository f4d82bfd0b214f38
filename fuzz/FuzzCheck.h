#pragma once

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace stampixfuzz {

// Prints which property broke and aborts the process.
inline void check(bool holds, const char* property, const QString& detail = QString())
{
    if (holds)
        return;
    std::fprintf(stderr, "Property broken: %s\n  %s\n", property, detail.toUtf8().constData());
    std::abort();
}

// A copy: Qt's parsers may keep references past the call.
inline QByteArray toBytes(const std::uint8_t* data, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

} // namespace stampixfuzz
