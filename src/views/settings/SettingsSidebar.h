#pragma once

#include "viewmodels/SettingsTabKey.h"

#include <QTreeView>

class QToolButton;
class SettingsSidebarDelegate;
class SettingsSidebarModel;
class SettingsViewModel;

// The left column of the settings window: the three record groups, each with
// its "+" button, and "Over" at the bottom. One stop of the Tab chain; the
// arrow keys move through the entries and select the rows they reach.
// Return, Space, Left and Right open and close a group, "+" and Insert add to it.
class SettingsSidebar : public QTreeView
{
    Q_OBJECT

public:
    static constexpr int kWidth = 200;

    explicit SettingsSidebar(SettingsViewModel& model, QWidget* parent = nullptr);

    SettingsSidebarModel* sidebarModel() const { return m_model; }
    QToolButton* addButton(SettingsTabKey::Kind kind) const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void updateGeometries() override;
    void moveEvent(QMoveEvent* event) override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

private:
    void applyExpanded();
    void toggleGroup(SettingsTabKey::Kind group);
    void syncSelection();
    void takeSelection();
    void fitDivider();
    void placeAddButtons();

    SettingsViewModel& m_viewModel;
    SettingsSidebarModel* m_model;
    SettingsSidebarDelegate* m_delegate;
    QList<QToolButton*> m_addButtons;
};
