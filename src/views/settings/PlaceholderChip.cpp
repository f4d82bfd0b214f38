#include "views/settings/PlaceholderChip.h"

#include "views/common/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPaddingH = 8;
constexpr int kPaddingV = 4;
constexpr qreal kRadius = 4;

} // namespace

PlaceholderChip::PlaceholderChip(const QString& key, QWidget* parent) : QAbstractButton(parent)
{
    setText(key);
    setFont(Theme::monospaced(Theme::caption().pixelSize()));
    setToolTip(u"Klik om te kopiëren"_s);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PlaceholderChip::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(text()) + 2 * kPaddingH, metrics.height() + 2 * kPaddingV};
}

void PlaceholderChip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor background = Theme::blue();
    background.setAlphaF(isDown() ? 0.2f : 0.1f);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()), kRadius, kRadius);
    painter.fillPath(shape, background);
    painter.setFont(font());
    painter.setPen(Theme::blue());
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent(palette()), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius, kRadius);
    }
}

void PlaceholderChip::keyPressEvent(QKeyEvent* event)
{
    // Return copies too: the space bar may be kept by the product table.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
