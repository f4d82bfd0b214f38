#include "SettingsSidebar.h"

#include "SettingsDivider.h"
#include "SettingsView.h"
#include "SidebarGroup.h"
#include "SidebarRow.h"
#include "views/main/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SettingsSidebar::SettingsSidebar(SettingsView& view, QWidget* parent)
    : QWidget(parent), m_view(view),
      m_dossiersGroup(new SidebarGroup(view, SettingsTabKey::Kind::dossier)),
      m_printersGroup(new SidebarGroup(view, SettingsTabKey::Kind::printer)),
      m_templatesGroup(new SidebarGroup(view, SettingsTabKey::Kind::labelTemplate)),
      m_aboutRow(settingsCategory(SettingsTabKey::about(), u"info.circle"_s, u"Over"_s))
{
    setObjectName(u"sidebarView"_s);
    setFixedWidth(kWidth);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(2);
    column->addWidget(m_dossiersGroup);
    column->addWidget(m_printersGroup);
    column->addWidget(m_templatesGroup);
    column->addStretch(1);
    column->addSpacing(8);
    column->addWidget(new SettingsDivider(Qt::Horizontal));
    column->addSpacing(8);
    column->addWidget(m_aboutRow);
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
    connect(row, &SidebarRow::clicked, this, [this, key] { m_view.setSelectedTab(key); });
    refresh();
    return row;
}

void SettingsSidebar::paintEvent(QPaintEvent*)
{
    QColor background = Theme::controlBackground(palette());
    background.setAlphaF(0.5f);
    QPainter(this).fillRect(rect(), background);
}
