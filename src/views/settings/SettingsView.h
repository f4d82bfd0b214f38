#pragma once

#include "model/Printer.h"
#include "services/PrinterStatusService.h"
#include "services/ZPLService.h"
#include "views/settings/SettingsTabKey.h"

#include <QCoroTask>
#include <QList>
#include <QString>
#include <QWidget>
#include <chrono>
#include <memory>
#include <optional>

class AppSettings;
class Divider;
class PrinterService;
class SettingsDetailArea;
class SettingsFooterView;
class SettingsSidebar;

// Root of the settings window: header, sidebar, detail area and footer over
// the one settings store. It also holds the window-wide state the editor
// pages share (selection, open groups, test results, copy feedback) and the
// actions that change it. Every edit goes straight into the store.
class SettingsView : public QWidget
{
    Q_OBJECT

public:
    using Kind = SettingsTabKey::Kind;

    static constexpr std::chrono::milliseconds kCopyFeedbackDuration{2000};

    explicit SettingsView(AppSettings& settings, QWidget* parent = nullptr);
    ~SettingsView() override;

    AppSettings& settings() const { return m_settings; }
    const ZPLService& zplService() const { return m_zplService; }
    SettingsSidebar* sidebar() const { return m_sidebar; }
    SettingsDetailArea* detailArea() const { return m_detailArea; }
    SettingsFooterView* footer() const { return m_footer; }

    // "v" + short version + "." + build number, e.g. v2.3.45.
    static QString appVersion();
    // The window's dividers: gray at opacity 0.3.
    static Divider* makeDivider(Qt::Orientation orientation);

    const QString& selectedTab() const { return m_selectedTab; }
    void setSelectedTab(const QString& key);
    void select(Kind kind, const QUuid& id);

    bool isExpanded(Kind group) const;
    // The group header animates its own change; other changes are immediate.
    void setExpanded(Kind group, bool expanded, bool animated = false);
    void toggleGroup(Kind group);

    const std::optional<QString>& printerTestResult() const { return m_printerTestResult; }
    bool isPrinterTesting() const { return m_isPrinterTesting; }
    // The last status answer, on the page of the printer it came from only.
    const PrinterStatus* printerStatus(const QUuid& printer) const;
    // Whether a status query runs, and for which printer.
    bool isQueryingStatus() const { return !m_statusQueryPrinter.isNull(); }
    const QUuid& statusQueryPrinter() const { return m_statusQueryPrinter; }
    const std::optional<QString>& templateTestResult() const { return m_templateTestResult; }
    bool isTemplateTesting() const { return m_isTemplateTesting; }
    const std::optional<QString>& copiedPlaceholder() const { return m_copiedPlaceholder; }

    void initializeSelectedTab();
    // Adds a record of a kind and selects it; "+" beside a group also opens
    // the group, "Printer Toevoegen" on the template page does not.
    void addRecord(Kind kind, bool openGroup = true);
    // Removes the record at `index` and selects the first of its kind, or
    // else the first dossier. An index that is no longer valid does nothing.
    void deleteRecord(Kind kind, qsizetype index);
    void testPrinterConnection(qsizetype index);
    void queryPrinterStatus(qsizetype index);
    void testPrintTemplate(qsizetype index);
    void copyPlaceholder(const QString& key);

    // Keyboard focus back to the sidebar.
    void focusSidebar();

    // Tests shorten the feedback time.
    void setCopyFeedbackDuration(std::chrono::milliseconds duration);

signals:
    void selectedTabChanged();
    void expandedChanged(SettingsTabKey::Kind group, bool animated);
    void printerTestChanged();
    void printerStatusChanged();
    void templateTestChanged();
    void copiedPlaceholderChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildLayout();
    void selectFirstDossier();
    void setCopiedPlaceholder(std::optional<QString> key);
    QCoro::Task<> runPrinterTest(QString ip, qint64 port);
    QCoro::Task<> runStatusQuery(QString ip, qint64 port);
    QCoro::Task<> runTemplateTest(QString zpl, Printer printer);

    AppSettings& m_settings;
    SettingsSidebar* m_sidebar = nullptr;
    SettingsDetailArea* m_detailArea = nullptr;
    SettingsFooterView* m_footer = nullptr;
    QString m_selectedTab;
    QList<Kind> m_collapsedGroups;
    std::optional<QString> m_printerTestResult;
    bool m_isPrinterTesting = false;
    // Shared so that a running test keeps its service alive if the window closes.
    std::shared_ptr<PrinterService> m_printerService;
    std::optional<PrinterStatus> m_printerStatus;
    QUuid m_printerStatusPrinter;
    QUuid m_statusQueryPrinter;
    PrinterStatusService m_statusService;
    std::optional<QString> m_templateTestResult;
    bool m_isTemplateTesting = false;
    std::optional<QString> m_copiedPlaceholder;
    ZPLService m_zplService;
    std::shared_ptr<PrinterService> m_templatePrinterService;
    std::chrono::milliseconds m_copyFeedbackDuration = kCopyFeedbackDuration;
};
