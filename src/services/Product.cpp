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

// The members of one product object. Lookups with Latin-1 keys compare in
// place; walking the object instead would build a QString for every key,
// which costs more than the seven binary searches over its sorted keys.
struct ProductMembers
{
    QJsonValue id;
    QJsonValue sku;
    QJsonValue name;
    QJsonValue description;
    QJsonValue price;
    QJsonValue barCode;
    QJsonValue active;

    explicit ProductMembers(const QJsonObject& object)
        : id(object.value("ID"_L1)), sku(object.value("Sku"_L1)), name(object.value("Name"_L1)),
          description(object.value("Description"_L1)), price(object.value("SellPrice1WithVat"_L1)),
          barCode(object.value("BarCode"_L1)), active(object.value("Active"_L1))
    {}
};

// Missing and null both mean absent; any other type than the expected one fails.
bool readOptionalString(const QJsonValue& value, const QString& key, std::optional<QString>& target,
                        QString* error)
{
    if (value.isUndefined() || value.isNull())
        return true;
    if (!value.isString()) {
        *error = typeMismatch(key, u"a string"_s, value);
        return false;
    }
    target = value.toString();
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
    const ProductMembers members(value.toObject());

    Product product;
    const QJsonValue& id = members.id;
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
    product.ID = *exactID;

    if (!readOptionalString(members.sku, u"Sku"_s, product.Sku, &message) ||
        !readOptionalString(members.name, u"Name"_s, product.Name, &message) ||
        !readOptionalString(members.description, u"Description"_s, product.Description, &message) ||
        !readOptionalString(members.barCode, u"BarCode"_s, product.BarCode, &message))
        return std::nullopt;

    const QJsonValue& price = members.price;
    if (!price.isUndefined() && !price.isNull()) {
        if (!price.isDouble()) {
            message = typeMismatch(u"SellPrice1WithVat"_s, u"a number"_s, price);
            return std::nullopt;
        }
        product.SellPrice1WithVat = price.toDouble();
    }

    const QJsonValue& active = members.active;
    if (!active.isUndefined() && !active.isNull()) {
        if (!active.isBool()) {
            message = typeMismatch(u"Active"_s, u"a boolean"_s, active);
            return std::nullopt;
        }
        product.Active = active.toBool();
    }
    return product;
}

QJsonObject Product::toJson() const
{
    QJsonObject object;
    object.insert(u"ID"_s, ID);
    if (Sku)
        object.insert(u"Sku"_s, *Sku);
    if (Name)
        object.insert(u"Name"_s, *Name);
    if (Description)
        object.insert(u"Description"_s, *Description);
    if (SellPrice1WithVat)
        object.insert(u"SellPrice1WithVat"_s, *SellPrice1WithVat);
    if (BarCode)
        object.insert(u"BarCode"_s, *BarCode);
    if (Active)
        object.insert(u"Active"_s, *Active);
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
