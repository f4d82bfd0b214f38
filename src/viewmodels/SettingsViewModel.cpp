#include "viewmodels/SettingsViewModel.h"

#include "model/AppSettings.h"
#include "services/PrinterService.h"

#include <QPointer>
#include <QTimer>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

template <typename Records> QList<QUuid> idsOf(const Records& records)
{
    QList<QUuid> ids;
    for (const auto& record : records)
        ids.append(record.id);
    return ids;
}

} // namespace

SettingsViewModel::SettingsViewModel(AppSettings& settings, QObject* parent)
    : QObject(parent), m_settings(settings), m_printerService(std::make_shared<PrinterService>()),
      m_templatePrinterService(std::make_shared<PrinterService>())
{}

QList<QUuid> SettingsViewModel::ids(Kind kind) const
{
    switch (kind) {
    case Kind::dossier:
        return idsOf(m_settings.dossiers());
    case Kind::printer:
        return idsOf(m_settings.printers());
    case Kind::labelTemplate:
        return idsOf(m_settings.templates());
    default:
        return {};
    }
}

void SettingsViewModel::setSelectedTab(const QString& key)
{
    if (key == m_selectedTab)
        return;
    m_selectedTab = key;
    emit selectedTabChanged();
}

void SettingsViewModel::initializeSelectedTab()
{
    if (m_selectedTab.isEmpty())
        selectFirstDossier();
}

void SettingsViewModel::selectFirstDossier()
{
    if (!m_settings.dossiers().isEmpty())
        select(Kind::dossier, m_settings.dossiers().constFirst().id);
}

void SettingsViewModel::setExpanded(Kind group, bool expanded)
{
    if (isExpanded(group) == expanded)
        return;
    if (expanded)
        m_collapsedGroups.removeAll(group);
    else
        m_collapsedGroups.append(group);
    emit expandedChanged();
}

void SettingsViewModel::addRecord(Kind kind, bool openGroup)
{
    if (kind == Kind::dossier)
        m_settings.addDossier();
    else if (kind == Kind::printer)
        m_settings.addPrinter();
    else if (kind == Kind::labelTemplate)
        m_settings.addTemplate();
    else
        return;
    if (openGroup)
        setExpanded(kind, true);
    const QList<QUuid> records = ids(kind);
    if (!records.isEmpty())
        select(kind, records.constLast());
}

void SettingsViewModel::deleteRecord(Kind kind, qsizetype index)
{
    if (index < 0 || index >= ids(kind).size())
        return;
    if (kind == Kind::dossier)
        m_settings.deleteDossier(m_settings.dossiers().at(index));
    else if (kind == Kind::printer)
        m_settings.deletePrinter(m_settings.printers().at(index));
    else
        m_settings.deleteTemplate(m_settings.templates().at(index));
    const QList<QUuid> remaining = ids(kind);
    if (!remaining.isEmpty())
        select(kind, remaining.constFirst());
    else
        selectFirstDossier();
}

void SettingsViewModel::testPrinterConnection(qsizetype index)
{
    // The button is disabled while a test runs; this also covers a double click
    // that arrives before the button was repainted.
    if (m_isPrinterTesting || index < 0 || index >= m_settings.printers().size())
        return;
    const Printer printer = m_settings.printers().at(index);
    m_isPrinterTesting = true;
    m_printerTestResult.reset();
    emit resultsChanged();
    runPrinterTest(printer.ipAddress, printer.port);
}

QCoro::Task<> SettingsViewModel::runPrinterTest(QString ip, qint64 port)
{
    const QPointer<SettingsViewModel> self(this);
    const std::shared_ptr<PrinterService> service = m_printerService;
    const PrinterService::ConnectionTestResult result = co_await service->testConnection(ip, port);
    if (!self)
        co_return;
    m_printerTestResult = result.message;
    m_isPrinterTesting = false;
    emit resultsChanged();
}

const PrinterStatus* SettingsViewModel::printerStatus(const QUuid& printer) const
{
    return m_printerStatus && printer == m_printerStatusPrinter ? &*m_printerStatus : nullptr;
}

void SettingsViewModel::queryPrinterStatus(qsizetype index)
{
    // One query at a time, as with the connection test.
    if (isQueryingStatus() || index < 0 || index >= m_settings.printers().size())
        return;
    const Printer printer = m_settings.printers().at(index);
    m_statusQueryPrinter = printer.id;
    m_printerStatus.reset();
    emit resultsChanged();
    runStatusQuery(printer.ipAddress, printer.port);
}

QCoro::Task<> SettingsViewModel::runStatusQuery(QString ip, qint64 port)
{
    const QPointer<SettingsViewModel> self(this);
    const PrinterStatus status = co_await m_statusService.queryStatus(ip, port);
    if (!self)
        co_return;
    m_printerStatus = status;
    m_printerStatusPrinter = std::exchange(m_statusQueryPrinter, QUuid());
    emit resultsChanged();
}

void SettingsViewModel::testPrintTemplate(qsizetype index)
{
    if (m_isTemplateTesting || index < 0 || index >= m_settings.templates().size())
        return;
    const LabelTemplate labelTemplate = m_settings.templates().at(index);
    const std::optional<Printer> printer = m_settings.printerFor(labelTemplate);
    if (!printer || printer->ipAddress.isEmpty()) {
        m_templateTestResult = u"Geen printer geconfigureerd"_s;
        emit resultsChanged();
        return;
    }
    const std::optional<QString> zpl = m_zplService.previewZPL(labelTemplate.zplContent);
    if (!zpl) {
        m_templateTestResult = u"Fout: "_s + ZPLService::labelTooLargeMessage();
        emit resultsChanged();
        return;
    }
    m_isTemplateTesting = true;
    m_templateTestResult.reset();
    emit resultsChanged();
    runTemplateTest(*zpl, *printer);
}

QCoro::Task<> SettingsViewModel::runTemplateTest(QString zpl, Printer printer)
{
    const QPointer<SettingsViewModel> self(this);
    const std::shared_ptr<PrinterService> service = m_templatePrinterService;
    const std::optional<PrinterError> error =
        co_await service->sendZPL(zpl, printer.ipAddress, printer.port);
    if (!self)
        co_return;
    m_templateTestResult = error ? u"Fout: "_s + error->errorDescription()
                                 : u"✓ Test etiket verstuurd naar "_s + printer.name;
    m_isTemplateTesting = false;
    emit resultsChanged();
}

void SettingsViewModel::placeholderCopied(const QString& key)
{
    setCopiedPlaceholder(key);
    // Each copy schedules its own check, so a later copy of another key keeps
    // its full time and a repeated copy does not extend the first.
    QTimer::singleShot(m_copyFeedbackDuration, Qt::PreciseTimer, this, [this, key] {
        if (m_copiedPlaceholder == key)
            setCopiedPlaceholder(std::nullopt);
    });
}

void SettingsViewModel::setCopiedPlaceholder(std::optional<QString> key)
{
    if (key == m_copiedPlaceholder)
        return;
    m_copiedPlaceholder = std::move(key);
    emit resultsChanged();
}
