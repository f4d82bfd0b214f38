#include "views/common/ThemedLabel.h"

#include <QEvent>

ThemedLabel::ThemedLabel(const QString& text, const QFont& font, Theme::PaletteColor color,
                         QWidget* parent)
    : QLabel(text, parent), m_color(color)
{
    setFont(font);
    applyColor();
}

void ThemedLabel::setColor(Theme::PaletteColor color)
{
    m_color = color;
    applyColor();
}

void ThemedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        applyColor();
}

void ThemedLabel::applyColor()
{
    const QColor color = m_color(Theme::inheritedPalette(this));
    if (palette().color(QPalette::WindowText) == color)
        return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}
