#include "views/settings/SettingsRecordKind.h"

#include "model/AppSettings.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/TemplateEditorPage.h"

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

namespace {

QList<SettingsRecordKind::Entry> dossierEntries(const AppSettings& settings)
{
    QList<SettingsRecordKind::Entry> entries;
    for (const Dossier& dossier : settings.dossiers())
        entries.append({dossier.id, dossier.name, !dossier.apiKey.isEmpty()});
    return entries;
}

QList<SettingsRecordKind::Entry> printerEntries(const AppSettings& settings)
{
    QList<SettingsRecordKind::Entry> entries;
    for (const Printer& printer : settings.printers())
        entries.append({printer.id, printer.name, !printer.ipAddress.isEmpty()});
    return entries;
}

QList<SettingsRecordKind::Entry> templateEntries(const AppSettings& settings)
{
    QList<SettingsRecordKind::Entry> entries;
    for (const LabelTemplate& labelTemplate : settings.templates())
        entries.append(
            {labelTemplate.id, labelTemplate.name, settings.printerFor(labelTemplate).has_value()});
    return entries;
}

template <typename Page> QWidget* makeEditor(SettingsView& view, qsizetype index)
{
    return new Page(view, index);
}

QList<SettingsRecordKind> makeKinds()
{
    return {
        {Kind::dossier, u"Dossiers"_s, u"folder"_s, u"folder.fill"_s, u"Nieuw dossier"_s,
         u"Geen dossiers"_s, u"Selecteer een dossier"_s, u"Geen dossiers geconfigureerd"_s,
         u"Klik op + naast Dossiers om er een toe te voegen"_s, &AppSettings::addDossier,
         &dossierEntries, [](AppSettings& s, qsizetype i) { s.deleteDossier(s.dossiers().at(i)); },
         &makeEditor<DossierEditorPage>},
        {Kind::printer, u"Printers"_s, u"printer"_s, u"printer.fill"_s, u"Nieuwe printer"_s,
         u"Geen printers"_s, u"Selecteer een printer"_s, u"Geen printers geconfigureerd"_s,
         u"Klik op + naast Printers om er een toe te voegen"_s, &AppSettings::addPrinter,
         &printerEntries, [](AppSettings& s, qsizetype i) { s.deletePrinter(s.printers().at(i)); },
         &makeEditor<PrinterEditorPage>},
        {Kind::labelTemplate, u"Etiketten"_s, u"doc.text"_s, u"doc.text.fill"_s, u"Nieuw etiket"_s,
         u"Geen etiketten"_s, u"Selecteer een etiket"_s, u"Geen etiketten geconfigureerd"_s,
         u"Klik op + naast Etiketten om er een toe te voegen"_s, &AppSettings::addTemplate,
         &templateEntries,
         [](AppSettings& s, qsizetype i) { s.deleteTemplate(s.templates().at(i)); },
         &makeEditor<TemplateEditorPage>},
    };
}

} // namespace

qsizetype SettingsRecordKind::indexOf(const AppSettings& settings, const QUuid& id) const
{
    const QList<Entry> records = entries(settings);
    for (qsizetype i = 0; i < records.size(); ++i) {
        if (records.at(i).id == id)
            return i;
    }
    return -1;
}

const QList<SettingsRecordKind>& SettingsRecordKind::all()
{
    static const QList<SettingsRecordKind> kinds = makeKinds();
    return kinds;
}

const SettingsRecordKind* SettingsRecordKind::of(SettingsTabKey::Kind kind)
{
    for (const SettingsRecordKind& candidate : all()) {
        if (candidate.kind == kind)
            return &candidate;
    }
    return nullptr;
}
