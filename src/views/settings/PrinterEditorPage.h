#pragma once

#include "views/settings/SettingsEditorPage.h"

class BusyIndicator;
class QLabel;
class QLineEdit;
class QPushButton;

// Edits one printer's name, address and port, tests the connection, asks the
// printer for its status and deletes the printer.
class PrinterEditorPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    explicit PrinterEditorPage(SettingsViewModel& model, QWidget* parent = nullptr);

    QLineEdit* nameField() const { return m_name; }
    QLineEdit* ipAddressField() const { return m_ipAddress; }
    QLineEdit* portField() const { return m_port; }
    QPushButton* testButton() const { return m_testButton; }
    QLabel* resultLabel() const { return m_result; }
    BusyIndicator* spinner() const { return m_spinner; }
    QPushButton* statusButton() const { return m_statusButton; }
    BusyIndicator* statusSpinner() const { return m_statusSpinner; }
    // Beside the status button: the question while it runs, then the answer.
    QLabel* statusLabel() const { return m_status; }
    QPushButton* deleteButton() const { return m_deleteButton; }

    // Only whole numbers are taken over; anything else keeps the stored port.
    static std::optional<qint64> parsePort(const QString& text);

private:
    void refresh() override;

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
