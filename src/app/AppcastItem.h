#pragma once

#include <QString>
#include <QUrl>

// One release announced in an update feed (an appcast item).
struct AppcastItem
{
    QString title;
    // sparkle:version, the build number the running build is compared with.
    QString version;
    // sparkle:shortVersionString, the version as shown to people; may be empty.
    QString shortVersionString;
    QUrl releaseNotesURL;
    QUrl downloadURL;

    QString displayVersion() const
    {
        return shortVersionString.isEmpty() ? version : shortVersionString;
    }
};
