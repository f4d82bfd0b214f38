#include "services/Product.h"

#include "model/JsonTypeName.h"
#include "services/JsonInteger.h"

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>

using namespace Qt::StringLiterals;

namespace {

QString typeMismatch(const QString& key, const QString& expected, const QJsonValue& found)
{
    return u"Type mismatch for key \"%1\": expected %2 but found %3"_s.arg(key, expected,
                                                                           jsonTypeName(found));
}

// Missing and null both mean absent; any other type than the expected one
// fails. Lookups with Latin-1 keys compare in place, without a QString per key.
template <typename T>
bool readOptional(const QJsonObject& object, QLatin1StringView key, std::optional<T>& target,
                  QString& error)
{
    const QJsonValue value = object.value(key);
    if (value.isUndefined() || value.isNull())
        return true;
    constexpr bool isText = std::is_same_v<T, QString>, isNumber = std::is_same_v<T, double>;
    if (!(isText ? value.isString() : isNumber ? value.isDouble() : value.isBool())) {
        error = typeMismatch(QString(key),
                             isText     ? u"a string"_s
                             : isNumber ? u"a number"_s
                                        : u"a boolean"_s,
                             value);
        return false;
    }
    if constexpr (isText)
        target = value.toString();
    else if constexpr (isNumber)
        target = value.toDouble();
    else
        target = value.toBool();
    return true;
}

size_t hashPrice(const std::optional<double>& price, size_t seed)
{
    if (!price)
        return qHash(false, seed);
    // 0.0 and -0.0 compare equal, so they must hash alike.
    const double value = *price == 0.0 ? 0.0 : *price;
    return qHashMulti(seed, true, value);
}

template <typename T> size_t hashOptional(const std::optional<T>& value, size_t seed)
{
    return value ? qHashMulti(seed, true, *value) : qHash(false, seed);
}

} // namespace

QString Product::displayName() const
{
    return Name.value_or(u"Unknown"_s);
}

std::optional<Product> Product::fromJson(const QJsonValue& value, QString* error)
{
    QString ignored;
    QString& message = error ? *error : ignored;
    if (!value.isObject()) {
        message = u"Expected an object but found %1"_s.arg(jsonTypeName(value));
        return std::nullopt;
    }
    const QJsonObject object = value.toObject();
    const QJsonValue id = object.value("ID"_L1);
    if (id.isUndefined() || id.isNull()) {
        message = u"No value for required key \"ID\""_s;
        return std::nullopt;
    }
    const std::optional<qint64> exactID = exactJsonInteger(id);
    if (!exactID) {
        message = typeMismatch(u"ID"_s, u"an integer"_s, id);
        if (id.isDouble())
            message += u" (%1 is not a whole number within 64 bits)"_s.arg(id.toDouble());
        return std::nullopt;
    }
    Product product;
    product.ID = *exactID;
    // In this order: the first member that fails names the error.
    if (!readOptional(object, "Sku"_L1, product.Sku, message) ||
        !readOptional(object, "Name"_L1, product.Name, message) ||
        !readOptional(object, "Description"_L1, product.Description, message) ||
        !readOptional(object, "BarCode"_L1, product.BarCode, message) ||
        !readOptional(object, "SellPrice1WithVat"_L1, product.SellPrice1WithVat, message) ||
        !readOptional(object, "Active"_L1, product.Active, message))
        return std::nullopt;
    return product;
}

QJsonObject Product::toJson() const
{
    QJsonObject object{{u"ID"_s, ID}};
    const auto insert = [&object](const QString& key, const auto& member) {
        if (member)
            object.insert(key, *member);
    };
    insert(u"Sku"_s, Sku);
    insert(u"Name"_s, Name);
    insert(u"Description"_s, Description);
    insert(u"SellPrice1WithVat"_s, SellPrice1WithVat);
    insert(u"BarCode"_s, BarCode);
    insert(u"Active"_s, Active);
    return object;
}

bool operator==(const Product& a, const Product& b)
{
    return a.ID == b.ID && a.Sku == b.Sku && a.Name == b.Name && a.Description == b.Description &&
           a.SellPrice1WithVat == b.SellPrice1WithVat && a.BarCode == b.BarCode &&
           a.Active == b.Active;
}

size_t qHash(const Product& product, size_t seed) noexcept
{
    seed = qHash(product.ID, seed);
    seed = hashOptional(product.Sku, seed);
    seed = hashOptional(product.Name, seed);
    seed = hashOptional(product.Description, seed);
    seed = hashPrice(product.SellPrice1WithVat, seed);
    seed = hashOptional(product.BarCode, seed);
    return hashOptional(product.Active, seed);
}
