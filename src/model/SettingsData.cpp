#include "model/SettingsData.h"

#include "model/JsonObjectReader.h"
#include "model/UuidText.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

using namespace Qt::StringLiterals;

namespace {

template <typename Record> QJsonArray toArray(const QList<Record>& records)
{
    QJsonArray array;
    for (const Record& record : records)
        array.append(record.toJson());
    return array;
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
    // The legacy values are never written.
    QJsonObject object{{u"bookyear"_s, bookyear},
                       {u"dossiers"_s, toArray(dossiers)},
                       {u"printers"_s, toArray(printers)},
                       {u"templates"_s, toArray(templates)},
                       {u"settingsWindowWidth"_s, settingsWindowWidth},
                       {u"settingsWindowHeight"_s, settingsWindowHeight},
                       {u"columnWidthCheckbox"_s, columnWidthCheckbox},
                       {u"columnWidthSKU"_s, columnWidthSKU},
                       {u"columnWidthName"_s, columnWidthName},
                       {u"columnWidthPrice"_s, columnWidthPrice},
                       {u"columnWidthBarcode"_s, columnWidthBarcode}};
    if (selectedDossierID)
        object.insert(u"selectedDossierID"_s, uuidToText(*selectedDossierID));
    if (selectedTemplateID)
        object.insert(u"selectedTemplateID"_s, uuidToText(*selectedTemplateID));
    // QJsonObject keeps its keys sorted, so the text comes out in sorted order.
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}
