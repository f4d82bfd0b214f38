#pragma once

#include "model/AppSettings.h"

// What the save loop writes for one sequence number, shared by the loop and the
// test that kills it. Each number gives a document of another length, so a torn
// or mixed file shows; the book year carries the number.
namespace saveloop {

inline QList<Dossier> dossiersFor(qint64 sequence)
{
    QList<Dossier> dossiers;
    for (int position = 0; position <= sequence % 5; ++position)
        dossiers.append({QUuid::createUuidV5(QUuid(), QString::number(position)),
                         QStringLiteral("Dossier %1 van %2").arg(position).arg(sequence),
                         QString(static_cast<int>(sequence % 13) * 40, QLatin1Char('k'))});
    return dossiers;
}

inline void apply(AppSettings& settings, qint64 sequence)
{
    settings.setDossiers(dossiersFor(sequence));
    settings.setBookyear(QString::number(sequence));
}

inline bool matches(const SettingsData& data, qint64 sequence)
{
    return data.bookyear == QString::number(sequence) && data.dossiers == dossiersFor(sequence);
}

} // namespace saveloop
