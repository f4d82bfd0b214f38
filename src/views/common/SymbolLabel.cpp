#include "views/common/SymbolLabel.h"

#include "views/common/SymbolIcons.h"

#include <QPainter>

SymbolLabel::SymbolLabel(const QString& symbolName, int pixelSize, QPalette::ColorRole role,
                         QWidget* parent)
    : QWidget(parent), m_symbolName(symbolName), m_role(role)
{
    setFixedSize(pixelSize, pixelSize);
}

SymbolLabel::SymbolLabel(const QString& symbolName, int pixelSize, const QColor& color,
                         QWidget* parent)
    : SymbolLabel(symbolName, pixelSize, QPalette::WindowText, parent)
{
    // Its own role, so palette changes pass it by.
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    // Tinted again only when the colour has changed, not on every paint.
    const QColor color = palette().color(m_role);
    if (color != m_tint) {
        m_tint = color;
        m_icon = SymbolIcons::tinted(m_symbolName, color, width());
    }
    QPainter painter(this);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    m_icon.paint(&painter, rect(), Qt::AlignCenter, mode);
}
