#pragma once

#include "labelrender/FieldGraphic.h"
#include "labelrender/LabelRenderResult.h"
#include "labelrender/PlacedField.h"

#include <optional>

// Paints placed fields into a label picture and draws ^GB boxes.
class LabelCanvas
{
public:
    struct Size
    {
        QSize dots;
        bool widthKnown = false;
        bool lengthKnown = false;
        bool shortened = false; // a side passed kMaxSideDots
    };
    // Larger labels would take hundreds of megabytes for a picture.
    static constexpr int kMaxSideDots = 4800;

    // `width` by `length` dots when they are known; otherwise the drawn area
    // plus a margin.
    static Size size(const QList<PlacedField>& placed, int dotsPerMm, std::optional<int> width,
                     std::optional<int> length);
    static RenderedLabel paint(const QList<PlacedField>& placed, int dotsPerMm, const Size& size);

    static FieldGraphic box(int width, int height, int thickness, int rounding);
};
