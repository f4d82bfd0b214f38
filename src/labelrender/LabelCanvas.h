#pragma once

#include "FieldGraphic.h"
#include "LabelRenderResult.h"
#include "PlacedField.h"

#include <optional>

// Paints placed fields into a label picture and draws ^GB boxes.
class LabelCanvas
{
public:
    // The picture is `width` by `length` dots when they are known; otherwise
    // it takes the drawn area plus a margin and says so in `notes`.
    static RenderedLabel paint(const QList<PlacedField>& placed, int dotsPerMm,
                               std::optional<int> width, std::optional<int> length,
                               QStringList* notes);

    static FieldGraphic box(int width, int height, int thickness, int rounding);
};
