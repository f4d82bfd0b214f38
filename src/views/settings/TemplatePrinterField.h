#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class SettingsViewModel;

// The template's printer input: a choice of the configured printers, or,
// when there are none, a note with a button that adds one.
class TemplatePrinterField : public QWidget
{
    Q_OBJECT

public:
    explicit TemplatePrinterField(SettingsViewModel& model, QWidget* parent = nullptr);

    QComboBox* choice() const { return m_choice; }
    QWidget* noPrintersRow() const { return m_noPrinters; }
    QPushButton* addPrinterButton() const { return m_addPrinter; }

    // Shows the printer of the template at `index`; a choice is written there.
    void refresh(qsizetype index);

private:
    void rebuildChoices();
    void choose(int row);

    SettingsViewModel& m_model;
    qsizetype m_index = -1;
    QComboBox* m_choice;
    QWidget* m_noPrinters;
    QPushButton* m_addPrinter;
    QStringList m_shownChoices;
};
