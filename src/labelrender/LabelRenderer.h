#pragma once

#include "labelrender/LabelFont.h"
#include "labelrender/LabelRenderResult.h"

#include <QString>

// Draws ZPL labels as the printer would print them, one pixel per dot, black
// on white, offline. Text uses a condensed bold sans face for every font name
// (font 0 is the printer's own condensed bold face); barcodes come from zint.
//
// Drawn: ^XA ^XZ ^FO ^FT ^LH ^PW ^LL ^CF ^A ^FW ^FD ^FS ^FB ^FR ^GB ^FH ^CI
// ^BY ^BC ^BE ^B8 ^BU ^B3 ^BQ ^BX ^FX. Every other command is listed in the
// result's commandsNotDrawn.
//
// Field bytes are the UTF-8 of the text (what the printer transport sends):
// with ^CI28 they read as UTF-8, otherwise byte by byte as Latin-1, so
// accented letters come out garbled as they do on the printer.
//
// Needs a QGuiApplication (fonts). Not thread-safe; one renderer per thread.
class LabelRenderer
{
public:
    static constexpr int kDefaultDotsPerMm = 8;
    // Bounds of one render, whatever the text: a thousand ^XZ in a few
    // kilobytes would otherwise ask for gigabytes of pictures.
    static constexpr int kMaxLabels = 100;
    static constexpr qint64 kMaxPixels = 64'000'000;
    // A real label has tens of fields; a barcode costs tens of microseconds.
    static constexpr int kMaxFields = 2'000;

    // dotsPerMm: 6, 8, 12 or 24 (203, 300 and 600 dpi printers: 8, 12, 24).
    // Any other value draws at 8 and says so in every result's notes.
    explicit LabelRenderer(int dotsPerMm = kDefaultDotsPerMm);

    static bool isSupportedDotsPerMm(int dotsPerMm);

    int dotsPerMm() const { return m_dotsPerMm; }

    // One image per ^XA...^XZ label in the text, for the first `maxLabels`
    // (at most kMaxLabels) and as far as kMaxPixels reach; the result's cuts
    // say when the bounds left labels out.
    LabelRenderResult render(const QString& zpl, int maxLabels = kMaxLabels) const;

private:
    int m_dotsPerMm;
    int m_requestedDotsPerMm;
    LabelFont m_font;
};
