#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "services/ProductAPIResponse.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace stampixfuzz {

int productResponse(const std::uint8_t* data, std::size_t size)
{
    QString error;
    const std::optional<ProductAPIResponse> response =
        ProductAPIResponse::decode(toBytes(data, size), &error);
    if (!response) {
        // The description ends up in the "Decoding error: " line.
        check(!error.isEmpty(), "an undecodable response comes with a description");
        return 0;
    }
    if (!response->data)
        return 0;
    const QList<Product>& products = *response->data;
    QJsonArray array;
    for (const Product& product : products)
        array.append(product.toJson());
    const QByteArray encoded = QJsonDocument(QJsonObject{{u"data"_s, array}}).toJson();
    const std::optional<ProductAPIResponse> again = ProductAPIResponse::decode(encoded, &error);
    check(again && again->data, "encoded products decode again", error);
    check(*again->data == products, "encoding and decoding a product gives the same product",
          QString::fromUtf8(encoded));
    for (qsizetype i = 0; i < products.size(); ++i)
        check(qHash(products.at(i)) == qHash(again->data->at(i)), "equal products hash alike");
    return 0;
}

} // namespace stampixfuzz
