#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>

// One catalogue article as the product service delivers it. Member names are
// the service's JSON keys, letter for letter.
struct Product
{
    qint64 ID = 0;
    std::optional<QString> Sku;
    std::optional<QString> Name;
    std::optional<QString> Description;
    std::optional<double> SellPrice1WithVat;
    std::optional<QString> BarCode;
    std::optional<bool> Active;

    qint64 id() const { return ID; }
    QString sku() const { return Sku.value_or(QString()); }
    QString displayName() const; // Name, or "Unknown"
    double sortablePrice() const { return SellPrice1WithVat.value_or(0.0); }
    QString barcode() const { return BarCode.value_or(QString()); }

    // Strict: no type coercion; `error` describes the first problem.
    static std::optional<Product> fromJson(const QJsonValue& value, QString* error);
    // Absent members are left out.
    QJsonObject toJson() const;

    friend bool operator==(const Product& a, const Product& b);
};

size_t qHash(const Product& product, size_t seed = 0) noexcept;
