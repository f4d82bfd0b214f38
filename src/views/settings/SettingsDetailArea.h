#pragma once

#include "views/settings/SettingsTabKey.h"

#include <QPointer>
#include <QUuid>
#include <QWidget>

class QVBoxLayout;
class SettingsView;

// The detail area of the settings window: the editor of the selected record,
// the kind's empty state, the "Over" page or "Selecteer een item". It only
// replaces its page when what it should show changes, never while the user
// types in the page it shows.
class SettingsDetailArea : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsDetailArea(SettingsView& view, QWidget* parent = nullptr);

    // The page shown now (an editor, an empty state, the "Over" page or the
    // "Selecteer een item" label); inside a scroll area for editors and "Over".
    QWidget* page() const { return m_page; }

    // Gives the focus to the page's first or last control reached by Tab;
    // false when the page has none.
    bool focusEdge(bool first);

protected:
    bool focusNextPrevChild(bool next) override;

private:
    struct Target
    {
        SettingsTabKey::Kind kind = SettingsTabKey::Kind::none;
        // The record's position; -1 for the kind's empty state.
        qsizetype index = -1;
        bool listEmpty = false;
        QUuid id;

        friend bool operator==(const Target&, const Target&) = default;
    };

    Target currentTarget() const;
    void refresh();
    QWidget* makePage(const Target& target) const;
    QList<QWidget*> tabStops() const;

    SettingsView& m_view;
    QVBoxLayout* m_layout;
    Target m_shown;
    bool m_hasPage = false;
    QPointer<QWidget> m_container;
    QPointer<QWidget> m_page;
};
