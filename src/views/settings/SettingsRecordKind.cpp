#include "views/settings/SettingsRecordKind.h"

#include "model/AppSettings.h"

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

QList<SettingsRecordKind::Entry> SettingsRecordKind::entries(const AppSettings& settings) const
{
    QList<Entry> entries;
    switch (kind) {
    case Kind::dossier:
        for (const Dossier& dossier : settings.dossiers())
            entries.append({dossier.id, dossier.name, !dossier.apiKey.isEmpty()});
        break;
    case Kind::printer:
        for (const Printer& printer : settings.printers())
            entries.append({printer.id, printer.name, !printer.ipAddress.isEmpty()});
        break;
    case Kind::labelTemplate:
        for (const LabelTemplate& t : settings.templates())
            entries.append({t.id, t.name, settings.printerFor(t).has_value()});
        break;
    default:
        break;
    }
    return entries;
}

void SettingsRecordKind::add(AppSettings& settings) const
{
    if (kind == Kind::dossier)
        settings.addDossier();
    else if (kind == Kind::printer)
        settings.addPrinter();
    else if (kind == Kind::labelTemplate)
        settings.addTemplate();
}

void SettingsRecordKind::remove(AppSettings& settings, qsizetype index) const
{
    if (kind == Kind::dossier)
        settings.deleteDossier(settings.dossiers().at(index));
    else if (kind == Kind::printer)
        settings.deletePrinter(settings.printers().at(index));
    else if (kind == Kind::labelTemplate)
        settings.deleteTemplate(settings.templates().at(index));
}

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
    static const QList<SettingsRecordKind> kinds{
        {Kind::dossier, u"Dossiers"_s, u"folder"_s, u"folder.fill"_s, u"Nieuw dossier"_s,
         u"Geen dossiers"_s, u"Selecteer een dossier"_s, u"Geen dossiers geconfigureerd"_s,
         u"Klik op + naast Dossiers om er een toe te voegen"_s},
        {Kind::printer, u"Printers"_s, u"printer"_s, u"printer.fill"_s, u"Nieuwe printer"_s,
         u"Geen printers"_s, u"Selecteer een printer"_s, u"Geen printers geconfigureerd"_s,
         u"Klik op + naast Printers om er een toe te voegen"_s},
        {Kind::labelTemplate, u"Etiketten"_s, u"doc.text"_s, u"doc.text.fill"_s, u"Nieuw etiket"_s,
         u"Geen etiketten"_s, u"Selecteer een etiket"_s, u"Geen etiketten geconfigureerd"_s,
         u"Klik op + naast Etiketten om er een toe te voegen"_s},
    };
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
