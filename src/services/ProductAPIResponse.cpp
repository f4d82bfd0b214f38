#include "services/ProductAPIResponse.h"

#include "services/JsonInteger.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

using namespace Qt::StringLiterals;

namespace {

bool isAbsent(const QJsonValue& value)
{
    return value.isUndefined() || value.isNull();
}

std::optional<QList<Product>> decodeProducts(const QJsonArray& array, QString& message)
{
    QList<Product> products;
    products.reserve(array.size());
    for (qsizetype index = 0; index < array.size(); ++index) {
        QString problem;
        std::optional<Product> product = Product::fromJson(array.at(index), &problem);
        if (!product) {
            message = u"data[%1]: %2"_s.arg(index).arg(problem);
            return std::nullopt;
        }
        products.append(std::move(*product));
    }
    return products;
}

} // namespace

std::optional<ProductAPIResponse> ProductAPIResponse::decode(const QByteArray& body, QString* error)
{
    QString ignored;
    QString& message = error ? *error : ignored;

    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(body, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        message = u"The data is not valid JSON: %1 at offset %2"_s.arg(parseError.errorString())
                      .arg(parseError.offset);
        return std::nullopt;
    }
    if (!document.isObject()) {
        message = u"Expected an object at the top level"_s;
        return std::nullopt;
    }
    const QJsonObject object = document.object();
    ProductAPIResponse response;

    const QJsonValue data = object.value(u"data"_s);
    if (!isAbsent(data)) {
        if (!data.isArray()) {
            message = u"Type mismatch for key \"data\": expected an array"_s;
            return std::nullopt;
        }
        response.data = decodeProducts(data.toArray(), message);
        if (!response.data)
            return std::nullopt;
    }

    const QJsonValue records = object.value(u"records"_s);
    if (!isAbsent(records)) {
        response.records = exactJsonInteger(records);
        if (!response.records) {
            message = u"Type mismatch for key \"records\": expected an integer"_s;
            return std::nullopt;
        }
    }

    const QJsonValue errorText = object.value(u"error"_s);
    if (!isAbsent(errorText)) {
        if (!errorText.isString()) {
            message = u"Type mismatch for key \"error\": expected a string"_s;
            return std::nullopt;
        }
        response.error = errorText.toString();
    }
    return response;
}
