#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

class QApplication;
class QLabel;
class QWidget;

// Named colours and text styles of the desktop, taken from the palette so
// that light and dark themes both work. Sizes are device-independent pixels.
// An instance gives the application's palette the roles below, at once and
// again after every palette change, so widgets only name a role.
class Theme : public QObject
{
    Q_OBJECT

public:
    // A colour that follows the palette it is read from (Theme::secondaryText, ...).
    using PaletteColor = QColor (*)(const QPalette& palette);

    // Primary text is WindowText and the accent Highlight, as the desktop has them.
    static constexpr QPalette::ColorRole kSecondaryText = QPalette::PlaceholderText;
    // Labels never paint these two on their own (no links, no pressed buttons).
    static constexpr QPalette::ColorRole kSuccessText = QPalette::LinkVisited;
    static constexpr QPalette::ColorRole kErrorText = QPalette::BrightText;

    explicit Theme(QApplication& application);
    // `palette` with the roles above taken from its own colours.
    static QPalette withRoles(QPalette palette);
    // A label in a text style and colour role.
    static QLabel* label(const QString& text, const QFont& font,
                         QPalette::ColorRole role = QPalette::WindowText,
                         QWidget* parent = nullptr);

    static QColor controlBackground(const QPalette& palette);
    static QColor secondaryText(const QPalette& palette);
    static QColor separator(const QPalette& palette);
    static QColor accent(const QPalette& palette);
    // Green and red for text and symbols, darkened or lightened as far as it
    // takes to read on the window, the fields and the cards.
    static QColor green(const QPalette& palette);
    static QColor errorText(const QPalette& palette);
    static QColor red();
    static QColor orange();
    static QColor blue();
    static QColor badgeGreen(); // sRGB 65, 195, 145: the checked badge

    static QFont systemFont(int pixelSize, QFont::Weight weight = QFont::Normal);
    static QFont monospaced(int pixelSize);
    static QFont caption();     // 10 px
    static QFont body();        // 13 px
    static QFont headline();    // 13 px bold
    static QFont subheadline(); // 11 px
    static QFont title2();      // 17 px

    // Text colours keep at least this contrast against their background.
    static constexpr double kMinimumContrast = 4.5;
    // The contrast ratio of two colours as accessibility guidelines define it (1 to 21).
    static double contrastRatio(const QColor& first, const QColor& second);
    // `color`, moved towards black or white (whichever stands out more from
    // `background`) just far enough to reach the minimum contrast.
    static QColor readableOn(const QColor& color, const QColor& background);
    // Mixes `over` onto `base` with the given weight of `over`; opaque.
    static QColor blend(const QColor& base, const QColor& over, qreal weight);

    // The palette a themed child should read its colours from: its parent's,
    // since the child's own palette carries the colour it was given.
    static QPalette inheritedPalette(const QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
