#include "views/settings/TemplatePrinterField.h"

#include "model/AppSettings.h"
#include "viewmodels/SettingsViewModel.h"
#include "views/common/Theme.h"
#include "views/settings/PrinterChoiceDelegate.h"
#include "views/settings/SettingsEditorPage.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

constexpr int kChoiceWidth = 250;

QString choiceText(const Printer& printer)
{
    return printer.ipAddress.isEmpty() ? printer.name
                                       : printer.name + u" ("_s + printer.ipAddress + u")"_s;
}

} // namespace

TemplatePrinterField::TemplatePrinterField(SettingsViewModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_choice(new QComboBox), m_noPrinters(new QWidget),
      m_addPrinter(SettingsEditorPage::makeButton(u"Printer Toevoegen"_s))
{
    m_choice->setFixedWidth(kChoiceWidth);
    m_choice->setAccessibleName(u"Printer"_s);
    m_choice->setItemDelegate(new PrinterChoiceDelegate(m_choice));
    m_addPrinter->setFont(Theme::caption());

    auto* noPrintersRow = new QHBoxLayout(m_noPrinters);
    noPrintersRow->setContentsMargins(0, 0, 0, 0);
    noPrintersRow->addWidget(
        Theme::label(u"Geen printers geconfigureerd"_s, Theme::caption(), Theme::kSecondaryText));
    noPrintersRow->addWidget(m_addPrinter);
    noPrintersRow->addStretch();

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_choice);
    layout->addWidget(m_noPrinters);
    layout->addStretch();

    connect(m_choice, &QComboBox::activated, this, &TemplatePrinterField::choose);
    connect(m_addPrinter, &QPushButton::clicked, this,
            [this] { m_model.addRecord(SettingsTabKey::Kind::printer, false); });
}

void TemplatePrinterField::refresh(qsizetype index)
{
    m_index = index;
    const AppSettings& settings = m_model.settings();
    const bool hasPrinters = !settings.printers().isEmpty();
    m_choice->setVisible(hasPrinters);
    m_noPrinters->setVisible(!hasPrinters);
    rebuildChoices();

    const QList<LabelTemplate>& templates = settings.templates();
    std::optional<QUuid> printerID;
    if (m_index >= 0 && m_index < templates.size())
        printerID = templates.at(m_index).printerID;
    const int row = printerID ? m_choice->findData(SettingsTabKey::uuidText(*printerID),
                                                   PrinterChoiceDelegate::kIDRole)
                              : 0;
    // A printer id that names no printer shows no entry.
    const QSignalBlocker blocker(m_choice);
    m_choice->setCurrentIndex(row);
}

void TemplatePrinterField::rebuildChoices()
{
    QStringList shown;
    for (const Printer& printer : m_model.settings().printers())
        shown << SettingsTabKey::uuidText(printer.id) << printer.name << printer.ipAddress;
    // Left alone while unchanged, so an open drop-down is not disturbed.
    if (shown == m_shownChoices && m_choice->count() > 0)
        return;
    m_shownChoices = shown;

    const QSignalBlocker blocker(m_choice);
    m_choice->clear();
    m_choice->addItem(u"Geen printer geselecteerd"_s, QString());
    for (const Printer& printer : m_model.settings().printers()) {
        m_choice->addItem(choiceText(printer), SettingsTabKey::uuidText(printer.id));
        const int row = m_choice->count() - 1;
        m_choice->setItemData(row, printer.name, PrinterChoiceDelegate::kNameRole);
        m_choice->setItemData(row, printer.ipAddress, PrinterChoiceDelegate::kAddressRole);
    }
}

void TemplatePrinterField::choose(int row)
{
    const QString idText = m_choice->itemData(row, PrinterChoiceDelegate::kIDRole).toString();
    std::optional<QUuid> printerID;
    if (!idText.isEmpty())
        printerID = QUuid::fromString(idText);
    m_model.settings().updateTemplate(m_index,
                                      [&printerID](LabelTemplate& t) { t.printerID = printerID; });
}
