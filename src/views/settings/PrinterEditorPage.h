#pragma once

#include "views/settings/SettingsEditorPage.h"

#include <QUuid>

class BusyIndicator;
class QLabel;
class QLineEdit;
class QPushButton;
class SettingsView;

// Edits one printer's name, address and port, tests the connection, asks the
// printer for its status and deletes the printer.
class PrinterEditorPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    PrinterEditorPage(SettingsView& view, qsizetype index, QWidget* parent = nullptr);

    qsizetype index() const { return m_index; }
    // Shows the record with this id; an id the store does not hold shows an empty page.
    void setRecord(const QUuid& id);
    QLineEdit* nameField() const { return m_name; }
    QLineEdit* ipAddressField() const { return m_ipAddress; }
    QLineEdit* portField() const { return m_port; }
    QPushButton* testButton() const { return m_testButton; }
    QLabel* resultLabel() const;
    BusyIndicator* spinner() const { return m_spinner; }
    QPushButton* statusButton() const { return m_statusButton; }
    BusyIndicator* statusSpinner() const { return m_statusSpinner; }
    // Beside the status button: the question while it runs, then the answer.
    QLabel* statusLabel() const;
    QPushButton* deleteButton() const { return m_deleteButton; }

    // Only whole numbers are taken over; anything else keeps the stored port.
    static std::optional<qint64> parsePort(const QString& text);

private:
    void refresh();
    void refreshTestState();
    void refreshStatus();
    bool hasAddress() const;
    void writePort(const QString& text);

    SettingsView& m_view;
    qsizetype m_index;
    QLineEdit* m_name;
    QLineEdit* m_ipAddress;
    QLineEdit* m_port;
    QPushButton* m_testButton;
    BusyIndicator* m_spinner;
    QLabel* m_result;
    QPushButton* m_statusButton;
    BusyIndicator* m_statusSpinner;
    QLabel* m_status;
    QPushButton* m_deleteButton;
};
