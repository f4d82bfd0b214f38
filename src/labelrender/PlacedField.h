#pragma once

#include "labelrender/FieldGraphic.h"
#include "labelrender/LabelRenderResult.h"

#include <QTransform>

// A field's graphic with its place on the label.
struct PlacedField
{
    RenderedField field;
    FieldGraphic graphic;
    QTransform transform; // field frame to label dots
    bool reverse = false; // ^FR: inverts what lies below
    bool white = false;   // ^GB colour W
};
