#include "views/settings/SettingsRecordKind.h"

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

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
