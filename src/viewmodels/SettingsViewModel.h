#pragma once

#include "model/Printer.h"
#include "services/PrinterStatusService.h"
#include "services/ZPLService.h"
#include "viewmodels/SettingsTabKey.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <chrono>
#include <memory>
#include <optional>

class AppSettings;
class PrinterService;

// What the settings window shows besides the store: the selection key, the
// open groups, the test results, the status answer and the copy feedback,
// each one value for the whole window, and the actions that change them.
class SettingsViewModel : public QObject
{
    Q_OBJECT

public:
    using Kind = SettingsTabKey::Kind;

    static constexpr std::chrono::milliseconds kCopyFeedbackDuration{2000};

    explicit SettingsViewModel(AppSettings& settings, QObject* parent = nullptr);

    AppSettings& settings() const { return m_settings; }
    const ZPLService& zplService() const { return m_zplService; }
    // A kind's record ids in list order; none for "about" and "none".
    QList<QUuid> ids(Kind kind) const;
    qsizetype indexOf(Kind kind, const QUuid& id) const { return ids(kind).indexOf(id); }

    const QString& selectedTab() const { return m_selectedTab; }
    void setSelectedTab(const QString& key);
    void select(Kind kind, const QUuid& id) { setSelectedTab(SettingsTabKey::make(kind, id)); }
    void initializeSelectedTab();

    bool isExpanded(Kind group) const { return !m_collapsedGroups.contains(group); }
    void setExpanded(Kind group, bool expanded);

    // Adds a record of a kind and selects it; "+" beside a group also opens
    // the group, "Printer Toevoegen" on the template page does not.
    void addRecord(Kind kind, bool openGroup = true);
    // Removes the record at `index` and selects the first of its kind, or
    // else the first dossier. An index that is no longer valid does nothing.
    void deleteRecord(Kind kind, qsizetype index);

    const std::optional<QString>& printerTestResult() const { return m_printerTestResult; }
    bool isPrinterTesting() const { return m_isPrinterTesting; }
    void testPrinterConnection(qsizetype index);
    // The last status answer, for the printer it came from only.
    const PrinterStatus* printerStatus(const QUuid& printer) const;
    // The printer being asked; null while no query runs.
    const QUuid& statusQueryPrinter() const { return m_statusQueryPrinter; }
    bool isQueryingStatus() const { return !m_statusQueryPrinter.isNull(); }
    void queryPrinterStatus(qsizetype index);
    const std::optional<QString>& templateTestResult() const { return m_templateTestResult; }
    bool isTemplateTesting() const { return m_isTemplateTesting; }
    void testPrintTemplate(qsizetype index);

    const std::optional<QString>& copiedPlaceholder() const { return m_copiedPlaceholder; }
    // Shows that `key` was copied, until the feedback time has passed unless
    // another key was copied meanwhile.
    void placeholderCopied(const QString& key);
    // Tests shorten the feedback time.
    void setCopyFeedbackDuration(std::chrono::milliseconds duration)
    {
        m_copyFeedbackDuration = duration;
    }

signals:
    void selectedTabChanged();
    void expandedChanged();
    // A test, the status question or the copy feedback changed.
    void resultsChanged();

private:
    void selectFirstDossier();
    void setCopiedPlaceholder(std::optional<QString> key);
    QCoro::Task<> runPrinterTest(QString ip, qint64 port);
    QCoro::Task<> runStatusQuery(QString ip, qint64 port);
    QCoro::Task<> runTemplateTest(QString zpl, Printer printer);

    AppSettings& m_settings;
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
