#pragma once

#include "model/AppSettings.h"

#include <QObject>
#include <QStringList>
#include <utility>

// Records, in order, which published properties of a store announced a change
// (by property name).
class SettingsSignalRecorder
{
public:
    explicit SettingsSignalRecorder(AppSettings& settings)
    {
        using Signal = void (AppSettings::*)();
        const std::pair<Signal, const char*> kSignals[] = {
            {&AppSettings::bookyearChanged, "bookyear"},
            {&AppSettings::dossiersChanged, "dossiers"},
            {&AppSettings::selectedDossierIDChanged, "selectedDossierID"},
            {&AppSettings::printersChanged, "printers"},
            {&AppSettings::templatesChanged, "templates"},
            {&AppSettings::selectedTemplateIDChanged, "selectedTemplateID"},
            {&AppSettings::settingsWindowWidthChanged, "settingsWindowWidth"},
            {&AppSettings::settingsWindowHeightChanged, "settingsWindowHeight"},
            {&AppSettings::columnWidthCheckboxChanged, "columnWidthCheckbox"},
            {&AppSettings::columnWidthSKUChanged, "columnWidthSKU"},
            {&AppSettings::columnWidthNameChanged, "columnWidthName"},
            {&AppSettings::columnWidthPriceChanged, "columnWidthPrice"},
            {&AppSettings::columnWidthBarcodeChanged, "columnWidthBarcode"},
        };
        for (const auto& [signal, name] : kSignals) {
            const QString property = QString::fromLatin1(name);
            QObject::connect(&settings, signal, &m_context,
                             [this, property] { m_changed.append(property); });
        }
    }

    const QStringList& changed() const { return m_changed; }
    void clear() { m_changed.clear(); }

private:
    QObject m_context;
    QStringList m_changed;
};
