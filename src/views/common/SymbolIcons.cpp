#include "views/common/SymbolIcons.h"

#include "views/common/SvgIconEngine.h"
#include "views/common/TintedIconEngine.h"

#include <QFile>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

// Outside any namespace, as Q_INIT_RESOURCE requires.
static void initSymbolResources()
{
    // The icons live in a static library; nothing else pulls their registration in.
    static const bool registered = [] {
        Q_INIT_RESOURCE(symbols);
        return true;
    }();
    Q_UNUSED(registered);
}

namespace {

struct SymbolEntry
{
    QLatin1StringView symbol;
    // Freedesktop icon names tried in order; empty when no standard name fits.
    std::array<QLatin1StringView, 2> themeNames;
};

// clang-format off
constexpr std::array kSymbols{
    SymbolEntry{"folder.badge.gearshape"_L1, {}},
    SymbolEntry{"magnifyingglass"_L1, {"edit-find"_L1, "system-search"_L1}},
    SymbolEntry{"cube.box"_L1, {"package-x-generic"_L1}},
    SymbolEntry{"checkmark.circle.fill"_L1, {}},
    SymbolEntry{"printer.fill"_L1, {"document-print"_L1, "printer"_L1}},
    SymbolEntry{"printer"_L1, {"printer"_L1, "document-print"_L1}},
    SymbolEntry{"xmark"_L1, {"window-close"_L1}},
    SymbolEntry{"xmark.circle.fill"_L1, {"edit-clear"_L1}},
    SymbolEntry{"arrow.clockwise"_L1, {"view-refresh"_L1}},
    SymbolEntry{"checkmark.square.fill"_L1, {}},
    SymbolEntry{"square"_L1, {}},
    SymbolEntry{"gear"_L1, {"preferences-system"_L1}},
    SymbolEntry{"folder"_L1, {"folder"_L1}},
    SymbolEntry{"folder.fill"_L1, {"folder"_L1}},
    SymbolEntry{"doc.text"_L1, {"text-x-generic"_L1}},
    SymbolEntry{"doc.text.fill"_L1, {"text-x-generic"_L1}},
    SymbolEntry{"chevron.down"_L1, {}},
    SymbolEntry{"chevron.right"_L1, {}},
    SymbolEntry{"plus"_L1, {"list-add"_L1}},
    SymbolEntry{"info.circle"_L1, {"dialog-information"_L1}},
    SymbolEntry{"info.circle.fill"_L1, {"dialog-information"_L1}},
    SymbolEntry{"tag"_L1, {}},
    SymbolEntry{"key.fill"_L1, {"dialog-password"_L1}},
    SymbolEntry{"calendar"_L1, {"x-office-calendar"_L1, "office-calendar"_L1}},
    SymbolEntry{"network"_L1, {"network-wired"_L1}},
    SymbolEntry{"number"_L1, {}},
    SymbolEntry{"trash"_L1, {"user-trash"_L1, "edit-delete"_L1}},
    SymbolEntry{"exclamationmark.triangle.fill"_L1, {"dialog-warning"_L1}},
};
// clang-format on

const SymbolEntry* findSymbol(QStringView symbolName)
{
    for (const SymbolEntry& entry : kSymbols) {
        if (entry.symbol == symbolName)
            return &entry;
    }
    return nullptr;
}

QString resourcePath(QStringView symbolName)
{
    return u":/symbols/%1.svg"_s.arg(symbolName);
}

QIcon bundledIcon(QStringView symbolName, std::optional<QColor> color)
{
    if (!findSymbol(symbolName))
        return {};
    initSymbolResources();
    return QIcon(new TintedIconEngine(resourcePath(symbolName), std::move(color)));
}

} // namespace

QIcon SymbolIcons::icon(QStringView symbolName)
{
    const SymbolEntry* entry = findSymbol(symbolName);
    if (!entry)
        return {};
    for (QLatin1StringView themeName : entry->themeNames) {
        if (!themeName.isEmpty() && QIcon::hasThemeIcon(themeName))
            return QIcon::fromTheme(themeName);
    }
    return bundledIcon(symbolName, std::nullopt);
}

QIcon SymbolIcons::tinted(QStringView symbolName, const QColor& color)
{
    return bundledIcon(symbolName, color);
}

QStringList SymbolIcons::symbolNames()
{
    QStringList names;
    names.reserve(qsizetype(kSymbols.size()));
    for (const SymbolEntry& entry : kSymbols)
        names.append(entry.symbol);
    return names;
}

QIcon SymbolIcons::appIcon()
{
    initSymbolResources();
    return QIcon(new SvgIconEngine(u":/app/stampix.svg"_s));
}
