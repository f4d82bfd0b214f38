#pragma once

#include <QAccessible>
#include <QWidget>

// A hand-painted entry of the settings sidebar (group header or row). It takes
// the keyboard focus and shows it; a click, Return or the space bar activates
// it. Other keys go on to the sidebar, which moves between entries.
class SidebarItem : public QWidget
{
    Q_OBJECT

public:
    explicit SidebarItem(QWidget* parent = nullptr);

    // What a screen reader is told: name, role and the states of its own.
    virtual QString accessibleText() const = 0;
    virtual QAccessible::Role accessibleRole() const = 0;
    virtual QAccessible::State accessibleState() const = 0;

    void activate();

signals:
    void activated();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    // The focus ring, drawn inside `area`; on the accent fill of a selected
    // entry it is drawn in the highlighted text colour instead.
    void paintFocusMark(QPainter& painter, const QRectF& area, qreal radius, bool onAccent) const;
    void notifyStateChanged(const QAccessible::State& changed);
    void notifyNameChanged();

private:
    bool m_pressed = false;
};
