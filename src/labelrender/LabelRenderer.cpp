#include "LabelRenderer.h"

#include "LabelInterpreter.h"
#include "ZplCommandReader.h"

LabelRenderer::LabelRenderer(int dotsPerMm) : m_dotsPerMm(qBound(1, dotsPerMm, 24)) {}

LabelRenderResult LabelRenderer::render(const QString& zpl) const
{
    LabelInterpreter interpreter(m_dotsPerMm, m_font);
    for (const ZplCommandReader::Command& command : ZplCommandReader::read(zpl))
        interpreter.apply(command);
    return interpreter.finish();
}
