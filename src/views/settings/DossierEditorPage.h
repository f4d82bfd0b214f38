#pragma once

#include "views/settings/SettingsEditorPage.h"

#include <QUuid>

class QLineEdit;
class QPushButton;
class SettingsView;

// Edits one dossier's name and API key and the global book year.
class DossierEditorPage : public SettingsEditorPage
{
    Q_OBJECT

public:
    DossierEditorPage(SettingsView& view, qsizetype index, QWidget* parent = nullptr);

    qsizetype index() const { return m_index; }
    // Shows the record with this id; an id the store does not hold shows an empty page.
    void setRecord(const QUuid& id);
    QLineEdit* nameField() const { return m_name; }
    QLineEdit* apiKeyField() const { return m_apiKey; }
    QLineEdit* bookyearField() const { return m_bookyear; }
    QPushButton* deleteButton() const { return m_deleteButton; }
    // The delete section exists only while there is more than one dossier.
    bool isDeleteShown() const;

private:
    void refresh();

    SettingsView& m_view;
    qsizetype m_index;
    QLineEdit* m_name;
    QLineEdit* m_apiKey;
    QLineEdit* m_bookyear;
    QPushButton* m_deleteButton;
    QWidget* m_deleteSection = nullptr;
};
