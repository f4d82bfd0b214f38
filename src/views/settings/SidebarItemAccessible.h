#pragma once

#include <QAccessibleWidget>

class SidebarItem;

// What assistive technology sees of a sidebar entry: the item's own name,
// role and states, and a press action that activates it.
class SidebarItemAccessible : public QAccessibleWidget
{
public:
    explicit SidebarItemAccessible(SidebarItem* item);

    // The factory handed to QAccessible::installFactory.
    static QAccessibleInterface* create(const QString& className, QObject* object);

    QString text(QAccessible::Text type) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    SidebarItem* item() const;
};
