#pragma once

#include "views/common/Theme.h"

#include <QWidget>

// A one pixel line, in the separator colour unless told otherwise; `length`
// fixes a vertical line's height.
class Divider : public QWidget
{
    Q_OBJECT

public:
    explicit Divider(Qt::Orientation orientation, int length = 0, QWidget* parent = nullptr);

    void setColor(Theme::PaletteColor color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Theme::PaletteColor m_color = &Theme::separator;
};
