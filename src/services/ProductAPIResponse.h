#pragma once

#include "services/Product.h"

#include <QByteArray>
#include <QList>
#include <optional>

// The JSON envelope of a product list response.
struct ProductAPIResponse
{
    std::optional<QList<Product>> data;
    std::optional<qint64> records;
    std::optional<QString> error;

    // One bad product fails the whole response; `error` gets the decoder's description.
    static std::optional<ProductAPIResponse> decode(const QByteArray& body, QString* error);
};
