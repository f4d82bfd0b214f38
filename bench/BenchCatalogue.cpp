#include "BenchCatalogue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace {

// splitmix64: a well-mixed number from the index, the same on every platform.
quint64 mix(quint64 value)
{
    value += 0x9e3779b97f4a7c15ULL;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9ULL;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebULL;
    return value ^ (value >> 31);
}

constexpr std::array kNouns = {
    u"Theepot",    u"Theelepel", u"Thermoskan", u"Theeglas",  u"Koffiemok",  u"Broodplank",
    u"Kaasschaaf", u"Vergiet",   u"Pannenset",  u"Snijplank", u"Ovenschaal", u"Taartvorm",
    u"Dienblad",   u"Karaf",     u"Schaal",     u"Kandelaar", u"Tafelkleed", u"Servet",
    u"Wijnglas",   u"Bierglas",  u"Fotolijst",  u"Vaas",      u"Deurmat",    u"Handdoek",
};
constexpr std::array kMaterials = {
    u"porselein", u"aardewerk", u"glas", u"RVS", u"bamboe", u"eiken", u"linnen", u"katoen",
};
constexpr std::array kColours = {
    u"wit", u"zwart", u"grijs", u"blauw", u"groen", u"oker", u"rood", u"naturel",
};
constexpr std::array kPrefixes = {u"KP", u"kp-", u"TH", u"Ser", u"A", u"glas", u"X"};

template <typename List> QString pick(const List& list, quint64 value)
{
    return QString::fromUtf16(list[value % list.size()]);
}

QString eanFor(quint64 value)
{
    QString digits = u"87"_s + QString::number(value % 10'000'000'000ULL).rightJustified(10, u'0');
    int sum = 0;
    for (qsizetype i = 0; i < 12; ++i)
        sum += digits.at(i).digitValue() * (i % 2 == 0 ? 1 : 3);
    return digits + QString::number((10 - sum % 10) % 10);
}

} // namespace

Product BenchCatalogue::product(qsizetype index)
{
    const quint64 r = mix(quint64(index));
    Product product;
    product.ID = 100'000 + index;
    if (r % 50 != 0)
        product.Sku = pick(kPrefixes, r >> 3) + QString::number((r >> 8) % 100'000);
    if (r % 40 != 1) {
        product.Name = pick(kNouns, r >> 16) + u' ' + pick(kMaterials, r >> 21) + u' ' +
                       pick(kColours, r >> 25) + u' ' + QString::number((r >> 29) % 60 + 1) +
                       u" cm"_s;
    }
    if (r % 3 != 0) {
        product.Description = u"Stevig en vaatwasserbestendig, geschikt voor dagelijks gebruik. "
                              u"Serie "_s +
                              QString::number((r >> 35) % 900 + 100);
    }
    product.SellPrice1WithVat = double((r >> 40) % 20'000) / 100.0;
    if (r % 10 != 2)
        product.BarCode = eanFor(r >> 13);
    product.Active = r % 10 != 3;
    return product;
}

const QList<Product>& BenchCatalogue::products(qsizetype count)
{
    static std::map<qsizetype, QList<Product>> cache;
    auto [entry, inserted] = cache.try_emplace(count);
    if (inserted) {
        entry->second.reserve(count);
        for (qsizetype index = 0; index < count; ++index)
            entry->second.append(product(index));
    }
    return entry->second;
}

const QByteArray& BenchCatalogue::envelope(qsizetype count)
{
    static std::map<qsizetype, QByteArray> cache;
    auto [entry, inserted] = cache.try_emplace(count);
    if (inserted)
        entry->second = makeEnvelope(products(count));
    return entry->second;
}

QByteArray BenchCatalogue::makeEnvelope(const QList<Product>& products)
{
    QJsonArray data;
    for (const Product& product : products)
        data.append(product.toJson());
    const QJsonObject root{{u"data"_s, data}, {u"records"_s, products.size()}};
    return QJsonDocument(root).toJson(QJsonDocument::Compact);
}
