#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "services/ProductAPIResponse.h"
#include "services/ZPLService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

// Every placeholder once, so each fill path runs for every decoded product.
const QString kAllPlaceholders =
    u"^XA{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{OMSCHRIJVING}}|{{BARCODE}}^XZ"_s;

QByteArray encodeEnvelope(const QList<Product>& products)
{
    QJsonArray array;
    for (const Product& product : products)
        array.append(product.toJson());
    return QJsonDocument(QJsonObject{{u"data"_s, array}}).toJson(QJsonDocument::Compact);
}

void checkRoundTrip(const QList<Product>& products)
{
    const QByteArray encoded = encodeEnvelope(products);
    QString error;
    const std::optional<ProductAPIResponse> again = ProductAPIResponse::decode(encoded, &error);
    stampixfuzz::check(again && again->data, "encoded products decode again", error);
    stampixfuzz::check(*again->data == products,
                       "encoding and decoding a product gives the same product",
                       QString::fromUtf8(encoded));
    for (qsizetype i = 0; i < products.size(); ++i)
        stampixfuzz::check(qHash(products.at(i)) == qHash(again->data->at(i)),
                           "equal products hash alike");
}

} // namespace

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
    checkRoundTrip(*response->data);

    const ZPLService zpl;
    for (const Product& product : *response->data) {
        const QString label = zpl.generateZPL(product, kAllPlaceholders);
        check(label.startsWith(u"^XA"_s) && label.endsWith(u"^XZ"_s),
              "filling leaves the text around the placeholders alone", label);
    }
    return 0;
}

} // namespace stampixfuzz
