#include "LabelPreview.h"

#include "LabelWarnings.h"
#include "services/ZPLService.h"

LabelPreview LabelPreview::make(const LabelRenderer& renderer, const QString& zplTemplate,
                                const Product* product)
{
    const ZPLService service;
    LabelPreview preview;
    preview.zpl =
        product ? service.generateZPL(*product, zplTemplate) : service.previewZPL(zplTemplate);
    preview.rendering = renderer.render(preview.zpl);
    preview.warnings = LabelWarnings::check(zplTemplate, product, preview.rendering);
    return preview;
}
