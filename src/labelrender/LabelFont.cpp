#include "labelrender/LabelFont.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMeasureSize = 200;

bool hasFamily(const QString& family)
{
    return QFontDatabase::families().contains(family, Qt::CaseInsensitive);
}

QStringList words(const QString& paragraph)
{
    return paragraph.split(u' ', Qt::SkipEmptyParts);
}

// Greedy word wrap; "\&" forces a new line. Lines past the last one are
// dropped, so wrapping stops there.
template <typename Advance>
QList<QStringList> wrap(const QString& text, int maxLines, int width, qreal space,
                        const Advance& advance)
{
    QList<QStringList> lines;
    for (const QString& paragraph : text.split(u"\\&"_s)) {
        QStringList current;
        qreal used = 0;
        for (const QString& word : words(paragraph)) {
            const qreal extra = current.isEmpty() ? advance(word) : space + advance(word);
            if (!current.isEmpty() && used + extra > width) {
                lines.append(current);
                if (lines.size() == maxLines)
                    return lines;
                current = {word};
                used = advance(word);
            } else {
                current.append(word);
                used += extra;
            }
        }
        lines.append(current);
        if (lines.size() == maxLines)
            return lines;
    }
    return lines;
}

} // namespace

LabelFont::LabelFont()
{
    if (hasFamily(u"Liberation Sans Narrow"_s)) {
        m_base = QFont(u"Liberation Sans Narrow"_s);
    } else if (hasFamily(u"DejaVu Sans"_s)) {
        m_base = QFont(u"DejaVu Sans"_s);
        m_base.setStretch(QFont::Condensed);
        m_note = u"Lettertype Liberation Sans Narrow Bold ontbreekt; tekst in DejaVu Sans "
                 u"Condensed Bold."_s;
    } else {
        m_base = QFont();
        m_base.setStyleHint(QFont::SansSerif);
        m_note = u"Lettertype Liberation Sans Narrow Bold ontbreekt; tekst in %1."_s.arg(
            QFontInfo(m_base).family());
    }
    m_base.setBold(true);
    m_base.setStyleStrategy(QFont::NoAntialias);
    m_base.setHintingPreference(QFont::PreferNoHinting);
    QFont probe = m_base;
    probe.setPixelSize(kMeasureSize);
    const QFontMetricsF metrics(probe);
    m_cellPerPixel = (metrics.ascent() + metrics.descent()) / kMeasureSize;
    m_ascentPerPixel = metrics.ascent() / kMeasureSize;
}

QFont LabelFont::fontForPixelSize(int pixelSize) const
{
    QFont font = m_base;
    font.setPixelSize(qMax(1, pixelSize));
    return font;
}

LabelFont::Cell LabelFont::cell(int height, int width) const
{
    height = qMax(1, height);
    const int pixelSize = qMax(1, qRound(height / m_cellPerPixel));
    Cell cell{fontForPixelSize(pixelSize), width > 0 ? qreal(width) / height : 1.0,
              pixelSize * m_ascentPerPixel};
    return cell;
}

FieldGraphic LabelFont::line(const QString& text, int height, int width) const
{
    const Cell c = cell(height, width);
    const qreal advance = QFontMetricsF(c.font).horizontalAdvance(text) * c.stretch;
    FieldGraphic graphic;
    graphic.size = QSizeF(advance, qMax(1, height));
    graphic.baseline = c.ascent;
    graphic.ink = QRectF(QPointF(0, 0), graphic.size);
    graphic.paint = [c, text](QPainter& painter) {
        painter.setFont(c.font);
        painter.scale(c.stretch, 1);
        painter.drawText(QPointF(0, c.ascent), text);
    };
    return graphic;
}

FieldGraphic LabelFont::block(const QString& text, int height, int width, const Block& block) const
{
    const Cell c = cell(height, width);
    const QFontMetricsF metrics(c.font);
    const qreal space = metrics.horizontalAdvance(u' ') * c.stretch;
    auto advance = [&](const QString& s) {
        return metrics.horizontalAdvance(s) * c.stretch;
    };

    const int maxLines = qMax(1, block.maxLines);
    const QList<QStringList> lines = wrap(text, maxLines, block.width, space, advance);

    const qreal pitch = qMax(1, height) + block.lineSpacing;
    struct Word
    {
        QPointF at;
        QString text;
    };
    QList<Word> placed;
    for (qsizetype row = 0; row < lines.size(); ++row) {
        const QStringList& line = lines.at(row);
        qreal wordsWidth = 0;
        for (const QString& word : line)
            wordsWidth += advance(word);
        const qreal natural = wordsWidth + space * qMax<qsizetype>(0, line.size() - 1);
        qreal x = 0;
        qreal gap = space;
        if (block.justification == Justification::Center)
            x = (block.width - natural) / 2;
        else if (block.justification == Justification::Right)
            x = block.width - natural;
        else if (block.justification == Justification::Justified && row + 1 < lines.size() &&
                 line.size() > 1)
            gap = (block.width - wordsWidth) / (line.size() - 1);
        for (const QString& word : line) {
            placed.append({QPointF(x / c.stretch, row * pitch + c.ascent), word});
            x += advance(word) + gap;
        }
    }

    FieldGraphic graphic;
    graphic.size = QSizeF(block.width, maxLines * pitch - block.lineSpacing);
    graphic.baseline = (maxLines - 1) * pitch + c.ascent;
    graphic.ink = QRectF(0, 0, block.width, lines.size() * pitch - block.lineSpacing);
    graphic.paint = [c, placed](QPainter& painter) {
        painter.setFont(c.font);
        painter.scale(c.stretch, 1);
        for (const Word& word : placed)
            painter.drawText(word.at, word.text);
    };
    return graphic;
}
