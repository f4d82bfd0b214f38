#pragma once

#include "model/AppSettings.h"

// The settings that the save loop writes for one sequence number, shared by
// the loop and the test that kills it. Every sequence number gives a document
// of another length, so a torn or mixed file shows.
namespace saveloop {

inline QList<Dossier> dossiersFor(qint64 sequence)
{
    static const QUuid kNamespace(u"5B0C8E52-4D1A-4E7B-9C3F-2A6D8E1F0B47");
    QList<Dossier> dossiers;
    for (int position = 0; position <= sequence % 5; ++position)
        dossiers.append({QUuid::createUuidV5(kNamespace, QString::number(position)),
                         QStringLiteral("Dossier %1 van %2").arg(position).arg(sequence),
                         QString(static_cast<int>(sequence % 13) * 40, QLatin1Char('k'))});
    return dossiers;
}

// One save's worth of changes; the book year carries the sequence number.
inline void apply(AppSettings& settings, qint64 sequence)
{
    settings.setDossiers(dossiersFor(sequence));
    settings.setColumnWidthName(static_cast<double>(sequence));
    settings.setBookyear(QString::number(sequence));
}

inline bool matches(const SettingsData& data, qint64 sequence)
{
    return data.bookyear == QString::number(sequence) && data.dossiers == dossiersFor(sequence) &&
           data.columnWidthName == static_cast<double>(sequence);
}

} // namespace saveloop
