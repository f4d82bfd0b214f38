#include "SymbolLabel.h"

#include "SymbolIcons.h"

#include <QPainter>

SymbolLabel::SymbolLabel(const QString& symbolName, int pixelSize, Theme::PaletteColor color,
                         QWidget* parent)
    : QWidget(parent), m_symbolName(symbolName), m_color(color)
{
    setFixedSize(pixelSize, pixelSize);
}

void SymbolLabel::setSymbolName(const QString& symbolName)
{
    if (symbolName == m_symbolName)
        return;
    m_symbolName = symbolName;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    SymbolIcons::tinted(m_symbolName, m_color(palette()))
        .paint(&painter, rect(), Qt::AlignCenter, mode);
}
