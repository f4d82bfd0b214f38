#pragma once

#include "views/settings/SettingsRecordKind.h"

#include <QList>
#include <QUuid>
#include <QWidget>

class QLabel;
class QVBoxLayout;
class QVariantAnimation;
class SettingsView;
class SidebarGroupHeader;
class SidebarRow;

// One collapsible sidebar group (Dossiers, Printers or Etiketten): a header
// with "+" and one row per record. Rows follow the store while the user types
// in an editor: they are updated in place and only rebuilt when records are
// added, removed or reordered.
class SidebarGroup : public QWidget
{
    Q_OBJECT

public:
    SidebarGroup(SettingsView& view, const SettingsRecordKind& kind, QWidget* parent = nullptr);

    const SettingsRecordKind& kind() const { return m_kind; }
    SidebarGroupHeader* header() const { return m_header; }
    const QList<SidebarRow*>& rows() const { return m_rows; }
    QLabel* emptyLabel() const { return m_emptyLabel; }
    // False while closed (also right after closing, before the animation ends).
    bool isBodyShown() const;

    static constexpr int kAnimationMs = 200;

private:
    void refreshRows();
    void rebuildRows(const QList<SettingsRecordKind::Entry>& entries);
    void refreshSelection();
    void applyExpanded(bool animated);
    void finishAnimation();

    SettingsView& m_view;
    const SettingsRecordKind& m_kind;
    SidebarGroupHeader* m_header;
    QWidget* m_body;
    QVBoxLayout* m_rowsLayout;
    QLabel* m_emptyLabel;
    QList<SidebarRow*> m_rows;
    QList<QUuid> m_rowIDs;
    QVariantAnimation* m_animation;
    bool m_animatingOpen = false;
};
