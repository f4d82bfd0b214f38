#include "views/common/SymbolIcons.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <array>

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

constexpr qreal kDisabledOpacity = 0.35;

struct SymbolEntry
{
    QLatin1StringView symbol;
    // The freedesktop icon name; empty when no standard name fits.
    QLatin1StringView themeName;
};

// clang-format off
constexpr std::array kSymbols{
    SymbolEntry{"folder.badge.gearshape"_L1, {}},
    SymbolEntry{"magnifyingglass"_L1, "edit-find"_L1},
    SymbolEntry{"cube.box"_L1, "package-x-generic"_L1},
    SymbolEntry{"checkmark.circle.fill"_L1, {}},
    SymbolEntry{"printer.fill"_L1, "document-print"_L1},
    SymbolEntry{"printer"_L1, "printer"_L1},
    SymbolEntry{"xmark"_L1, "window-close"_L1},
    SymbolEntry{"xmark.circle.fill"_L1, "edit-clear"_L1},
    SymbolEntry{"arrow.clockwise"_L1, "view-refresh"_L1},
    SymbolEntry{"checkmark.square.fill"_L1, {}},
    SymbolEntry{"square"_L1, {}},
    SymbolEntry{"gear"_L1, "preferences-system"_L1},
    SymbolEntry{"folder"_L1, "folder"_L1},
    SymbolEntry{"folder.fill"_L1, "folder"_L1},
    SymbolEntry{"doc.text"_L1, "text-x-generic"_L1},
    SymbolEntry{"doc.text.fill"_L1, "text-x-generic"_L1},
    SymbolEntry{"chevron.down"_L1, {}},
    SymbolEntry{"chevron.right"_L1, {}},
    SymbolEntry{"plus"_L1, "list-add"_L1},
    SymbolEntry{"info.circle"_L1, "dialog-information"_L1},
    SymbolEntry{"info.circle.fill"_L1, "dialog-information"_L1},
    SymbolEntry{"tag"_L1, {}},
    SymbolEntry{"key.fill"_L1, "dialog-password"_L1},
    SymbolEntry{"calendar"_L1, "x-office-calendar"_L1},
    SymbolEntry{"network"_L1, "network-wired"_L1},
    SymbolEntry{"number"_L1, {}},
    SymbolEntry{"trash"_L1, "user-trash"_L1},
    SymbolEntry{"exclamationmark.triangle.fill"_L1, "dialog-warning"_L1},
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

// The picture fitted into side by side pixels, on transparency. Qt SVG draws
// it directly, so no icon engine plugin is looked up or loaded at start-up.
QImage render(QSvgRenderer& renderer, int side)
{
    QImage image(renderer.defaultSize().scaled(side, side, Qt::KeepAspectRatio),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

QPixmap tint(QImage shape, const QColor& color, int scale)
{
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), color);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(std::move(shape));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

// The symbol in `color`, in `selected` on a selected item, faded when disabled.
QIcon bundledIcon(QStringView symbolName, int size, const QColor& color, const QColor& selected)
{
    if (!findSymbol(symbolName) || size <= 0)
        return {};
    initSymbolResources();
    QSvgRenderer renderer(u":/symbols/%1.svg"_s.arg(symbolName));
    QColor faded = color;
    faded.setAlphaF(color.alphaF() * kDisabledOpacity);
    QIcon icon;
    for (int scale : {1, 2}) {
        const QImage shape = render(renderer, size * scale);
        icon.addPixmap(tint(shape, color, scale), QIcon::Normal);
        icon.addPixmap(tint(shape, selected, scale), QIcon::Selected);
        icon.addPixmap(tint(shape, faded, scale), QIcon::Disabled);
    }
    return icon;
}

} // namespace

QIcon SymbolIcons::icon(QStringView symbolName, int size)
{
    const SymbolEntry* entry = findSymbol(symbolName);
    if (!entry)
        return {};
    const QPalette palette = QGuiApplication::palette();
    const QIcon bundled =
        bundledIcon(symbolName, size, palette.color(QPalette::Active, QPalette::WindowText),
                    palette.color(QPalette::Active, QPalette::HighlightedText));
    return entry->themeName.isEmpty() ? bundled : QIcon::fromTheme(entry->themeName, bundled);
}

QIcon SymbolIcons::tinted(QStringView symbolName, const QColor& color, int size)
{
    return bundledIcon(symbolName, size, color, color);
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
    QSvgRenderer renderer(u":/app/stampix.svg"_s);
    QIcon icon;
    // The sizes desktops ask for, up to the About window's 100 pixels at 2x.
    for (int side : {16, 32, 64, 128, 256})
        icon.addPixmap(QPixmap::fromImage(render(renderer, side)));
    return icon;
}
