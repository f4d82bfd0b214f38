#include "views/common/Divider.h"

#include <QEvent>

Divider::Divider(Qt::Orientation orientation, int length, QWidget* parent) : QFrame(parent)
{
    const bool horizontal = orientation == Qt::Horizontal;
    setFrameStyle((horizontal ? QFrame::HLine : QFrame::VLine) | QFrame::Plain);
    // Qt's lines keep a pixel free on either side; this one is the line alone.
    if (horizontal) {
        setFixedHeight(1);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else {
        setFixedWidth(1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    }
    if (length > 0)
        horizontal ? setFixedWidth(length) : setFixedHeight(length);
    applyColor();
}

void Divider::setColor(Theme::PaletteColor color)
{
    m_color = color;
    applyColor();
}

void Divider::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        applyColor();
}

void Divider::applyColor()
{
    // A plain line is drawn in the text colour; the own palette carries the
    // line's, so the colour is worked out from the parent's.
    const QColor color = m_color(Theme::inheritedPalette(this));
    if (palette().color(QPalette::WindowText) == color)
        return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, color);
    setPalette(own);
}
