#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

// One field as it was placed on the label: the command that drew it ("^FD"
// for text, "^GB", "^BE", "^BC", ...), its bounds in dots, and its data after
// ^FH and ^CI decoding, before any barcode adds a check digit.
struct RenderedField
{
    QString command;
    QRect bounds;
    QString data;
};

// One ^XA...^XZ label. The image is RGB32 holding only pure black and pure
// white pixels, one pixel per printer dot.
struct RenderedLabel
{
    QImage image;
    int dotsPerMm = 8;
    bool widthKnown = false;  // ^PW was given
    bool lengthKnown = false; // ^LL was given
    QList<RenderedField> fields;

    QSize sizeDots() const { return image.size(); }
    bool sizeKnown() const { return widthKnown && lengthKnown; }
};

struct LabelRenderResult
{
    QList<RenderedLabel> labels; // the first labels of the text, as many as were drawn
    qsizetype labelCount = 0;    // labels in the text, drawn or not
    // Commands seen but not drawn ("^PQ", "~SD", ...), each once, in order.
    QStringList commandsNotDrawn;
    // Dutch remarks on how the picture differs from print: font substitutes,
    // an unknown label size, barcodes that could not be made.
    QStringList notes;
    // What the render left out to stay within its bounds, each once, in Dutch
    // ("Alleen de eerste 100 etiketten getoond."). Empty when nothing was cut.
    QStringList cuts;
};
