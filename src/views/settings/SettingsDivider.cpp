#include "SettingsDivider.h"

#include <QPainter>

SettingsDivider::SettingsDivider(Qt::Orientation orientation, QWidget* parent) : QWidget(parent)
{
    if (orientation == Qt::Horizontal) {
        setFixedHeight(1);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else {
        setFixedWidth(1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    }
}

QColor SettingsDivider::lineColor()
{
    QColor gray(Qt::gray);
    gray.setAlphaF(0.3f);
    return gray;
}

void SettingsDivider::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), lineColor());
}
