#include "views/common/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <cmath>

namespace {

// Text colours keep at least this contrast against their background.
constexpr double kMinimumContrast = 4.5;

double relativeLuminance(const QColor& color)
{
    const auto linear = [](qreal channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

// `over` mixed onto `base` with the given weight of `over`; opaque.
QColor blend(const QColor& base, const QColor& over, qreal weight)
{
    const qreal keep = 1.0 - weight;
    return QColor::fromRgbF(base.redF() * keep + over.redF() * weight,
                            base.greenF() * keep + over.greenF() * weight,
                            base.blueF() * keep + over.blueF() * weight);
}

// `color`, moved towards black or white (whichever stands out more from
// `background`) just far enough to reach the minimum contrast.
QColor readableOn(const QColor& color, const QColor& background)
{
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const QColor extreme =
        Theme::contrastRatio(black, background) >= Theme::contrastRatio(white, background) ? black
                                                                                           : white;
    constexpr int kSteps = 20;
    for (int step = 0; step < kSteps; ++step) {
        const QColor candidate = blend(color, extreme, qreal(step) / kSteps);
        if (Theme::contrastRatio(candidate, background) >= kMinimumContrast)
            return candidate;
    }
    return extreme;
}

// Readable on every background text is put on.
QColor readableOnAll(QColor color, const QPalette& palette)
{
    for (const QPalette::ColorRole role :
         {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        color = readableOn(color, palette.color(role));
    return color;
}

QPalette withRoles(QPalette palette)
{
    palette.setColor(Theme::kSecondaryText, Theme::secondaryText(palette));
    palette.setColor(Theme::kSuccessText, Theme::green(palette));
    palette.setColor(Theme::kErrorText, Theme::errorText(palette));
    return palette;
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
        else
            QMetaObject::invokeMethod(this, &Theme::reapplyStyleSheets, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void Theme::reapplyStyleSheets()
{
    // A style sheet takes its palette colours when it is applied, and a palette
    // that spreads passes the widgets that have one by. Queued, so that every
    // other widget has its new palette by then.
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* widget : widgets) {
        if (!widget->styleSheet().isEmpty())
            widget->setStyleSheet(widget->styleSheet());
    }
}

QLabel* Theme::label(const QString& text, const QFont& font, QPalette::ColorRole role,
                     QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setFont(font);
    label->setForegroundRole(role);
    return label;
}

double Theme::contrastRatio(const QColor& first, const QColor& second)
{
    const double a = relativeLuminance(first);
    const double b = relativeLuminance(second);
    return (qMax(a, b) + 0.05) / (qMin(a, b) + 0.05);
}

QColor Theme::secondaryText(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Window);
    return readableOn(blend(window, palette.color(QPalette::WindowText), 0.55), window);
}

QColor Theme::green(const QPalette& palette)
{
    return readableOnAll(QColor(52, 199, 89), palette);
}

QColor Theme::errorText(const QPalette& palette)
{
    return readableOnAll(red(), palette);
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
