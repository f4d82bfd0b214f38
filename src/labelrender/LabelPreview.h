#pragma once

#include "labelrender/LabelRenderResult.h"
#include "labelrender/LabelRenderer.h"
#include "services/Product.h"

#include <QString>
#include <QStringList>

// A template filled as printing fills it (or with the sample values), drawn,
// and checked: what a preview panel or the render tool shows.
struct LabelPreview
{
    QString zpl; // the filled label text
    // Why nothing was drawn: the label could not be filled within its bound.
    // Empty otherwise.
    QString failure;
    LabelRenderResult rendering;
    QStringList warnings; // LabelWarnings for this template and values

    // `product` nullptr: the sample values, as ZPLService::previewZPL fills.
    // `maxLabels`: how many labels of the text to draw; the rest are counted.
    static LabelPreview make(const LabelRenderer& renderer, const QString& zplTemplate,
                             const Product* product = nullptr,
                             int maxLabels = LabelRenderer::kMaxLabels);
};
