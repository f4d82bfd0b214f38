#pragma once

#include <QPainter>
#include <QRectF>
#include <functional>

// What one field draws, in its own unrotated frame with the origin at the
// top left, in dots. The label places it by its field origin and orientation.
struct FieldGraphic
{
    QSizeF size;        // the frame ^FO aligns with its top-left corner
    qreal baseline = 0; // height of the point ^FT puts at its origin
    QRectF ink;         // what is actually drawn
    std::function<void(QPainter&)> paint;
};
