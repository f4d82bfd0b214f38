#pragma once

#include "app/AppcastItem.h"
#include "services/Expected.h"

#include <QByteArray>
#include <QList>
#include <QString>

// Reads an update feed in the appcast format: an RSS channel whose items carry
// sparkle:version, sparkle:shortVersionString, sparkle:releaseNotesLink and an
// enclosure with the download address.
class AppcastReader
{
public:
    AppcastReader() = delete;

    // Every usable item in feed order; an item without a version or without an
    // https download is left out (plain http only from 127.0.0.1, ::1 or
    // localhost). Fails on broken XML, on a document that is not RSS and when
    // no usable item remains. Errors are Dutch user texts.
    static Expected<QList<AppcastItem>, QString> read(const QByteArray& feed);

    // The item with the highest version; the first of equal ones.
    static Expected<AppcastItem, QString> newestItem(const QByteArray& feed);
};
