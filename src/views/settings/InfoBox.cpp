#include "views/settings/InfoBox.h"

#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"
#include "views/common/ThemedLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 14;
constexpr qreal kRadius = 8;

QColor blueAt(qreal alpha)
{
    QColor color = Theme::blue();
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

InfoBox::InfoBox(const QString& text, QWidget* parent)
    : QWidget(parent), m_text(new ThemedLabel(text, Theme::caption(), &Theme::secondaryText))
{
    auto* icon = new QLabel;
    icon->setPixmap(SymbolIcons::tinted(u"info.circle.fill", Theme::blue())
                        .pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    icon->setFixedSize(kIconSize, kIconSize);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::NoTextInteraction);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 10, 10, 10);
    row->setSpacing(8);
    row->addWidget(icon, 0, Qt::AlignVCenter);
    row->addWidget(m_text, 1, Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString InfoBox::text() const
{
    return m_text->text();
}

void InfoBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outline = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(outline, kRadius, kRadius);

    QLinearGradient fill(outline.topLeft(), outline.bottomRight());
    fill.setColorAt(0, blueAt(0.12));
    fill.setColorAt(1, blueAt(0.08));
    painter.fillPath(shape, fill);
    painter.setPen(QPen(blueAt(0.2), 1));
    painter.drawPath(shape);
}
