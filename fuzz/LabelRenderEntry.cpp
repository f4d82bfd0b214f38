#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "LabelInput.h"
#include "labelrender/LabelCanvas.h"
#include "labelrender/LabelPreview.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

// Input layout: see LabelInput.h. The label is filled as printing fills it and
// drawn at 8 and at 24 dots per millimetre.
namespace {

// Fonts need a QGuiApplication; libFuzzer gives the entry no place to make
// one but the first call.
void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz_label_render";
    static char* argv[] = {name, nullptr};
    static QGuiApplication application(argc, argv);
}

void checkBounds(const LabelRenderResult& rendering)
{
    using stampixfuzz::check;
    check(rendering.labels.size() <= LabelRenderer::kMaxLabels, "at most 100 labels drawn");
    check(rendering.labels.size() <= rendering.labelCount, "drawn labels are counted");
    qint64 pixels = 0;
    for (const RenderedLabel& label : rendering.labels) {
        const QSize size = label.sizeDots();
        check(size.width() <= LabelCanvas::kMaxSideDots &&
                  size.height() <= LabelCanvas::kMaxSideDots,
              "a side stays within 4800 dots");
        pixels += qint64(size.width()) * size.height();
        for (const RenderedField& placed : label.fields) {
            const QRect r = placed.bounds;
            check(qAbs(qint64(r.left())) <= 1 << 25 && qAbs(qint64(r.right())) <= 1 << 25 &&
                      qAbs(qint64(r.top())) <= 1 << 25 && qAbs(qint64(r.bottom())) <= 1 << 25,
                  "field bounds stay finite", placed.command);
        }
    }
    check(pixels <= LabelRenderer::kMaxPixels, "at most 64 million pixels drawn");
}

} // namespace

int stampixfuzz::labelRender(const std::uint8_t* data, std::size_t size)
{
    ensureApplication();
    static const LabelRenderer renderers[] = {LabelRenderer(8), LabelRenderer(24)};
    const auto [zplTemplate, product] = LabelInput::read(data, size);
    for (const LabelRenderer& renderer : renderers) {
        const LabelPreview preview = LabelPreview::make(renderer, zplTemplate, &product);
        check(preview.failure.isEmpty() || preview.rendering.labelCount == 0,
              "a label too large to fill is not drawn");
        checkBounds(preview.rendering);
    }
    return 0;
}
