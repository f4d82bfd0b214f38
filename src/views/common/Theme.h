#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

class QApplication;
class QLabel;
class QWidget;

// Named colours and text styles, taken from the palette so light and dark both
// work (sizes in device-independent pixels). An instance gives the application's
// palette the roles below, again after every change, so widgets only name a role.
class Theme : public QObject
{
    Q_OBJECT

public:
    // Primary text is WindowText and the accent Highlight, as the desktop has them.
    static constexpr QPalette::ColorRole kSecondaryText = QPalette::PlaceholderText;
    // Labels never paint these two on their own (no links, no pressed buttons).
    static constexpr QPalette::ColorRole kSuccessText = QPalette::LinkVisited;
    static constexpr QPalette::ColorRole kErrorText = QPalette::BrightText;
    // A line or an outline is the text colour at this opacity.
    static constexpr qreal kSeparatorOpacity = 0.16;

    explicit Theme(QApplication& application);
    static QLabel* label(const QString& text, const QFont& font,
                         QPalette::ColorRole role = QPalette::WindowText,
                         QWidget* parent = nullptr);

    static QColor secondaryText(const QPalette& palette);
    // Green and red for text and symbols, darkened or lightened as far as it
    // takes to read on the window, the fields and the cards.
    static QColor green(const QPalette& palette);
    static QColor errorText(const QPalette& palette);
    static QColor red() { return {255, 59, 48}; }
    static QColor orange() { return {255, 149, 0}; }
    static QColor blue() { return {0, 122, 255}; }

    static QFont systemFont(int pixelSize, QFont::Weight weight = QFont::Normal);
    static QFont monospaced(int pixelSize);
    static QFont caption() { return systemFont(10); }
    static QFont body() { return systemFont(13); }
    static QFont headline() { return systemFont(13, QFont::Bold); }
    static QFont subheadline() { return systemFont(11); }

    // The contrast ratio of two colours as accessibility guidelines define it (1 to 21).
    static double contrastRatio(const QColor& first, const QColor& second);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void reapplyStyleSheets();
};
