#pragma once

#include "TestHome.h"
#include "model/AppSettings.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsSidebar.h"
#include "views/settings/SettingsSidebarModel.h"
#include "views/settings/SettingsView.h"

#include <QApplication>
#include <QTest>
#include <memory>

// A settings view over a store in its own temporary home, shown on screen.
class SettingsViewHarness
{
public:
    SettingsViewHarness()
        : m_settings(std::make_unique<AppSettings>()),
          m_view(std::make_unique<SettingsView>(*m_settings))
    {
        m_view->resize(1000, 700);
    }

    // Shows the view, which selects the first dossier as the window does.
    bool show()
    {
        m_view->show();
        return QTest::qWaitForWindowExposed(m_view.get());
    }

    AppSettings& settings() { return *m_settings; }
    SettingsView& view() { return *m_view; }

    QWidget* page() const { return m_view->page(); }
    template <typename Page> Page* pageAs() const { return qobject_cast<Page*>(page()); }

    // Selects the record at `index` of a kind and returns the page showing it.
    template <typename Page> Page* open(SettingsTabKey::Kind kind, qsizetype index = 0)
    {
        m_view->select(kind, m_view->model().ids(kind).at(index));
        return pageAs<Page>();
    }

    SettingsSidebar* sidebar() const { return m_view->sidebar(); }
    SettingsSidebarModel& sidebarModel() const { return *sidebar()->sidebarModel(); }
    QModelIndex group(SettingsTabKey::Kind kind) const { return sidebarModel().groupIndex(kind); }
    // The sidebar row of the record at `index` of a kind.
    QModelIndex row(SettingsTabKey::Kind kind, int index) const
    {
        return sidebarModel().index(index, 0, group(kind));
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

    // Replaces the store's lists; records get the given names.
    void setDossiers(const QStringList& names, const QStringList& apiKeys = {})
    {
        QList<Dossier> dossiers;
        for (qsizetype i = 0; i < names.size(); ++i)
            dossiers.append(Dossier{QUuid::createUuid(), names.at(i), apiKeys.value(i)});
        m_settings->setDossiers(dossiers);
    }
    void setPrinters(const QList<Printer>& printers) { m_settings->setPrinters(printers); }

    static Printer printer(const QString& name, const QString& ip, qint64 port = 9100)
    {
        return {.name = name, .ipAddress = ip, .port = port};
    }

private:
    TestHome m_home;
    Theme m_theme{*qApp};
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<SettingsView> m_view;
};

// A click in the middle of a widget, as the user makes it.
inline void clickOn(QWidget* widget)
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, widget->rect().center());
}
