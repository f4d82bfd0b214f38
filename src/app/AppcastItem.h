#pragma once

#include <QString>
#include <QUrl>

// One release announced in an update feed (an appcast item).
struct AppcastItem
{
    QString title;
    // The machine version the running version is compared with.
    QString version;
    // The version as shown to people; may be empty.
    QString shortVersionString;
    QUrl releaseNotesURL;
    QUrl downloadURL;

    QString displayVersion() const
    {
        return shortVersionString.isEmpty() ? version : shortVersionString;
    }
};
