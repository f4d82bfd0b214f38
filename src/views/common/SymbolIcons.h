#pragma once

#include <QColor>
#include <QIcon>
#include <QStringList>
#include <QStringView>

// Maps the symbol names the windows use ("printer.fill", "magnifyingglass", ...)
// to icons: the desktop's icon theme where it has one, the bundled set otherwise.
// Bundled symbols are drawn for `size` pixels at 1x and 2x; smaller sizes are
// scaled down from those.
class SymbolIcons
{
public:
    // The largest size the windows show a symbol at.
    static constexpr int kLargestSize = 48;

    // The bundled fallback follows the application palette's text colour at the time of the call.
    static QIcon icon(QStringView symbolName, int size = kLargestSize);
    // The bundled monochrome symbol, tinted; for places where the colour matters.
    static QIcon tinted(QStringView symbolName, const QColor& color, int size = kLargestSize);
    // Every symbol name that has an icon.
    static QStringList symbolNames();
    // The program's own icon: a label with a barcode.
    static QIcon appIcon();
};
