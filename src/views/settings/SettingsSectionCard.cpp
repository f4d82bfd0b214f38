#include "views/settings/SettingsSectionCard.h"

#include "views/common/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace {

constexpr qreal kRadius = 8;

} // namespace

SettingsSectionCard::SettingsSectionCard(QWidget* parent)
    : QWidget(parent), m_content(new QVBoxLayout(this))
{
    m_content->setContentsMargins(12, 12, 12, 12);
    m_content->setSpacing(12);
    m_content->setAlignment(Qt::AlignTop);
}

void SettingsSectionCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.fillPath(shape, Theme::controlBackground(palette()));
    QColor border = Theme::separator(palette());
    border.setAlphaF(float(border.alphaF() * 0.6));
    painter.setPen(QPen(border, 1));
    painter.drawPath(shape);
}
