#include "Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QWidget>

namespace {

// Mixes `over` onto `base` with the given weight of `over`, opaque result.
QColor blend(const QColor& base, const QColor& over, qreal weight)
{
    const qreal keep = 1.0 - weight;
    return QColor::fromRgbF(base.redF() * keep + over.redF() * weight,
                            base.greenF() * keep + over.greenF() * weight,
                            base.blueF() * keep + over.blueF() * weight);
}

} // namespace

QColor Theme::windowBackground(const QPalette& palette)
{
    return palette.color(QPalette::Window);
}

QColor Theme::controlBackground(const QPalette& palette)
{
    return palette.color(QPalette::Base);
}

QColor Theme::primaryText(const QPalette& palette)
{
    return palette.color(QPalette::WindowText);
}

QColor Theme::secondaryText(const QPalette& palette)
{
    return blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.55);
}

QColor Theme::separator(const QPalette& palette)
{
    return blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.16);
}

QColor Theme::accent(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::Highlight);
}

QColor Theme::green()
{
    return QColor(52, 199, 89);
}

QColor Theme::red()
{
    return QColor(255, 59, 48);
}

QColor Theme::orange()
{
    return QColor(255, 149, 0);
}

QColor Theme::blue()
{
    return QColor(0, 122, 255);
}

QColor Theme::badgeGreen()
{
    return QColor::fromRgb(65, 195, 145);
}

QPalette Theme::inheritedPalette(const QWidget* widget)
{
    const QWidget* parent = widget ? widget->parentWidget() : nullptr;
    return parent ? parent->palette() : QApplication::palette();
}

QFont Theme::systemFont(int pixelSize, QFont::Weight weight)
{
    QFont font = QApplication::font();
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

QFont Theme::monospaced(int pixelSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(pixelSize);
    return font;
}

QFont Theme::caption()
{
    return systemFont(10);
}

QFont Theme::body()
{
    return systemFont(13);
}

QFont Theme::headline()
{
    return systemFont(13, QFont::Bold);
}

QFont Theme::subheadline()
{
    return systemFont(11);
}

QFont Theme::title2()
{
    return systemFont(17);
}
