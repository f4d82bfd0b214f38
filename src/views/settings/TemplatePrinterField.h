#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class SettingsView;

// The template's printer input: a choice of the configured printers, or,
// when there are none, a note with a button that adds one.
class TemplatePrinterField : public QWidget
{
    Q_OBJECT

public:
    TemplatePrinterField(SettingsView& view, qsizetype index, QWidget* parent = nullptr);

    QComboBox* choice() const { return m_choice; }
    QWidget* noPrintersRow() const { return m_noPrinters; }
    QPushButton* addPrinterButton() const { return m_addPrinter; }

    void refresh();
    void setIndex(qsizetype index)
    {
        m_index = index;
        refresh();
    }

private:
    void rebuildChoices();
    void choose(int row);

    SettingsView& m_view;
    qsizetype m_index;
    QComboBox* m_choice;
    QWidget* m_noPrinters;
    QPushButton* m_addPrinter;
    QStringList m_shownChoices;
};
