#include "views/common/SvgIconEngine.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

SvgIconEngine::SvgIconEngine(QString resourcePath) : m_resourcePath(std::move(resourcePath)) {}

void SvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State state)
{
    const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
    QPixmap image = pixmap(rect.size() * ratio, mode, state);
    image.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, image);
}

QPixmap SvgIconEngine::pixmap(const QSize& size, QIcon::Mode, QIcon::State)
{
    const QString cacheKey =
        u"svg:%1:%2x%3"_s.arg(m_resourcePath).arg(size.width()).arg(size.height());
    QPixmap result;
    if (QPixmapCache::find(cacheKey, &result))
        return result;
    result = render(size);
    QPixmapCache::insert(cacheKey, result);
    return result;
}

QIconEngine* SvgIconEngine::clone() const
{
    return new SvgIconEngine(m_resourcePath);
}

QString SvgIconEngine::key() const
{
    return u"SvgIconEngine"_s;
}

bool SvgIconEngine::isNull()
{
    return !QFile::exists(m_resourcePath);
}

QPixmap SvgIconEngine::render(const QSize& size) const
{
    QSvgRenderer renderer(m_resourcePath);
    if (!renderer.isValid() || size.isEmpty())
        return {};
    const QSize fitted = renderer.defaultSize().scaled(size, Qt::KeepAspectRatio);
    if (fitted.isEmpty())
        return {};
    QImage image(fitted, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}
