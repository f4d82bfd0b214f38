#include "views/settings/PrinterEditorPage.h"

#include "model/AppSettings.h"
#include "views/common/BusyIndicator.h"
#include "views/common/Theme.h"
#include "views/settings/InfoBox.h"
#include "views/settings/LabelledField.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// 0.7 of the small progress indicator.
constexpr int kSpinnerSize = 12;

} // namespace

PrinterEditorPage::PrinterEditorPage(SettingsView& view, qsizetype index, QWidget* parent)
    : SettingsEditorPage(parent), m_view(view), m_index(index),
      m_name(makeLineEdit(u"Printer naam"_s)), m_ipAddress(makeLineEdit(u"192.168.1.100"_s, 150)),
      m_port(makeLineEdit(u"9100"_s, 70)), m_testButton(makeButton(u"Test Verbinding"_s)),
      m_spinner(new BusyIndicator(kSpinnerSize)),
      m_result(Theme::label({}, Theme::caption(), QPalette::WindowText)),
      m_statusButton(makeButton(u"Status"_s)), m_statusSpinner(new BusyIndicator(kSpinnerSize)),
      m_status(Theme::label({}, Theme::caption(), Theme::kSecondaryText))
{
    const Section details = addSection(u"Printer Details"_s);
    details.content->addWidget(new LabelledField(u"tag"_s, u"Naam"_s, m_name));

    const Section connection = addSection(u"Verbinding"_s);
    auto* addressRow = new QHBoxLayout;
    addressRow->setSpacing(16);
    addressRow->addWidget(new LabelledField(u"network"_s, u"IP Adres"_s, m_ipAddress));
    addressRow->addWidget(new LabelledField(u"number"_s, u"Poort"_s, m_port));
    addressRow->addStretch();
    connection.content->addLayout(addressRow);

    // The connection test and the status question each get a row of button,
    // progress indicator and result.
    const auto addButtonRow = [&connection](QPushButton* button, BusyIndicator* spinner,
                                            QLabel* result) {
        auto* row = new QHBoxLayout;
        row->setSpacing(12);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        row->addWidget(button);
        row->addWidget(spinner);
        row->addWidget(result, 1);
        // Keeps the button at the left while there is no result beside it.
        row->addStretch();
        result->setWordWrap(true);
        result->setTextInteractionFlags(Qt::TextSelectableByMouse);
        connection.content->addLayout(row);
    };
    addButtonRow(m_testButton, m_spinner, m_result);
    m_statusButton->setAccessibleDescription(
        u"Vraag de printer naar papier, lint, kop en buffer"_s);
    addButtonRow(m_statusButton, m_statusSpinner, m_status);
    connection.content->addWidget(new InfoBox(
        u"Voer het IP adres en poort van je Zebra etiketprinter in. Standaard poort is 9100."_s));

    m_deleteButton = addDeleteSection(u"Verwijder Printer"_s, nullptr);

    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_view.settings().updatePrinter(m_index, [&text](Printer& p) { p.name = text; });
    });
    connect(m_ipAddress, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_view.settings().updatePrinter(m_index, [&text](Printer& p) { p.ipAddress = text; });
    });
    connect(m_port, &QLineEdit::textEdited, this, &PrinterEditorPage::writePort);
    // Leaving the field shows the port in force again (e.g. after "abc").
    connect(m_port, &QLineEdit::editingFinished, this, &PrinterEditorPage::refresh);
    connect(m_testButton, &QPushButton::clicked, this,
            [this] { m_view.testPrinterConnection(m_index); });
    connect(m_statusButton, &QPushButton::clicked, this,
            [this] { m_view.queryPrinterStatus(m_index); });
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { m_view.deleteRecord(SettingsTabKey::Kind::printer, m_index); });
    connect(&m_view.settings(), &AppSettings::printersChanged, this, &PrinterEditorPage::refresh);
    connect(&m_view, &SettingsView::printerTestChanged, this, &PrinterEditorPage::refreshTestState);
    connect(&m_view, &SettingsView::printerStatusChanged, this, &PrinterEditorPage::refreshStatus);
    refresh();
}

void PrinterEditorPage::setRecord(const QUuid& id)
{
    m_index = SettingsRecordKind::of(SettingsTabKey::Kind::printer)->indexOf(m_view.settings(), id);
    refresh();
}

QLabel* PrinterEditorPage::resultLabel() const
{
    return m_result;
}

QLabel* PrinterEditorPage::statusLabel() const
{
    return m_status;
}

std::optional<qint64> PrinterEditorPage::parsePort(const QString& text)
{
    bool ok = false;
    const qint64 port = text.trimmed().toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    return port;
}

void PrinterEditorPage::writePort(const QString& text)
{
    if (const std::optional<qint64> port = parsePort(text))
        m_view.settings().updatePrinter(m_index, [port](Printer& p) { p.port = *port; });
}

void PrinterEditorPage::refresh()
{
    const QList<Printer>& printers = m_view.settings().printers();
    const bool valid = m_index >= 0 && m_index < printers.size();
    const Printer printer = valid ? printers.at(m_index) : Printer{};
    syncText(m_name, valid ? printer.name : QString());
    syncText(m_ipAddress, valid ? printer.ipAddress : QString());
    // While the port is being typed, text that is not (yet) a number stays.
    if (!m_port->hasFocus())
        syncText(m_port, valid ? QString::number(printer.port) : QString());
    refreshTestState();
    refreshStatus();
}

bool PrinterEditorPage::hasAddress() const
{
    const QList<Printer>& printers = m_view.settings().printers();
    return m_index >= 0 && m_index < printers.size() && !printers.at(m_index).ipAddress.isEmpty();
}

void PrinterEditorPage::refreshTestState()
{
    m_testButton->setEnabled(hasAddress() && !m_view.isPrinterTesting());
    m_spinner->setVisible(m_view.isPrinterTesting());

    const std::optional<QString>& result = m_view.printerTestResult();
    m_result->setVisible(result.has_value());
    m_result->setText(result.value_or(QString()));
    if (result)
        m_result->setForegroundRole(result->contains(u"gelukt"_s) ? Theme::kSuccessText
                                                                  : Theme::kErrorText);
}

void PrinterEditorPage::refreshStatus()
{
    // The status button follows the test button's rule, for its own query.
    m_statusButton->setEnabled(hasAddress() && !m_view.isQueryingStatus());

    const QList<Printer>& printers = m_view.settings().printers();
    const QUuid id = m_index >= 0 && m_index < printers.size() ? printers.at(m_index).id : QUuid();
    const bool asking = !id.isNull() && m_view.statusQueryPrinter() == id;
    const PrinterStatus* status = id.isNull() ? nullptr : m_view.printerStatus(id);
    m_status->setVisible(asking || status);
    m_statusSpinner->setVisible(asking);
    if (asking) {
        m_status->setText(u"Status opvragen..."_s);
        m_status->setForegroundRole(Theme::kSecondaryText);
    } else if (status) {
        m_status->setText(status->summary());
        m_status->setForegroundRole(status->isReady() ? Theme::kSuccessText : Theme::kErrorText);
    }
}
