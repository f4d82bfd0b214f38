#include "PrintButton.h"

#include "BusyIndicator.h"
#include "SymbolIcons.h"
#include "Theme.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSymbolSize = 14;
constexpr int kSpacing = 6;
constexpr int kPaddingX = 8 + 6; // the label's padding plus the bezel
constexpr int kHeight = 28;      // large control size
constexpr qreal kRadius = 6;
// The small wheel is drawn at 0.7 of its usual 16 pixels inside the 14 pixel frame.
constexpr int kBusyDiameter = 11;

QColor highlightedText(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::HighlightedText);
}

} // namespace

PrintButton::PrintButton(QWidget* parent)
    : QAbstractButton(parent),
      m_busyIndicator(new BusyIndicator(kBusyDiameter, &highlightedText, this))
{
    setText(u"Start afdrukken"_s);
    setFont(Theme::systemFont(13, QFont::Medium));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::ArrowCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    m_busyIndicator->hide();
}

void PrintButton::setBusy(bool busy)
{
    if (busy == m_busy)
        return;
    m_busy = busy;
    m_busyIndicator->setVisible(busy);
    update();
}

QSize PrintButton::sizeHint() const
{
    const int textWidth = fontMetrics().horizontalAdvance(text());
    return {kPaddingX + kSymbolSize + kSpacing + textWidth + kPaddingX,
            qMax(kHeight, fontMetrics().height() + 2 * 4)};
}

QSize PrintButton::minimumSizeHint() const
{
    return sizeHint();
}

void PrintButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.fillPath(shape, fillColor());
    if (hasFocus()) {
        painter.setPen(QPen(Theme::accent(palette()).lighter(140), 2));
        painter.drawPath(shape);
    }

    const QColor label = labelColor();
    if (!m_busy)
        SymbolIcons::tinted(u"printer.fill", label).paint(&painter, symbolRect());
    painter.setPen(label);
    const QRect textRect = rect().adjusted(symbolRect().right() + 1 + kSpacing, 0, -kPaddingX, 0);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft, text());
}

void PrintButton::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    const QRect frame = symbolRect();
    m_busyIndicator->move(frame.x() + (frame.width() - kBusyDiameter) / 2,
                          frame.y() + (frame.height() - kBusyDiameter) / 2);
}

void PrintButton::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        m_busyIndicator->setColor(isEnabled() ? &highlightedText : &Theme::secondaryText);
        update();
    }
}

QRect PrintButton::symbolRect() const
{
    return {kPaddingX, (height() - kSymbolSize) / 2, kSymbolSize, kSymbolSize};
}

QColor PrintButton::fillColor() const
{
    if (!isEnabled())
        return Theme::separator(palette());
    const QColor accent = Theme::accent(palette());
    if (isDown())
        return accent.darker(125);
    if (underMouse())
        return accent.lighter(110);
    return accent;
}

QColor PrintButton::labelColor() const
{
    if (!isEnabled())
        return Theme::secondaryText(palette());
    return highlightedText(palette());
}
