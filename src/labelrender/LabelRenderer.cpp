#include "labelrender/LabelRenderer.h"

#include "labelrender/LabelInterpreter.h"
#include "labelrender/ZplCommandReader.h"

using namespace Qt::StringLiterals;

LabelRenderer::LabelRenderer(int dotsPerMm)
    : m_dotsPerMm(isSupportedDotsPerMm(dotsPerMm) ? dotsPerMm : kDefaultDotsPerMm),
      m_requestedDotsPerMm(dotsPerMm)
{}

bool LabelRenderer::isSupportedDotsPerMm(int dotsPerMm)
{
    return dotsPerMm == 6 || dotsPerMm == 8 || dotsPerMm == 12 || dotsPerMm == 24;
}

LabelRenderResult LabelRenderer::render(const QString& zpl, int maxLabels) const
{
    LabelInterpreter interpreter(m_dotsPerMm, m_font, qBound(0, maxLabels, kMaxLabels));
    for (const ZplCommandReader::Command& command : ZplCommandReader::read(zpl))
        interpreter.apply(command);
    LabelRenderResult result = interpreter.finish();
    if (m_requestedDotsPerMm != m_dotsPerMm)
        result.notes.prepend(
            u"Geen printer met %1 punten per mm; getekend met %2."_s.arg(m_requestedDotsPerMm)
                .arg(m_dotsPerMm));
    return result;
}
