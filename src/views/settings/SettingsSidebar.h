#pragma once

#include "views/settings/SettingsTabKey.h"

#include <QList>
#include <QWidget>

class SettingsView;
class SidebarGroup;
class SidebarRow;

// The left column of the settings window: the three record groups and "Over".
// One stop of the Tab chain: the arrow keys move between its visible entries
// (headers, "+" buttons, rows), Tab goes on into the editor.
class SettingsSidebar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kWidth = 200;

    explicit SettingsSidebar(SettingsView& view, QWidget* parent = nullptr);

    SidebarGroup* group(SettingsTabKey::Kind kind) const;
    SidebarRow* aboutRow() const { return m_aboutRow; }

    // Where the keyboard enters: the selected row when it is shown, else the first header.
    QWidget* entryWidget() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    SidebarRow* settingsCategory(const QString& key, const QString& symbolName,
                                 const QString& title);
    // Every entry the arrow keys reach now, top to bottom.
    QList<QWidget*> keyboardEntries() const;
    bool moveFocus(int key);

    SettingsView& m_view;
    QList<SidebarGroup*> m_groups;
    SidebarRow* m_aboutRow;
};
