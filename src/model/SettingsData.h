#pragma once

#include "model/Dossier.h"
#include "model/LabelTemplate.h"
#include "model/Printer.h"

#include <QByteArray>
#include <QList>
#include <optional>

// The persisted settings document: the settings file and the export/import format.
struct SettingsData
{
    QString bookyear;
    QList<Dossier> dossiers;
    std::optional<QUuid> selectedDossierID;
    QList<Printer> printers;
    QList<LabelTemplate> templates;
    std::optional<QUuid> selectedTemplateID;
    double settingsWindowWidth = 1100;
    double settingsWindowHeight = 700;
    double columnWidthCheckbox = 30;
    double columnWidthSKU = 120;
    double columnWidthName = 300;
    double columnWidthPrice = 100;
    double columnWidthBarcode = 130;
    // Top-level values of the old flat layout: read, never written.
    QString legacyApiKey;
    QString legacyPrinterIP;
    qint64 legacyPrinterPort = 9100;

    // The current calendar year as decimal digits.
    static QString currentYear();

    // Whole document or nothing: the first key that fails decides `error`.
    static std::optional<SettingsData> read(const QByteArray& bytes, QString* error);
    // Indented JSON with sorted keys, UTF-8; the one writer of save and export.
    QByteArray write() const;

    friend bool operator==(const SettingsData&, const SettingsData&) = default;
};
