#pragma once

#include "views/common/SvgIconEngine.h"

#include <QColor>
#include <optional>

// Draws a monochrome SVG from the resources in one colour. Without a fixed
// colour it follows the application palette, so the symbol reads on light and
// dark themes alike and turns into the highlighted text colour when selected.
class TintedIconEngine : public SvgIconEngine
{
public:
    TintedIconEngine(QString resourcePath, std::optional<QColor> color);

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    QString key() const override;

private:
    QColor colorFor(QIcon::Mode mode) const;

    std::optional<QColor> m_color;
};
