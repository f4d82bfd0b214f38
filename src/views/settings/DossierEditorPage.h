#pragma once

#include "views/settings/SettingsEditorPage.h"

class QLineEdit;
class QPushButton;

// Edits one dossier's name and API key and the global book year.
class DossierEditorPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    explicit DossierEditorPage(SettingsViewModel& model, QWidget* parent = nullptr);

    QLineEdit* nameField() const { return m_name; }
    QLineEdit* apiKeyField() const { return m_apiKey; }
    // Shown only while there is more than one dossier.
    QPushButton* deleteButton() const { return m_deleteButton; }

private:
    void refresh() override;

    QLineEdit* m_name;
    QLineEdit* m_apiKey;
    QLineEdit* m_bookyear;
    QPushButton* m_deleteButton;
};
