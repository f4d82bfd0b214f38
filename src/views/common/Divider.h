#pragma once

#include "views/common/Theme.h"

#include <QFrame>

// A one pixel line, in the separator colour unless told otherwise; `length`
// fixes its extent along the line.
class Divider : public QFrame
{
    Q_OBJECT

public:
    explicit Divider(Qt::Orientation orientation, int length = 0, QWidget* parent = nullptr);

    void setColor(Theme::PaletteColor color);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyColor();

    Theme::PaletteColor m_color = &Theme::separator;
};
