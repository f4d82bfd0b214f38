#include "views/common/SymbolIcons.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

// The icons live in a static library; nothing else pulls their registration in.
int qInitResources_symbols();

static void initSymbolResources()
{
    [[maybe_unused]] static const int registered = qInitResources_symbols();
}

namespace {

constexpr qreal kDisabledOpacity = 0.35;

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

} // namespace

QIcon SymbolIcons::tinted(QStringView symbolName, const QColor& color, int size)
{
    initSymbolResources();
    QSvgRenderer renderer(u":/symbols/%1.svg"_s.arg(symbolName));
    if (!renderer.isValid() || size <= 0)
        return {};
    QColor faded = color;
    faded.setAlphaF(color.alphaF() * kDisabledOpacity);
    QIcon icon;
    for (int scale : {1, 2}) {
        const QImage shape = render(renderer, size * scale);
        icon.addPixmap(tint(shape, color, scale), QIcon::Normal);
        // Else a style would tint a selected one in its own way.
        icon.addPixmap(tint(shape, color, scale), QIcon::Selected);
        icon.addPixmap(tint(shape, faded, scale), QIcon::Disabled);
    }
    return icon;
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
