#include "viewmodels/SettingsTabKey.h"

#include <array>
#include <utility>

using Kind = SettingsTabKey::Kind;

namespace {

constexpr std::array<std::pair<Kind, QLatin1StringView>, 3> kPrefixes{{
    {Kind::dossier, QLatin1StringView("dossier-")},
    {Kind::printer, QLatin1StringView("printer-")},
    {Kind::labelTemplate, QLatin1StringView("template-")},
}};

} // namespace

QString SettingsTabKey::uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QString SettingsTabKey::make(Kind kind, const QUuid& id)
{
    if (kind == Kind::about)
        return about();
    for (const auto& [prefixKind, prefix] : kPrefixes) {
        if (prefixKind == kind)
            return prefix + uuidText(id);
    }
    return {};
}

SettingsTabKey::Parsed SettingsTabKey::parse(const QString& key)
{
    if (key == about())
        return {Kind::about, std::nullopt};
    for (const auto& [kind, prefix] : kPrefixes) {
        if (!key.startsWith(prefix))
            continue;
        // Only the bare hyphenated form counts; QUuid would also take braces.
        const QStringView text = QStringView(key).sliced(prefix.size());
        const QUuid id = text.size() == 36 ? QUuid::fromString(text) : QUuid();
        return {kind, id.isNull() ? std::nullopt : std::optional<QUuid>(id)};
    }
    return {};
}
