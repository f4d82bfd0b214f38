#include "views/settings/PrinterEditorPage.h"

#include "model/AppSettings.h"
#include "viewmodels/SettingsViewModel.h"
#include "views/common/BusyIndicator.h"
#include "views/common/Theme.h"
#include "views/settings/InfoBox.h"
#include "views/settings/LabelledField.h"

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

PrinterEditorPage::PrinterEditorPage(SettingsViewModel& model, QWidget* parent)
    : SettingsEditorPage(&model, SettingsTabKey::Kind::printer, parent),
      m_name(makeLineEdit(u"Printer naam"_s)), m_ipAddress(makeLineEdit(u"192.168.1.100"_s, 150)),
      m_port(makeLineEdit(u"9100"_s, 70)), m_testButton(makeButton(u"Test Verbinding"_s)),
      m_spinner(new BusyIndicator(kSpinnerSize)),
      m_result(Theme::label({}, Theme::caption(), QPalette::WindowText)),
      m_statusButton(makeButton(u"Status"_s)), m_statusSpinner(new BusyIndicator(kSpinnerSize)),
      m_status(Theme::label({}, Theme::caption(), Theme::kSecondaryText))
{
    addSection(u"Printer Details"_s)->addWidget(new LabelledField(u"tag"_s, u"Naam"_s, m_name));

    QVBoxLayout* connection = addSection(u"Verbinding"_s);
    auto* addressRow = new QHBoxLayout;
    addressRow->setSpacing(16);
    addressRow->addWidget(new LabelledField(u"network"_s, u"IP Adres"_s, m_ipAddress));
    addressRow->addWidget(new LabelledField(u"number"_s, u"Poort"_s, m_port));
    addressRow->addStretch();
    connection->addLayout(addressRow);

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
        connection->addLayout(row);
    };
    addButtonRow(m_testButton, m_spinner, m_result);
    m_statusButton->setAccessibleDescription(
        u"Vraag de printer naar papier, lint, kop en buffer"_s);
    addButtonRow(m_statusButton, m_statusSpinner, m_status);
    connection->addWidget(new InfoBox(
        u"Voer het IP adres en poort van je Zebra etiketprinter in. Standaard poort is 9100."_s));

    m_deleteButton = addDeleteSection(u"Verwijder Printer"_s);

    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_model->settings().updatePrinter(index(), [&text](Printer& p) { p.name = text; });
    });
    connect(m_ipAddress, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_model->settings().updatePrinter(index(), [&text](Printer& p) { p.ipAddress = text; });
    });
    connect(m_port, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (const std::optional<qint64> port = parsePort(text))
            m_model->settings().updatePrinter(index(), [port](Printer& p) { p.port = *port; });
    });
    // Leaving the field shows the port in force again (e.g. after "abc").
    connect(m_port, &QLineEdit::editingFinished, this, &PrinterEditorPage::refresh);
    connect(m_testButton, &QPushButton::clicked, this,
            [this] { m_model->testPrinterConnection(index()); });
    connect(m_statusButton, &QPushButton::clicked, this,
            [this] { m_model->queryPrinterStatus(index()); });
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { m_model->deleteRecord(SettingsTabKey::Kind::printer, index()); });
    connect(&m_model->settings(), &AppSettings::printersChanged, this, &PrinterEditorPage::refresh);
    connect(m_model, &SettingsViewModel::resultsChanged, this, &PrinterEditorPage::refresh);
    refresh();
}

std::optional<qint64> PrinterEditorPage::parsePort(const QString& text)
{
    bool ok = false;
    const qint64 port = text.trimmed().toLongLong(&ok);
    return ok ? std::optional(port) : std::nullopt;
}

void PrinterEditorPage::refresh()
{
    const qsizetype at = index();
    const Printer printer = at >= 0 ? m_model->settings().printers().at(at) : Printer{};
    syncText(m_name, printer.name);
    syncText(m_ipAddress, printer.ipAddress);
    // While the port is being typed, text that is not (yet) a number stays.
    if (!m_port->hasFocus())
        syncText(m_port, at >= 0 ? QString::number(printer.port) : QString());

    // The connection test and the status question each run one at a time.
    const bool hasAddress = at >= 0 && !printer.ipAddress.isEmpty();
    m_testButton->setEnabled(hasAddress && !m_model->isPrinterTesting());
    m_spinner->setVisible(m_model->isPrinterTesting());
    const std::optional<QString>& result = m_model->printerTestResult();
    m_result->setVisible(result.has_value());
    m_result->setText(result.value_or(QString()));
    if (result)
        m_result->setForegroundRole(result->contains(u"gelukt"_s) ? Theme::kSuccessText
                                                                  : Theme::kErrorText);

    m_statusButton->setEnabled(hasAddress && !m_model->isQueryingStatus());
    const bool asking = at >= 0 && m_model->statusQueryPrinter() == m_record;
    const PrinterStatus* status = at >= 0 ? m_model->printerStatus(m_record) : nullptr;
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
