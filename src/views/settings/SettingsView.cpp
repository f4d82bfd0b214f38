#include "views/settings/SettingsView.h"

#include "model/AppSettings.h"
#include "services/PrinterService.h"
#include "views/common/AppInfo.h"
#include "views/common/Divider.h"
#include "views/settings/SettingsDetailArea.h"
#include "views/settings/SettingsFooterView.h"
#include "views/settings/SettingsHeaderView.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsSidebar.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QShowEvent>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

using namespace Qt::StringLiterals;

SettingsView::SettingsView(AppSettings& settings, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_printerService(std::make_shared<PrinterService>()),
      m_templatePrinterService(std::make_shared<PrinterService>())
{
    setAutoFillBackground(true);
    buildLayout();
}

SettingsView::~SettingsView()
{
    // The pages call back into this view (a field losing focus on the way out
    // commits its text); remove them while this view is still whole.
    const QList<QWidget*> children = findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    qDeleteAll(children);
}

void SettingsView::buildLayout()
{
    m_sidebar = new SettingsSidebar(*this);
    m_detailArea = new SettingsDetailArea(*this);
    auto* body = new QHBoxLayout;
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(m_sidebar);
    body->addWidget(makeDivider(Qt::Vertical));
    body->addWidget(m_detailArea, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new SettingsHeaderView);
    column->addWidget(makeDivider(Qt::Horizontal));
    column->addLayout(body, 1);
    column->addWidget(makeDivider(Qt::Horizontal));
    m_footer = new SettingsFooterView(m_settings, appVersion());
    column->addWidget(m_footer);
}

QString SettingsView::appVersion()
{
    return u"v"_s + AppInfo::version() + u"."_s + AppInfo::buildNumber();
}

Divider* SettingsView::makeDivider(Qt::Orientation orientation)
{
    return new Divider(orientation);
}

void SettingsView::setSelectedTab(const QString& key)
{
    if (key == m_selectedTab)
        return;
    m_selectedTab = key;
    emit selectedTabChanged();
}

void SettingsView::select(Kind kind, const QUuid& id)
{
    setSelectedTab(SettingsTabKey::make(kind, id));
}

bool SettingsView::isExpanded(Kind group) const
{
    return SettingsRecordKind::of(group) && !m_collapsedGroups.contains(group);
}

void SettingsView::setExpanded(Kind group, bool expanded, bool animated)
{
    if (!SettingsRecordKind::of(group) || isExpanded(group) == expanded)
        return;
    if (expanded)
        m_collapsedGroups.removeAll(group);
    else
        m_collapsedGroups.append(group);
    emit expandedChanged(group, animated);
}

void SettingsView::toggleGroup(Kind group)
{
    setExpanded(group, !isExpanded(group), true);
}

void SettingsView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    initializeSelectedTab();
    // The keyboard starts in the sidebar.
    if (!isAncestorOf(focusWidget()))
        focusSidebar();
}

void SettingsView::initializeSelectedTab()
{
    if (m_selectedTab.isEmpty())
        selectFirstDossier();
}

void SettingsView::selectFirstDossier()
{
    if (!m_settings.dossiers().isEmpty())
        select(Kind::dossier, m_settings.dossiers().constFirst().id);
}

void SettingsView::addRecord(Kind kind, bool openGroup)
{
    const SettingsRecordKind* records = SettingsRecordKind::of(kind);
    if (!records)
        return;
    records->add(m_settings);
    if (openGroup)
        setExpanded(kind, true);
    const QList<SettingsRecordKind::Entry> entries = records->entries(m_settings);
    if (!entries.isEmpty())
        select(kind, entries.constLast().id);
}

void SettingsView::deleteRecord(Kind kind, qsizetype index)
{
    const SettingsRecordKind* records = SettingsRecordKind::of(kind);
    if (!records || index < 0 || index >= records->entries(m_settings).size())
        return;
    records->remove(m_settings, index);
    const QList<SettingsRecordKind::Entry> remaining = records->entries(m_settings);
    if (!remaining.isEmpty())
        select(kind, remaining.constFirst().id);
    else
        selectFirstDossier();
}

void SettingsView::focusSidebar()
{
    m_sidebar->setFocus(Qt::TabFocusReason);
}

