#pragma once

#include "services/Product.h"

#include <QList>
#include <QStringView>

// The simulated shop's catalogue: household and kitchen goods of a Dutch shop.
// Every product is computed from its position alone, so the catalogue is the
// same on every run and a small catalogue is the start of a larger one.
class ProductCatalogue
{
public:
    static constexpr qsizetype kDefaultSize = 300;
    static constexpr qint64 kFirstID = 1001;

    explicit ProductCatalogue(qsizetype size = kDefaultSize);

    qsizetype size() const { return m_size; }

    // `index` in [0, size()).
    Product product(qsizetype index) const;
    // At most `limit` products from `offset` on; empty past the end.
    QList<Product> page(qint64 offset, qint64 limit) const;

    // The check digit of an EAN-13 whose first twelve digits are given.
    static int ean13CheckDigit(QStringView twelveDigits);

private:
    qsizetype m_size;
};
