#pragma once

#include "model/AppSettings.h"

#include <QObject>
#include <QStringList>
#include <array>
#include <utility>

// Records, in order, which published properties of a store announced a change
// (by property name).
class SettingsSignalRecorder
{
public:
    explicit SettingsSignalRecorder(AppSettings& settings)
    {
        for (const auto& [signal, name] : kSignals) {
            const QString property = QString::fromLatin1(name);
            QObject::connect(&settings, signal, &m_context,
                             [this, property] { m_changed.append(property); });
        }
    }

    // Every published property, in the order the store declares them.
    static QStringList properties()
    {
        QStringList names;
        for (const auto& entry : kSignals)
            names.append(QString::fromLatin1(entry.second));
        return names;
    }

    const QStringList& changed() const { return m_changed; }
    void clear() { m_changed.clear(); }

private:
    using Signal = void (AppSettings::*)();
    static constexpr std::array<std::pair<Signal, const char*>, 13> kSignals{{
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
    }};

    QObject m_context;
    QStringList m_changed;
};
