#pragma once

#include <QIcon>
#include <QWidget>

class QToolButton;

// Header row of a sidebar group: chevron, icon, title and a "+" button.
// A click anywhere but on "+" asks to open or close the group.
class SidebarGroupHeader : public QWidget
{
    Q_OBJECT

public:
    SidebarGroupHeader(const QString& symbolName, const QString& title, const QString& addToolTip,
                       QWidget* parent = nullptr);

    void setExpanded(bool expanded);
    bool isExpanded() const { return m_expanded; }
    const QString& title() const { return m_title; }
    QToolButton* addButton() const { return m_addButton; }

signals:
    void toggleRequested();
    void addRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString m_title;
    QIcon m_groupIcon;
    QIcon m_chevronOpen;
    QIcon m_chevronClosed;
    QToolButton* m_addButton;
    bool m_expanded = true;
    bool m_pressed = false;
};
