#include "views/common/SymbolLabel.h"

#include "views/common/SymbolIcons.h"

#include <QEvent>
#include <QPainter>

SymbolLabel::SymbolLabel(const QString& symbolName, int pixelSize, Theme::PaletteColor color,
                         QWidget* parent)
    : QWidget(parent), m_symbolName(symbolName), m_color(color)
{
    setFixedSize(pixelSize, pixelSize);
    tint();
}

void SymbolLabel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        tint();
}

// Once per symbol and palette, not on every paint.
void SymbolLabel::tint()
{
    m_icon = SymbolIcons::tinted(m_symbolName, m_color(palette()), width());
    update();
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    m_icon.paint(&painter, rect(), Qt::AlignCenter, mode);
}
