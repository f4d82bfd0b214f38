#pragma once

#include "views/settings/SettingsTabKey.h"

#include <QMap>
#include <QStackedWidget>
#include <QUuid>

class SettingsView;

// The detail area of the settings window: the editor of the selected record,
// the kind's empty state, the "Over" page or "Selecteer een item". Its pages
// live as long as the window; a selection only changes which one shows and
// which record an editor shows.
class SettingsDetailArea : public QStackedWidget
{
    Q_OBJECT

public:
    explicit SettingsDetailArea(SettingsView& view, QWidget* parent = nullptr);

    // The page shown now (an editor, an empty state, the "Over" page or the
    // "Selecteer een item" label), without the scroll area around it.
    QWidget* page() const;

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

    struct KindPages
    {
        QWidget* editor;
        QWidget* prompt;
        QWidget* emptyList;
    };

    Target currentTarget() const;
    void refresh();
    void addScrolled(QWidget* page);

    SettingsView& m_view;
    QWidget* m_nothing;
    QWidget* m_about;
    QMap<SettingsTabKey::Kind, KindPages> m_kindPages;
    Target m_shown;
};
