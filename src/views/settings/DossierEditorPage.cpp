#include "views/settings/DossierEditorPage.h"

#include "model/AppSettings.h"
#include "views/settings/InfoBox.h"
#include "views/settings/LabelledField.h"
#include "views/settings/SettingsRecordKind.h"
#include "views/settings/SettingsView.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

DossierEditorPage::DossierEditorPage(SettingsView& view, qsizetype index, QWidget* parent)
    : SettingsEditorPage(parent), m_view(view), m_index(index),
      m_name(makeLineEdit(u"Dossier naam"_s)), m_apiKey(makeLineEdit(u"Voer je API key in"_s)),
      m_bookyear(makeLineEdit(u"2025"_s, 100))
{
    const Section details = addSection(u"Dossier Details"_s);
    details.content->addWidget(new LabelledField(u"tag"_s, u"Naam"_s, m_name));
    details.content->addWidget(new LabelledField(u"key.fill"_s, u"API Key"_s, m_apiKey));
    details.content->addWidget(
        new InfoBox(u"Haal je API key op uit Kalmora Online instellingen"_s));

    const Section global = addSection(u"Globale Instellingen"_s);
    global.content->addWidget(new LabelledField(u"calendar"_s, u"Boekjaar"_s, m_bookyear));
    global.content->addWidget(new InfoBox(u"Het boekjaar wordt gebruikt voor alle dossiers"_s));

    m_deleteButton = addDeleteSection(u"Verwijder Dossier"_s, &m_deleteSection);

    AppSettings& settings = m_view.settings();
    // Writes go through the index; the store ignores one that is no longer valid.
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_view.settings().updateDossier(m_index, [&text](Dossier& d) { d.name = text; });
    });
    connect(m_apiKey, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_view.settings().updateDossier(m_index, [&text](Dossier& d) { d.apiKey = text; });
    });
    connect(m_bookyear, &QLineEdit::textEdited, &settings, &AppSettings::setBookyear);
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { m_view.deleteRecord(SettingsTabKey::Kind::dossier, m_index); });
    connect(&settings, &AppSettings::dossiersChanged, this, &DossierEditorPage::refresh);
    connect(&settings, &AppSettings::bookyearChanged, this, &DossierEditorPage::refresh);
    refresh();
}

void DossierEditorPage::setRecord(const QUuid& id)
{
    m_index = SettingsRecordKind::of(SettingsTabKey::Kind::dossier)->indexOf(m_view.settings(), id);
    refresh();
}

bool DossierEditorPage::isDeleteShown() const
{
    return !m_deleteSection->isHidden();
}

void DossierEditorPage::refresh()
{
    const AppSettings& settings = m_view.settings();
    const QList<Dossier>& dossiers = settings.dossiers();
    const bool valid = m_index >= 0 && m_index < dossiers.size();
    syncText(m_name, valid ? dossiers.at(m_index).name : QString());
    syncText(m_apiKey, valid ? dossiers.at(m_index).apiKey : QString());
    syncText(m_bookyear, settings.bookyear());
    m_deleteSection->setVisible(dossiers.size() > 1);
}
