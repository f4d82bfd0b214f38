#include "views/settings/FieldEdge.h"

#include "views/common/Theme.h"

#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QWidget>

namespace {

// How far a field's background moves from the card towards the text colour.
constexpr qreal kLift = 0.1;
// The width a drawn frame keeps free: the focus line's.
constexpr int kFrameMargin = 2;

} // namespace

FieldEdge::FieldEdge(QWidget* field, Frame frame) : QObject(field), m_field(field), m_frame(frame)
{
    if (auto* framed = qobject_cast<QFrame*>(field); framed && frame == Frame::drawn) {
        // Keeps the margin free; the frame itself is painted here.
        framed->setFrameStyle(QFrame::Box | QFrame::Plain);
        framed->setLineWidth(kFrameMargin);
    }
    field->installEventFilter(this);
    apply();
}

void FieldEdge::attach(QWidget* field, Frame frame)
{
    new FieldEdge(field, frame);
}

bool FieldEdge::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::ApplicationPaletteChange:
    case QEvent::ParentChange:
        apply();
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (m_frame == Frame::drawn)
            m_field->update();
        break;
    case QEvent::Paint:
        // Instead of the frame's own line; the viewport covers the rest.
        if (m_frame == Frame::drawn) {
            paintFrame();
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FieldEdge::apply()
{
    // The card is painted in the base colour the field inherits; in a dark
    // palette the style's frame hardly shows against it.
    const QPalette inherited = Theme::inheritedPalette(m_field);
    const QColor card = Theme::controlBackground(inherited);
    const QColor base =
        card.lightnessF() < 0.5 ? Theme::blend(card, inherited.color(QPalette::Text), kLift) : card;
    if (m_field->palette().color(QPalette::Base) == base)
        return;
    QPalette own = m_field->palette();
    own.setColor(QPalette::Base, base);
    m_field->setPalette(own);
}

void FieldEdge::paintFrame()
{
    QPainter painter(m_field);
    painter.fillRect(m_field->rect(), m_field->palette().color(QPalette::Base));
    const bool focused = m_field->hasFocus();
    QColor line = focused ? Theme::accent(m_field->palette()) : QColor(Qt::gray);
    if (!focused)
        line.setAlphaF(0.3f);
    const qreal width = focused ? kFrameMargin : 1;
    painter.setPen(QPen(line, width));
    const qreal inset = width / 2;
    painter.drawRect(QRectF(m_field->rect()).adjusted(inset, inset, -inset, -inset));
}
