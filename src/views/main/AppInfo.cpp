#include "AppInfo.h"

#include "BuildConfig.h"

using namespace Qt::StringLiterals;

namespace {

QString orFallback(const char16_t* text, const QString& fallback)
{
    const QString value = QString::fromUtf16(text);
    return value.isEmpty() ? fallback : value;
}

} // namespace

QString AppInfo::version()
{
    return orFallback(BuildConfig::kVersion, u"1.0"_s);
}

QString AppInfo::buildNumber()
{
    return orFallback(BuildConfig::kBuildNumber, u"1"_s);
}
