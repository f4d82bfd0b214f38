#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "model/SettingsData.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// What a save keeps: everything except the values of the old layout, which
// are read but never written.
SettingsData withoutLegacyValues(SettingsData data)
{
    data.legacyApiKey.clear();
    data.legacyPrinterIP.clear();
    data.legacyPrinterPort = Printer::kDefaultPort;
    for (LabelTemplate& labelTemplate : data.templates) {
        labelTemplate.printerIP.reset();
        labelTemplate.printerPort.reset();
    }
    return data;
}

bool sameSizes(const SettingsData& a, const SettingsData& b)
{
    return a.settingsWindowWidth == b.settingsWindowWidth &&
           a.settingsWindowHeight == b.settingsWindowHeight &&
           a.columnWidthCheckbox == b.columnWidthCheckbox && a.columnWidthSKU == b.columnWidthSKU &&
           a.columnWidthName == b.columnWidthName && a.columnWidthPrice == b.columnWidthPrice &&
           a.columnWidthBarcode == b.columnWidthBarcode;
}

bool sameDocument(const SettingsData& a, const SettingsData& b)
{
    return a.bookyear == b.bookyear && a.dossiers == b.dossiers &&
           a.selectedDossierID == b.selectedDossierID && a.printers == b.printers &&
           a.templates == b.templates && a.selectedTemplateID == b.selectedTemplateID &&
           sameSizes(a, b) && a.legacyApiKey == b.legacyApiKey &&
           a.legacyPrinterIP == b.legacyPrinterIP && a.legacyPrinterPort == b.legacyPrinterPort;
}

void checkWrittenForm(const QByteArray& written)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(written, &parseError);
    stampixfuzz::check(parseError.error == QJsonParseError::NoError && document.isObject(),
                       "a written document is one JSON object");
    const QJsonObject object = document.object();
    for (const QString& legacyKey : {u"apiKey"_s, u"printerIP"_s, u"printerPort"_s})
        stampixfuzz::check(!object.contains(legacyKey), "legacy keys are never written", legacyKey);
}

} // namespace

namespace stampixfuzz {

int settingsDocument(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const std::optional<SettingsData> first = SettingsData::read(toBytes(data, size), &error);
    if (!first) {
        // The description ends up in the "Failed to load settings: " line.
        check(!error.isEmpty(), "an unreadable document comes with a description");
        return 0;
    }
    check(!first->templates.isEmpty(), "a read document always holds a template");

    const QByteArray written = first->write();
    checkWrittenForm(written);
    QString rereadError;
    const std::optional<SettingsData> second = SettingsData::read(written, &rereadError);
    check(second.has_value(), "a written document reads back", rereadError);
    check(sameDocument(withoutLegacyValues(*first), *second),
          "reading back a written document gives the values that were written",
          QString::fromUtf8(written));
    check(second->write() == written, "writing what was read back gives the same bytes",
          QString::fromUtf8(written));
    return 0;
}

} // namespace stampixfuzz
