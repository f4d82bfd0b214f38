#pragma once

#include "labelrender/FieldGraphic.h"

#include <QFont>
#include <QString>

// The printer's scalable font 0, played by a condensed bold sans face from
// the system's fonts. Needs a QGuiApplication.
class LabelFont
{
public:
    enum class Justification
    {
        Left,
        Center,
        Right,
        Justified
    };

    struct Block // ^FB
    {
        int width = 0;
        int maxLines = 1;
        int lineSpacing = 0;
        Justification justification = Justification::Left;
    };

    LabelFont();

    // Empty when the preferred face was found; otherwise a Dutch note.
    QString substitutionNote() const { return m_note; }
    QString family() const { return m_base.family(); }

    // A text in cells of `height` by `width` dots (width 0: the height).
    FieldGraphic line(const QString& text, int height, int width) const;
    FieldGraphic block(const QString& text, int height, int width, const Block& block) const;
    // Plain glyph drawing for barcode interpretation lines.
    QFont fontForPixelSize(int pixelSize) const;

private:
    struct Cell
    {
        QFont font;
        qreal stretch = 1;
        qreal ascent = 0;
    };
    Cell cell(int height, int width) const;

    QFont m_base;
    qreal m_cellPerPixel = 1; // (ascent + descent) / pixel size
    qreal m_ascentPerPixel = 1;
    QString m_note;
};
