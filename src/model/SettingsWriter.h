#pragma once

#include "RecordJsonCache.h"
#include "SettingsData.h"

#include <QByteArray>

// Writes the store's document for each save, turning only the records that
// changed since the last save into JSON again. The text is the same as
// SettingsData::write() gives.
class SettingsWriter
{
public:
    QByteArray write(const SettingsData& data);

private:
    RecordJsonCache<Dossier> m_dossiers;
    RecordJsonCache<Printer> m_printers;
    RecordJsonCache<LabelTemplate> m_templates;
};
