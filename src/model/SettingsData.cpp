#include "model/SettingsData.h"

#include "model/JsonObjectReader.h"
#include "model/JsonTextWriter.h"
#include "model/UuidText.h"

#include <QDate>
#include <QJsonDocument>
#include <QJsonParseError>

using namespace Qt::StringLiterals;

namespace {

template <typename Record>
void writeList(JsonTextWriter& writer, QByteArrayView key, const QList<Record>& records)
{
    writer.beginArray(key);
    for (const Record& record : records)
        record.writeJson(writer);
    writer.endArray();
}

void writeOptionalUuid(JsonTextWriter& writer, QByteArrayView key, const std::optional<QUuid>& id)
{
    if (id)
        writer.write(key, uuidToText(*id));
}

std::optional<QJsonObject> parseObject(const QByteArray& bytes, QString* error)
{
    QString message;
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (bytes.trimmed().isEmpty())
        message = u"the document is empty"_s;
    else if (parseError.error != QJsonParseError::NoError)
        message = u"not valid JSON: %1 at offset %2"_s.arg(parseError.errorString())
                      .arg(parseError.offset);
    else if (!document.isObject())
        message = u"the top level is not a JSON object"_s;
    else
        return document.object();
    if (error)
        *error = message;
    return std::nullopt;
}

} // namespace

QString SettingsData::currentYear()
{
    return QString::number(QDate::currentDate().year());
}

std::optional<SettingsData> SettingsData::read(const QByteArray& bytes, QString* error)
{
    const std::optional<QJsonObject> object = parseObject(bytes, error);
    if (!object)
        return std::nullopt;

    // Keys in this order: the first one that fails names the error.
    JsonObjectReader reader(*object);
    SettingsData data;
    data.bookyear = reader.optionalString(u"bookyear").value_or(currentYear());
    data.dossiers = reader.optionalList<Dossier>(u"dossiers");
    data.selectedDossierID = reader.optionalUuid(u"selectedDossierID");
    data.printers = reader.optionalList<Printer>(u"printers");
    data.legacyApiKey = reader.optionalString(u"apiKey").value_or(QString());
    data.legacyPrinterIP = reader.optionalString(u"printerIP").value_or(QString());
    data.legacyPrinterPort = reader.optionalInteger(u"printerPort").value_or(Printer::kDefaultPort);
    data.templates = reader.optionalList<LabelTemplate>(u"templates");
    if (data.templates.isEmpty())
        data.templates = {LabelTemplate::defaultTemplate()};
    data.selectedTemplateID = reader.optionalUuid(u"selectedTemplateID");

    const auto readSize = [&reader](QStringView key, double& size) {
        size = reader.optionalNumber(key).value_or(size);
    };
    readSize(u"settingsWindowWidth", data.settingsWindowWidth);
    readSize(u"settingsWindowHeight", data.settingsWindowHeight);
    readSize(u"columnWidthCheckbox", data.columnWidthCheckbox);
    readSize(u"columnWidthSKU", data.columnWidthSKU);
    readSize(u"columnWidthName", data.columnWidthName);
    readSize(u"columnWidthPrice", data.columnWidthPrice);
    readSize(u"columnWidthBarcode", data.columnWidthBarcode);
    return reader.result(std::move(data), error);
}

QByteArray SettingsData::write() const
{
    // Members in sorted order, as QJsonObject keeps them.
    JsonTextWriter writer;
    writer.write("bookyear", bookyear);
    writer.write("columnWidthBarcode", columnWidthBarcode);
    writer.write("columnWidthCheckbox", columnWidthCheckbox);
    writer.write("columnWidthName", columnWidthName);
    writer.write("columnWidthPrice", columnWidthPrice);
    writer.write("columnWidthSKU", columnWidthSKU);
    writeList(writer, "dossiers", dossiers);
    writeList(writer, "printers", printers);
    writeOptionalUuid(writer, "selectedDossierID", selectedDossierID);
    writeOptionalUuid(writer, "selectedTemplateID", selectedTemplateID);
    writer.write("settingsWindowHeight", settingsWindowHeight);
    writer.write("settingsWindowWidth", settingsWindowWidth);
    writeList(writer, "templates", templates);
    return writer.finish();
}
