#pragma once

#include <QString>

// The program's version texts, from the build settings.
class AppInfo
{
public:
    // The short version, or "1.0" when the build supplies none.
    static QString version();
    // The build number, or "1" when the build supplies none.
    static QString buildNumber();
};
