#pragma once

#include "TestHome.h"
#include "model/AppSettings.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsSidebar.h"
#include "views/settings/SettingsSidebarModel.h"
#include "views/settings/SettingsView.h"

#include <QApplication>
#include <QTest>

// A settings view over a store in its own temporary home.
class SettingsViewHarness
{
public:
    SettingsViewHarness() { m_view.resize(1000, 700); }

    // Shown, the view selects the first dossier as the window does.
    bool show()
    {
        m_view.show();
        return QTest::qWaitForWindowExposed(&m_view);
    }

    AppSettings& settings() { return m_settings; }
    SettingsView& view() { return m_view; }
    template <typename Page> Page* pageAs() const { return qobject_cast<Page*>(m_view.page()); }

    // Selects the record at `index` of a kind and returns the page showing it.
    template <typename Page> Page* open(SettingsTabKey::Kind kind, qsizetype index = 0)
    {
        m_view.select(kind, m_view.model().ids(kind).at(index));
        return pageAs<Page>();
    }

    SettingsSidebar* sidebar() const { return m_view.sidebar(); }
    QModelIndex group(SettingsTabKey::Kind kind) const
    {
        return sidebar()->sidebarModel()->groupIndex(kind);
    }
    QModelIndex row(SettingsTabKey::Kind kind, int index) const
    {
        return sidebar()->sidebarModel()->index(index, 0, group(kind));
    }
    bool isRowSelected(SettingsTabKey::Kind kind, int index) const
    {
        return sidebar()->selectionModel()->isSelected(row(kind, index));
    }
    // A click on a group header away from its "+" button.
    void clickHeader(SettingsTabKey::Kind kind) const
    {
        sidebar()->doItemsLayout();
        const QRect header = sidebar()->visualRect(group(kind));
        QTest::mouseClick(sidebar()->viewport(), Qt::LeftButton, {},
                          QPoint(header.left() + 40, header.center().y()));
    }

    void setDossiers(const QStringList& names, const QStringList& apiKeys = {})
    {
        QList<Dossier> dossiers;
        for (qsizetype i = 0; i < names.size(); ++i)
            dossiers.append(Dossier{QUuid::createUuid(), names.at(i), apiKeys.value(i)});
        m_settings.setDossiers(dossiers);
    }

private:
    TestHome m_home;
    Theme m_theme{*qApp};
    AppSettings m_settings;
    SettingsView m_view{m_settings};
};

inline void clickOn(QWidget* widget)
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, widget->rect().center());
}
