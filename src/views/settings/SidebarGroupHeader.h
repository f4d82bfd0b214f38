#pragma once

#include "views/settings/SidebarItem.h"

#include <QIcon>

class QToolButton;

// Header row of a sidebar group: chevron, icon, title and a "+" button.
// Activating it anywhere but on "+" asks to open or close the group.
class SidebarGroupHeader : public SidebarItem
{
    Q_OBJECT

public:
    SidebarGroupHeader(const QString& symbolName, const QString& title, const QString& addName,
                       QWidget* parent = nullptr);

    void setExpanded(bool expanded);
    bool isExpanded() const { return m_expanded; }
    QToolButton* addButton() const { return m_addButton; }

    QString accessibleText() const override { return m_title; }
    QAccessible::Role accessibleRole() const override { return QAccessible::Button; }
    QAccessible::State accessibleState() const override;

signals:
    void addRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QIcon m_groupIcon;
    QIcon m_chevronOpen;
    QIcon m_chevronClosed;
    QToolButton* m_addButton;
    bool m_expanded = true;
};
