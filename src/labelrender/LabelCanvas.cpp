#include "labelrender/LabelCanvas.h"

#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMarginMm = 2;

} // namespace

LabelCanvas::Size LabelCanvas::size(const QList<PlacedField>& placed, int dotsPerMm,
                                    std::optional<int> width, std::optional<int> length)
{
    QRect drawn;
    for (const PlacedField& field : placed)
        drawn |= field.field.bounds;
    const int margin = kMarginMm * dotsPerMm;
    Size size;
    size.widthKnown = width.has_value();
    size.lengthKnown = length.has_value();
    // Field bounds stay far inside int, so the sums cannot overflow.
    size.dots = QSize(width.value_or(qMax(0, drawn.right() + 1) + margin),
                      length.value_or(qMax(0, drawn.bottom() + 1) + margin));
    if (size.dots.width() > kMaxSideDots || size.dots.height() > kMaxSideDots) {
        size.dots = size.dots.boundedTo(QSize(kMaxSideDots, kMaxSideDots));
        size.shortened = true;
    }
    return size;
}

RenderedLabel LabelCanvas::paint(const QList<PlacedField>& placed, int dotsPerMm, const Size& size)
{
    RenderedLabel label;
    label.dotsPerMm = dotsPerMm;
    label.widthKnown = size.widthKnown;
    label.lengthKnown = size.lengthKnown;
    label.image = QImage(size.dots, QImage::Format_RGB32);
    label.image.fill(Qt::white);
    QPainter painter(&label.image);
    for (const PlacedField& field : placed) {
        label.fields.append(field.field);
        painter.setTransform(field.transform);
        const bool inverts = field.reverse;
        painter.setCompositionMode(inverts ? QPainter::RasterOp_SourceXorDestination
                                           : QPainter::CompositionMode_SourceOver);
        const QColor colour = inverts || field.white ? Qt::white : Qt::black;
        painter.setPen(colour);
        painter.setBrush(colour);
        field.graphic.paint(painter);
    }
    return label;
}

FieldGraphic LabelCanvas::box(int width, int height, int thickness, int rounding)
{
    FieldGraphic graphic;
    graphic.size = QSizeF(width, height);
    graphic.baseline = height;
    graphic.ink = QRectF(0, 0, width, height);
    const QRectF outer(0, 0, width, height);
    if (rounding == 0) {
        graphic.paint = [outer, thickness](QPainter& painter) {
            const QColor colour = painter.pen().color();
            const qreal t = thickness;
            if (2 * t >= outer.width() || 2 * t >= outer.height()) {
                painter.fillRect(outer, colour);
                return;
            }
            painter.fillRect(QRectF(0, 0, outer.width(), t), colour);
            painter.fillRect(QRectF(0, outer.height() - t, outer.width(), t), colour);
            painter.fillRect(QRectF(0, t, t, outer.height() - 2 * t), colour);
            painter.fillRect(QRectF(outer.width() - t, t, t, outer.height() - 2 * t), colour);
        };
        return graphic;
    }
    // Rounding 1..8 takes up to half the shorter side as corner radius.
    const qreal radius = rounding * qMin(width, height) / 16.0;
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addRoundedRect(outer, radius, radius);
    const QRectF inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
    if (inner.width() > 0 && inner.height() > 0) {
        const qreal innerRadius = qMax<qreal>(0, radius - thickness);
        path.addRoundedRect(inner, innerRadius, innerRadius);
    }
    graphic.paint = [path](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.drawPath(path);
    };
    return graphic;
}
