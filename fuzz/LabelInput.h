#pragma once

#include "FuzzCheck.h"
#include "services/Product.h"

#include <QList>

namespace stampixfuzz {

// A label template and a product from one input: fields separated by NUL
// bytes, in this order: template, Sku, Name, Description, BarCode, price (as
// text, e.g. "12.5"). A field that is missing at the end, or that is the
// single byte 0x7F, is absent; an unparsable price is absent too.
struct LabelInput
{
    QString zplTemplate;
    Product product;

    static LabelInput read(const std::uint8_t* data, std::size_t size)
    {
        const QList<QByteArray> fields = toBytes(data, size).split('\0');
        const auto field = [&fields](qsizetype index) -> std::optional<QString> {
            if (index >= fields.size() || fields.at(index) == "\x7f")
                return std::nullopt;
            return QString::fromUtf8(fields.at(index));
        };
        bool parsed = false;
        const double price = field(5).value_or(QString()).toDouble(&parsed);
        const std::optional<double> sellPrice = parsed ? std::optional(price) : std::nullopt;
        return {field(0).value_or(QString()),
                {1, field(1), field(2), field(3), sellPrice, field(4), {}}};
    }
};

} // namespace stampixfuzz