void SettingsView::testPrinterConnection(qsizetype index)
{
    // The button is disabled while a test runs; this also covers a double click
    // that arrives before the button was repainted.
    if (m_isPrinterTesting || index < 0 || index >= m_settings.printers().size())
        return;
    const Printer printer = m_settings.printers().at(index);
    m_isPrinterTesting = true;
    m_printerTestResult.reset();
    emit printerTestChanged();
    runPrinterTest(printer.ipAddress, printer.port);
}

QCoro::Task<> SettingsView::runPrinterTest(QString ip, qint64 port)
{
    const QPointer<SettingsView> self(this);
    const std::shared_ptr<PrinterService> service = m_printerService;
    const PrinterService::ConnectionTestResult result = co_await service->testConnection(ip, port);
    if (!self)
        co_return;
    m_printerTestResult = result.message;
    m_isPrinterTesting = false;
    emit printerTestChanged();
}

const PrinterStatus* SettingsView::printerStatus(const QUuid& printer) const
{
    return m_printerStatus && printer == m_printerStatusPrinter ? &*m_printerStatus : nullptr;
}

void SettingsView::queryPrinterStatus(qsizetype index)
{
    // One query at a time, as with the connection test.
    if (isQueryingStatus() || index < 0 || index >= m_settings.printers().size())
        return;
    const Printer printer = m_settings.printers().at(index);
    m_statusQueryPrinter = printer.id;
    m_printerStatus.reset();
    emit printerStatusChanged();
    runStatusQuery(printer.ipAddress, printer.port);
}

QCoro::Task<> SettingsView::runStatusQuery(QString ip, qint64 port)
{
    const QPointer<SettingsView> self(this);
    const PrinterStatus status = co_await m_statusService.queryStatus(ip, port);
    if (!self)
        co_return;
    m_printerStatus = status;
    m_printerStatusPrinter = std::exchange(m_statusQueryPrinter, QUuid());
    emit printerStatusChanged();
}

void SettingsView::testPrintTemplate(qsizetype index)
{
    if (m_isTemplateTesting || index < 0 || index >= m_settings.templates().size())
        return;
    const LabelTemplate labelTemplate = m_settings.templates().at(index);
    const std::optional<Printer> printer = m_settings.printerFor(labelTemplate);
    if (!printer || printer->ipAddress.isEmpty()) {
        m_templateTestResult = u"Geen printer geconfigureerd"_s;
        emit templateTestChanged();
        return;
    }
    const std::optional<QString> zpl = m_zplService.previewZPL(labelTemplate.zplContent);
    if (!zpl) {
        m_templateTestResult = u"Fout: "_s + ZPLService::labelTooLargeMessage();
        emit templateTestChanged();
        return;
    }
    m_isTemplateTesting = true;
    m_templateTestResult.reset();
    emit templateTestChanged();
    runTemplateTest(*zpl, *printer);
}

QCoro::Task<> SettingsView::runTemplateTest(QString zpl, Printer printer)
{
    const QPointer<SettingsView> self(this);
    const std::shared_ptr<PrinterService> service = m_templatePrinterService;
    const std::optional<PrinterError> error =
        co_await service->sendZPL(zpl, printer.ipAddress, printer.port);
    if (!self)
        co_return;
    m_templateTestResult = error ? u"Fout: "_s + error->errorDescription()
                                 : u"✓ Test etiket verstuurd naar "_s + printer.name;
    m_isTemplateTesting = false;
    emit templateTestChanged();
}

void SettingsView::copyPlaceholder(const QString& key)
{
    QGuiApplication::clipboard()->setText(key);
    setCopiedPlaceholder(key);
    // Each click schedules its own check, so a later click on another chip
    // keeps its full time and a repeated click does not extend the first.
    QTimer::singleShot(m_copyFeedbackDuration, Qt::PreciseTimer, this, [this, key] {
        if (m_copiedPlaceholder == key)
            setCopiedPlaceholder(std::nullopt);
    });
}

void SettingsView::setCopyFeedbackDuration(std::chrono::milliseconds duration)
{
    m_copyFeedbackDuration = duration;
}

void SettingsView::setCopiedPlaceholder(std::optional<QString> key)
{
    if (key == m_copiedPlaceholder)
        return;
    m_copiedPlaceholder = std::move(key);
    emit copiedPlaceholderChanged();
}
