#include "labelrender/LabelPreview.h"

#include "labelrender/LabelWarnings.h"
#include "services/ZPLService.h"

LabelPreview LabelPreview::make(const LabelRenderer& renderer, const QString& zplTemplate,
                                const Product* product, int maxLabels)
{
    const ZPLService service;
    LabelPreview preview;
    const std::optional<QString> zpl =
        product ? service.generateZPL(*product, zplTemplate) : service.previewZPL(zplTemplate);
    if (!zpl) {
        preview.failure = ZPLService::labelTooLargeMessage();
        return preview;
    }
    preview.zpl = *zpl;
    preview.rendering = renderer.render(preview.zpl, maxLabels);
    preview.warnings = LabelWarnings::check(zplTemplate, product, preview.rendering);
    return preview;
}
