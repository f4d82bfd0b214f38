#pragma once

#include "Theme.h"

#include <QWidget>

// A container drawn as a filled rounded rectangle, optionally outlined.
class RoundedBox : public QWidget
{
    Q_OBJECT

public:
    RoundedBox(qreal radius, Theme::PaletteColor fill, Theme::PaletteColor outline = nullptr,
               QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qreal m_radius;
    Theme::PaletteColor m_fill;
    Theme::PaletteColor m_outline;
};
