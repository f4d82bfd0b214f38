#include "views/common/Divider.h"

#include "views/common/Theme.h"

#include <QPainter>

Divider::Divider(Qt::Orientation orientation, int length, QWidget* parent) : QFrame(parent)
{
    const bool horizontal = orientation == Qt::Horizontal;
    setFrameShape(horizontal ? QFrame::HLine : QFrame::VLine);
    // Qt's lines keep a pixel free on either side; this one is the line alone.
    horizontal ? setFixedHeight(1) : setFixedWidth(1);
    if (length > 0)
        horizontal ? setFixedWidth(length) : setFixedHeight(length);
}

void Divider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(Theme::kSeparatorOpacity);
    painter.fillRect(rect(), palette().color(QPalette::WindowText));
}
