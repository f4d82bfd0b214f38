#pragma once

#include "labelrender/LabelRenderResult.h"
#include "services/Product.h"

#include <QString>
#include <QStringList>

// Short Dutch warnings about what will print differently from what the user
// expects. They come beside the template engine's validation messages and
// never replace them.
class LabelWarnings
{
public:
    // `product`: the values that fill the template, as printing fills it;
    // nullptr for the sample values of the preview. `rendering`: the filled
    // label as LabelRenderer drew it.
    static QStringList check(const QString& zplTemplate, const Product* product,
                             const LabelRenderResult& rendering);
};
