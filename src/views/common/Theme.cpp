#include "views/common/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <cmath>

namespace {

double relativeLuminance(const QColor& color)
{
    const auto linear = [](qreal channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// Readable on every background text is put on.
QColor readableOnAll(QColor color, const QPalette& palette)
{
    for (const QPalette::ColorRole role :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        color = Theme::readableOn(color, palette.color(role));
    return color;
}

} // namespace

Theme::Theme(QApplication& application)
{
    application.installEventFilter(this);
    QApplication::setPalette(withRoles(QApplication::palette()));
}

bool Theme::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) {
        // Setting it sends the event again, then with nothing left to change.
        const QPalette palette = withRoles(QApplication::palette());
        if (palette != QApplication::palette())
            QApplication::setPalette(palette);
    }
    return QObject::eventFilter(watched, event);
}

QPalette Theme::withRoles(QPalette palette)
{
    palette.setColor(kSecondaryText, secondaryText(palette));
    palette.setColor(kSuccessText, green(palette));
    palette.setColor(kErrorText, errorText(palette));
    return palette;
}

QLabel* Theme::label(const QString& text, const QFont& font, QPalette::ColorRole role,
                     QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setFont(font);
    label->setForegroundRole(role);
    return label;
}

QColor Theme::blend(const QColor& base, const QColor& over, qreal weight)
{
    const qreal keep = 1.0 - weight;
    return QColor::fromRgbF(base.redF() * keep + over.redF() * weight,
                            base.greenF() * keep + over.greenF() * weight,
                            base.blueF() * keep + over.blueF() * weight);
}

QColor Theme::readableOn(const QColor& color, const QColor& background)
{
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const QColor extreme =
        contrastRatio(black, background) >= contrastRatio(white, background) ? black : white;
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor candidate = blend(color, extreme, qreal(step) / kSteps);
        if (contrastRatio(candidate, background) >= kMinimumContrast)
            return candidate;
    }
    return extreme;
}

double Theme::contrastRatio(const QColor& first, const QColor& second)
{
    const double a = relativeLuminance(first);
    const double b = relativeLuminance(second);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QColor Theme::controlBackground(const QPalette& palette)
{
    return palette.color(QPalette::Base);
}

QColor Theme::secondaryText(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Window);
    return readableOn(blend(window, palette.color(QPalette::WindowText), 0.55), window);
}

QColor Theme::separator(const QPalette& palette)
{
    return blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.16);
}

QColor Theme::accent(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::Highlight);
}

QColor Theme::green(const QPalette& palette)
{
    return readableOnAll(QColor(52, 199, 89), palette);
}

QColor Theme::red()
{
    return QColor(255, 59, 48);
}

QColor Theme::errorText(const QPalette& palette)
{
    return readableOnAll(red(), palette);
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
