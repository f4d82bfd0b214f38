#include "views/settings/DossierEditorPage.h"

#include "model/AppSettings.h"
#include "viewmodels/SettingsViewModel.h"
#include "views/settings/InfoBox.h"
#include "views/settings/LabelledField.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DossierEditorPage::DossierEditorPage(SettingsViewModel& model, QWidget* parent)
    : SettingsEditorPage(&model, SettingsTabKey::Kind::dossier, parent),
      m_name(makeLineEdit(u"Dossier naam"_s)), m_apiKey(makeLineEdit(u"Voer je API key in"_s)),
      m_bookyear(makeLineEdit(u"2025"_s, 100))
{
    QVBoxLayout* details = addSection(u"Dossier Details"_s);
    details->addWidget(new LabelledField(u"tag"_s, u"Naam"_s, m_name));
    details->addWidget(new LabelledField(u"key.fill"_s, u"API Key"_s, m_apiKey));
    details->addWidget(new InfoBox(u"Haal je API key op uit Kalmora Online instellingen"_s));

    QVBoxLayout* global = addSection(u"Globale Instellingen"_s);
    global->addWidget(new LabelledField(u"calendar"_s, u"Boekjaar"_s, m_bookyear));
    global->addWidget(new InfoBox(u"Het boekjaar wordt gebruikt voor alle dossiers"_s));

    m_deleteButton = addDeleteSection(u"Verwijder Dossier"_s);

    AppSettings& settings = m_model->settings();
    // Writes go through the index; the store ignores one that is not valid.
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_model->settings().updateDossier(index(), [&text](Dossier& d) { d.name = text; });
    });
    connect(m_apiKey, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_model->settings().updateDossier(index(), [&text](Dossier& d) { d.apiKey = text; });
    });
    connect(m_bookyear, &QLineEdit::textEdited, &settings, &AppSettings::setBookyear);
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { m_model->deleteRecord(SettingsTabKey::Kind::dossier, index()); });
    connect(&settings, &AppSettings::dossiersChanged, this, &DossierEditorPage::refresh);
    connect(&settings, &AppSettings::bookyearChanged, this, &DossierEditorPage::refresh);
    refresh();
}

void DossierEditorPage::refresh()
{
    const QList<Dossier>& dossiers = m_model->settings().dossiers();
    const qsizetype at = index();
    syncText(m_name, at >= 0 ? dossiers.at(at).name : QString());
    syncText(m_apiKey, at >= 0 ? dossiers.at(at).apiKey : QString());
    syncText(m_bookyear, m_model->settings().bookyear());
    showDeleteSection(m_deleteButton, dossiers.size() > 1);
}
