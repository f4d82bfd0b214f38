#include "views/settings/SettingsSidebar.h"

#include "views/common/Divider.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsView.h"
#include "views/settings/SidebarGroup.h"
#include "views/settings/SidebarGroupHeader.h"
#include "views/settings/SidebarRow.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SettingsSidebar::SettingsSidebar(SettingsView& view, QWidget* parent)
    : QWidget(parent), m_view(view),
      m_aboutRow(settingsCategory(SettingsTabKey::about(), u"info.circle"_s, u"Over"_s))
{
    setObjectName(u"sidebarView"_s);
    setFixedWidth(kWidth);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(2);
    for (const SettingsRecordKind& kind : SettingsRecordKind::all()) {
        auto* group = new SidebarGroup(view, kind);
        // The "+" buttons take the arrow keys and Return like the other entries.
        group->header()->addButton()->installEventFilter(this);
        column->addWidget(group);
        m_groups.append(group);
    }
    column->addStretch(1);
    column->addSpacing(8);
    column->addWidget(SettingsView::makeDivider(Qt::Horizontal));
    column->addSpacing(8);
    column->addWidget(m_aboutRow);
}

SidebarGroup* SettingsSidebar::group(SettingsTabKey::Kind kind) const
{
    for (SidebarGroup* group : m_groups) {
        if (&group->kind() == SettingsRecordKind::of(kind))
            return group;
    }
    return nullptr;
}

SidebarRow* SettingsSidebar::settingsCategory(const QString& key, const QString& symbolName,
                                              const QString& title)
{
    auto* row = new SidebarRow(SidebarRow::Style::category);
    row->setSymbol(symbolName);
    row->setText(title);
    const auto refresh = [this, row, key] {
        row->setSelected(m_view.selectedTab() == key);
    };
    connect(&m_view, &SettingsView::selectedTabChanged, row, refresh);
    connect(row, &SidebarRow::activated, this, [this, key] { m_view.setSelectedTab(key); });
    refresh();
    return row;
}

QList<QWidget*> SettingsSidebar::keyboardEntries() const
{
    QList<QWidget*> entries;
    for (const SidebarGroup* group : m_groups) {
        entries << group->header() << group->header()->addButton();
        if (group->isBodyShown()) {
            for (SidebarRow* row : group->rows())
                entries << row;
        }
    }
    entries << m_aboutRow;
    return entries;
}

QWidget* SettingsSidebar::entryWidget() const
{
    const QList<QWidget*> entries = keyboardEntries();
    for (QWidget* entry : entries) {
        const auto* row = qobject_cast<const SidebarRow*>(entry);
        if (row && row->isSelected())
            return entry;
    }
    return entries.constFirst();
}

bool SettingsSidebar::moveFocus(int key)
{
    const QList<QWidget*> entries = keyboardEntries();
    const qsizetype current = entries.indexOf(focusWidget());
    qsizetype target = -1;
    switch (key) {
    case Qt::Key_Up:
        target = current - 1;
        break;
    case Qt::Key_Down:
        target = current + 1;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = entries.size() - 1;
        break;
    default:
        return false;
    }
    if (current >= 0 && target >= 0 && target < entries.size())
        entries.at(target)->setFocus(Qt::OtherFocusReason);
    return true;
}

void SettingsSidebar::keyPressEvent(QKeyEvent* event)
{
    if (!moveFocus(event->key()))
        QWidget::keyPressEvent(event);
}

bool SettingsSidebar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        static_cast<QToolButton*>(watched)->click();
        return true;
    }
    return moveFocus(key);
}

bool SettingsSidebar::focusNextPrevChild(bool next)
{
    // Tab and Shift+Tab leave the sidebar for the editor, whichever entry has the focus.
    return m_view.focusDetail(next);
}

void SettingsSidebar::paintEvent(QPaintEvent*)
{
    QColor background = Theme::controlBackground(palette());
    background.setAlphaF(0.5f);
    QPainter(this).fillRect(rect(), background);
}
