#include "views/common/AppInfo.h"

#include "BuildConfig.h"

using namespace Qt::StringLiterals;

QString AppInfo::version()
{
    return versionOrFallback(BuildConfig::kVersion);
}

QString AppInfo::buildNumber()
{
    const QString configured = QString::fromUtf16(BuildConfig::kBuildNumber).trimmed();
    return configured.isEmpty() ? u"1"_s : configured;
}

QString AppInfo::versionOrFallback(QStringView configured)
{
    const QString version = configured.trimmed().toString();
    return version.isEmpty() ? u"1.0"_s : version;
}
