#pragma once

#include "SettingsTabKey.h"

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
    SidebarGroup(SettingsView& view, SettingsTabKey::Kind kind, QWidget* parent = nullptr);

    SidebarGroupHeader* header() const { return m_header; }
    const QList<SidebarRow*>& rows() const { return m_rows; }
    QLabel* emptyLabel() const { return m_emptyLabel; }
    // False while closed (also right after closing, before the animation ends).
    bool isBodyShown() const;

    static constexpr int kAnimationMs = 200;

private:
    struct Config
    {
        QString symbol;
        QString title;
        QString addToolTip;
        QString emptyText;
        QString rowSymbol;
        QString rowSymbolFilled;
    };
    struct Item
    {
        QUuid id;
        QString name;
        bool filled = false;
    };

    static Config configFor(SettingsTabKey::Kind kind);
    QList<Item> items() const;
    void refreshRows();
    void rebuildRows(const QList<Item>& items);
    void updateRow(SidebarRow* row, const Item& item) const;
    void refreshSelection();
    void applyExpanded(bool animated);
    void finishAnimation();

    SettingsView& m_view;
    SettingsTabKey::Kind m_kind;
    Config m_config;
    SidebarGroupHeader* m_header;
    QWidget* m_body;
    QVBoxLayout* m_rowsLayout;
    QLabel* m_emptyLabel;
    QList<SidebarRow*> m_rows;
    QList<QUuid> m_rowIDs;
    QVariantAnimation* m_animation;
    bool m_animatingOpen = false;
};
