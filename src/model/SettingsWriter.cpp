#include "SettingsWriter.h"

QByteArray SettingsWriter::write(const SettingsData& data)
{
    return data.write({m_dossiers.toJsonArray(data.dossiers), m_printers.toJsonArray(data.printers),
                       m_templates.toJsonArray(data.templates)});
}
