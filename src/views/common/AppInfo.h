#pragma once

#include <QString>
#include <QStringView>
#include <QUrl>

// The program's version texts, from the build settings.
class AppInfo
{
public:
    // The whole short version ("1.4.2"), or "1.0" when the build supplies none.
    static QString version();
    // The build number, or "1" when the build supplies none.
    static QString buildNumber();

    // The rule behind version(): a configured text, or "1.0" when it is empty.
    static QString versionOrFallback(QStringView configured);
    // The maker's site, linked from both About pages.
    static QString makerDomain() { return QStringLiteral("stampix.app"); }
    static QUrl makerURL() { return QUrl(QStringLiteral("https://stampix.app")); }
};
