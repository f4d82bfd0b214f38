#include "views/settings/SidebarItemAccessible.h"

#include "views/settings/SidebarItem.h"

SidebarItemAccessible::SidebarItemAccessible(SidebarItem* item) : QAccessibleWidget(item) {}

QAccessibleInterface* SidebarItemAccessible::create(const QString&, QObject* object)
{
    if (auto* item = qobject_cast<SidebarItem*>(object))
        return new SidebarItemAccessible(item);
    return nullptr;
}

SidebarItem* SidebarItemAccessible::item() const
{
    return static_cast<SidebarItem*>(widget());
}

QString SidebarItemAccessible::text(QAccessible::Text type) const
{
    if (type == QAccessible::Name)
        return item()->accessibleText();
    return QAccessibleWidget::text(type);
}

QAccessible::Role SidebarItemAccessible::role() const
{
    return item()->accessibleRole();
}

QAccessible::State SidebarItemAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QAccessible::State own = item()->accessibleState();
    state.selectable |= own.selectable;
    state.selected |= own.selected;
    state.expandable |= own.expandable;
    state.expanded |= own.expanded;
    state.collapsed |= own.collapsed;
    return state;
}

QStringList SidebarItemAccessible::actionNames() const
{
    return {pressAction()};
}

void SidebarItemAccessible::doAction(const QString& actionName)
{
    if (actionName == pressAction())
        item()->activate();
}
