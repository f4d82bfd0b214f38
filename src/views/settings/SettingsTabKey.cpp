#include "views/settings/SettingsTabKey.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kDossierPrefix{"dossier-"};
constexpr QLatin1StringView kPrinterPrefix{"printer-"};
constexpr QLatin1StringView kTemplatePrefix{"template-"};
constexpr QLatin1StringView kAbout{"about"};

QLatin1StringView prefixOf(SettingsTabKey::Kind kind)
{
    switch (kind) {
    case SettingsTabKey::Kind::dossier:
        return kDossierPrefix;
    case SettingsTabKey::Kind::printer:
        return kPrinterPrefix;
    case SettingsTabKey::Kind::labelTemplate:
        return kTemplatePrefix;
    case SettingsTabKey::Kind::none:
    case SettingsTabKey::Kind::about:
        break;
    }
    return {};
}

std::optional<QUuid> parseUuid(QStringView text)
{
    // Only the bare hyphenated form counts; QUuid would also take braces.
    if (text.size() != 36)
        return std::nullopt;
    const QUuid id = QUuid::fromString(text);
    if (id.isNull())
        return std::nullopt;
    return id;
}

} // namespace

QString SettingsTabKey::uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QString SettingsTabKey::make(Kind kind, const QUuid& id)
{
    if (kind == Kind::about)
        return about();
    const QLatin1StringView prefix = prefixOf(kind);
    if (prefix.isEmpty())
        return {};
    return prefix + uuidText(id);
}

QString SettingsTabKey::about()
{
    return kAbout;
}

SettingsTabKey::Parsed SettingsTabKey::parse(const QString& key)
{
    if (key == kAbout)
        return {Kind::about, std::nullopt};
    for (const Kind kind : {Kind::dossier, Kind::printer, Kind::labelTemplate}) {
        const QLatin1StringView prefix = prefixOf(kind);
        if (key.startsWith(prefix))
            return {kind, parseUuid(QStringView(key).sliced(prefix.size()))};
    }
    return {};
}
