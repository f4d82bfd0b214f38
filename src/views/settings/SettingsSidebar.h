#pragma once

#include <QWidget>

class SettingsView;
class SidebarGroup;
class SidebarRow;

// The left column of the settings window: the three record groups and "Over".
class SettingsSidebar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kWidth = 200;

    explicit SettingsSidebar(SettingsView& view, QWidget* parent = nullptr);

    SidebarGroup* dossiersGroup() const { return m_dossiersGroup; }
    SidebarGroup* printersGroup() const { return m_printersGroup; }
    SidebarGroup* templatesGroup() const { return m_templatesGroup; }
    SidebarRow* aboutRow() const { return m_aboutRow; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SidebarRow* settingsCategory(const QString& key, const QString& symbolName,
                                 const QString& title);

    SettingsView& m_view;
    SidebarGroup* m_dossiersGroup;
    SidebarGroup* m_printersGroup;
    SidebarGroup* m_templatesGroup;
    SidebarRow* m_aboutRow;
};
