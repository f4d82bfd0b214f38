#include "views/common/TintedIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kDisabledOpacity = 0.35;

} // namespace

TintedIconEngine::TintedIconEngine(QString resourcePath, std::optional<QColor> color)
    : SvgIconEngine(std::move(resourcePath)), m_color(std::move(color))
{}

QPixmap TintedIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State)
{
    if (size.isEmpty())
        return {};
    const QColor color = colorFor(mode);
    const QString cacheKey =
        u"tinted:%1:%2:%3x%4"_s.arg(resourcePath(), color.name(QColor::HexArgb))
            .arg(size.width())
            .arg(size.height());
    QPixmap result;
    if (QPixmapCache::find(cacheKey, &result))
        return result;

    result = render(size);
    if (result.isNull())
        return result;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), color);
    painter.end();
    QPixmapCache::insert(cacheKey, result);
    return result;
}

QIconEngine* TintedIconEngine::clone() const
{
    return new TintedIconEngine(resourcePath(), m_color);
}

QString TintedIconEngine::key() const
{
    return u"TintedIconEngine"_s;
}

QColor TintedIconEngine::colorFor(QIcon::Mode mode) const
{
    const QPalette palette = QGuiApplication::palette();
    QColor color = m_color.value_or(palette.color(QPalette::Active, QPalette::WindowText));
    if (!m_color && mode == QIcon::Selected)
        color = palette.color(QPalette::Active, QPalette::HighlightedText);
    if (mode == QIcon::Disabled)
        color.setAlphaF(color.alphaF() * kDisabledOpacity);
    return color;
}
