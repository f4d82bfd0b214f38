#pragma once

#include <QColor>
#include <QIcon>
#include <QStringView>

// The bundled monochrome symbols ("printer.fill", "magnifyingglass", ...),
// named as the windows use them, and the program's own icon.
class SymbolIcons
{
public:
    // The largest size the windows show a symbol at.
    static constexpr int kLargestSize = 48;

    // The symbol in `color`, drawn for `size` pixels at 1x and 2x (smaller
    // sizes are scaled down from those); null for an unknown name.
    static QIcon tinted(QStringView symbolName, const QColor& color, int size = kLargestSize);
    // A label with a barcode.
    static QIcon appIcon();
};
