#pragma once

#include <QObject>

class QWidget;

// Keeps a text field's edge visible on a settings card, whose base colour the
// field shares: in a dark palette the field is lifted a little above the card.
// A drawn frame, for fields whose own frame is switched off, is a thin gray
// line that turns into a wider one in the accent colour while the field has
// the focus. Both follow palette changes.
class FieldEdge : public QObject
{
    Q_OBJECT

public:
    enum class Frame
    {
        style, // the style's own frame
        drawn,
    };

    // The edge lives as long as the field.
    static void attach(QWidget* field, Frame frame = Frame::style);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FieldEdge(QWidget* field, Frame frame);
    void apply();
    void paintFrame();

    QWidget* m_field;
    Frame m_frame;
};
