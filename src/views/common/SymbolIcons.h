#pragma once

#include <QColor>
#include <QIcon>
#include <QStringList>
#include <QStringView>

// Maps the symbol names the windows use ("printer.fill", "magnifyingglass", ...)
// to icons: the desktop's icon theme where it has one, the bundled set otherwise.
class SymbolIcons
{
public:
    static QIcon icon(QStringView symbolName);
    // The bundled monochrome symbol, tinted; for places where the colour matters.
    static QIcon tinted(QStringView symbolName, const QColor& color);
    // Every symbol name that has an icon.
    static QStringList symbolNames();
    // The program's own icon: a label with a barcode.
    static QIcon appIcon();
};
