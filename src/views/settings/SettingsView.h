#pragma once

#include "viewmodels/SettingsViewModel.h"

#include <QMap>
#include <QWidget>

class AppSettings;
class Divider;
class QLabel;
class QStackedWidget;
class SettingsEditorPage;
class SaveErrorLabel;
class SettingsSidebar;

// Root of the settings window: header, sidebar, detail area and footer over
// the one settings store. The window's state lives in its model; the members
// below read and change it there.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    using Kind = SettingsTabKey::Kind;

    explicit SettingsView(AppSettings& settings, QWidget* parent = nullptr);

    SettingsViewModel& model() const { return *m_model; }
    SettingsSidebar* sidebar() const { return m_sidebar; }
    // In the footer, shown after a failed save.
    SaveErrorLabel* saveErrorLabel() const { return m_saveErrorLabel; }
    // The detail area's page shown now (an editor, an empty state, the "Over"
    // page or the "Selecteer een item" label), without its scroll area.
    QWidget* page() const;

    // "v" + short version + "." + build number, e.g. v2.3.45.
    static QString appVersion();
    // The window's dividers: gray at opacity 0.3.
    static Divider* makeDivider(Qt::Orientation orientation);

    const QString& selectedTab() const { return m_model->selectedTab(); }
    void setSelectedTab(const QString& key) { m_model->setSelectedTab(key); }
    void select(Kind kind, const QUuid& id) { m_model->select(kind, id); }
    void setExpanded(Kind group, bool expanded) { m_model->setExpanded(group, expanded); }
    void initializeSelectedTab() { m_model->initializeSelectedTab(); }
    const std::optional<QString>& printerTestResult() const { return m_model->printerTestResult(); }
    bool isPrinterTesting() const { return m_model->isPrinterTesting(); }
    void testPrinterConnection(qsizetype index) { m_model->testPrinterConnection(index); }
    bool isQueryingStatus() const { return m_model->isQueryingStatus(); }
    void queryPrinterStatus(qsizetype index) { m_model->queryPrinterStatus(index); }
    const std::optional<QString>& templateTestResult() const
    {
        return m_model->templateTestResult();
    }
    bool isTemplateTesting() const { return m_model->isTemplateTesting(); }
    void testPrintTemplate(qsizetype index) { m_model->testPrintTemplate(index); }
    const std::optional<QString>& copiedPlaceholder() const { return m_model->copiedPlaceholder(); }
    // Puts the key on the clipboard and shows that it was copied.
    void copyPlaceholder(const QString& key);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct KindPages
    {
        SettingsEditorPage* editor;
        QWidget* prompt;
        QWidget* emptyList;
    };

    void addScrolled(QWidget* page);
    void showSelection();

    SettingsViewModel* m_model;
    SettingsSidebar* m_sidebar;
    QStackedWidget* m_content;
    SaveErrorLabel* m_saveErrorLabel;
    QWidget* m_footer;
    QLabel* m_nothing;
    SettingsEditorPage* m_about;
    QMap<Kind, KindPages> m_kindPages;
    QWidget* m_shownPage = nullptr;
    QUuid m_shownRecord;
};
