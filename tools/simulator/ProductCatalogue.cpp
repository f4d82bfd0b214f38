#include "ProductCatalogue.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct Article
{
    QStringView category;
    QStringView name;
    QStringView description;
    double price;
};

// Grouped by category; the article number counts per category, so each
// category runs from 1 into two or three digits.
constexpr Article kArticles[] = {
    {u"KEU", u"Koffiemok 350 ml", u"Stevige mok van aardewerk, vaatwasserbestendig.", 4.95},
    {u"KEU", u"Theeglas met oor", u"Hittebestendig glas van 250 ml.", 3.49},
    {u"KEU", u"Crème brûlée schaaltjes (4 st.)", u"Ovenvaste schaaltjes van porselein, Ø 10 cm.",
     12.95},
    {u"KEU", u"Koekenpan Ø 28 cm", u"Aluminium pan met antiaanbaklaag, geschikt voor inductie.",
     34.95},
    {u"KEU", u"Braadpan gietijzer 4,5 l", u"Geëmailleerd gietijzer voor alle warmtebronnen.", 89},
    {u"KEU", u"Café-kopje met schotel", u"Espressokopje van 90 ml met bijpassende schotel.", 5.95},
    {u"KEU", u"Paté-mes", u"Breed mes met afgeronde punt, roestvrij staal.", 7.5},
    {u"KEU", u"Rösti-pan Ø 24 cm", u"Lage pan met dikke bodem voor rösti en omeletten.", 29.95},
    {u"KEU", u"Crêpepan Ø 30 cm", u"Platte pan met lage rand, inclusief houten spatel.", 24.95},
    {u"KEU", u"Fondueset 8-delig", u"Caquelon met réchaud en acht vorkjes.", 49.95},
    {u"HUI", u"Vaatdoekjes (3 st.)", u"Katoenen doekjes, wasbaar op 60 °C.", 2.99},
    {u"HUI", u"Plumeau", u"Stofplumeau met telescoopsteel tot 120 cm.", 6.95},
    {u"HUI", u"Afwasborstel", u"Borstel met vervangbare kop en hittebestendige haren.", 2.49},
    {u"HUI", u"Wasmand 50 l", u"Gevlochten wasmand met handgrepen en deksel.", 14.95},
    {u"HUI", u"Strijkplankhoes 125×45 cm", u"Hoes met vilten onderlaag en elastische rand.", 17.5},
    {u"HUI", u"Opbergbox met deksel 20 l", u"Stapelbare box van gerecycled kunststof.", 9.95},
    {u"TUI", u"Bloempot terracotta Ø 30 cm", u"Vorstbestendige pot met afvoergat.", 8.95},
    {u"TUI", u"Gieter 10 l", u"Kunststof gieter met afneembare broeskop.", 12.49},
    {u"TUI", u"Tuinkussen 50×50 cm", u"Waterafstotend kussen voor tuinstoelen.", 19.95},
    {u"TUI", u"Vogelhuisje", u"Nestkast van onbehandeld vurenhout, invlieggat 32 mm.", 22.5},
    {u"TUI", u"Plantenspuit 1 l", u"Drukspuit met verstelbare nevelkop.", 4.99},
    {u"WON", u"Geurkaars vanille", u"Kaars in glas, brandduur circa 30 uur.", 6.49},
    {u"WON", u"Fotolijst 13×18 cm", u"Lijst met passe-partout, staand en hangend.", 7.95},
    {u"WON", u"Kussenhoes 45×45 cm", u"Hoes van gewassen linnen met verborgen rits.", 11.95},
    {u"WON", u"Plaid fleece 130×170 cm", u"Zachte deken, wasbaar op 30 °C.", 24.95},
    {u"WON", u"Vaas mondgeblazen glas", u"Handgemaakte vaas, hoogte 25 cm.", 16.95},
    {u"WON", u"Tafelloper 40×150 cm", u"Geweven tafelloper met franjes.", 13.5},
    {u"BAD", u"Handdoek 50×100 cm", u"Badstof van 500 g/m², Oeko-Tex gecertificeerd.", 8.95},
    {u"BAD", u"Zeepdispenser", u"Keramische pompdispenser, inhoud 300 ml.", 11.49},
    {u"BAD", u"Badmat 60×90 cm", u"Antislip badmat van microvezel.", 15.95},
    {u"BAD", u"Tandenborstelbeker", u"Beker van porselein met mat glazuur.", 5.49},
};
constexpr qsizetype kArticleCount = std::size(kArticles);

constexpr QStringView kColours[] = {
    u"zwart", u"wit",        u"crème",      u"écru",       u"rosé",     u"antraciet",
    u"oker",  u"saliegroen", u"terracotta", u"lichtblauw", u"bordeaux", u"naturel",
};
constexpr qsizetype kColourCount = std::size(kColours);
// Coprime with the colour count: within one pass over the colours every
// article gets each colour once.
constexpr qsizetype kColourStride = 5;

// Positions (per block) of the products that lack fields, so that every
// fallback of the program shows up in any catalogue of fifty or more.
constexpr qsizetype kFallbackBlock = 50;
constexpr qsizetype kWithoutName = 7;
constexpr qsizetype kWithoutPrice = 19;
constexpr qsizetype kWithoutSku = 31;
constexpr qsizetype kWithoutBarcode = 43;
constexpr qsizetype kBareBlock = 100;
constexpr qsizetype kBare = 47; // nothing but the ID
constexpr qsizetype kInactiveEvery = 17;
constexpr qsizetype kInactiveAt = 11;

// Dutch GS1 prefix "87", a five-digit company number, a five-digit item number.
constexpr qsizetype kItemsPerCompany = 100000;
constexpr qsizetype kFirstCompany = 12345;

QString articleNumber(qsizetype index)
{
    const qsizetype article = index % kArticleCount;
    const QStringView category = kArticles[article].category;
    const auto inCategory = [category](const Article& a) {
        return a.category == category;
    };
    const qsizetype position =
        std::count_if(std::begin(kArticles), std::begin(kArticles) + article, inCategory);
    const qsizetype perRound =
        std::count_if(std::begin(kArticles), std::end(kArticles), inCategory);
    return category.toString() + u'-' +
           QString::number(index / kArticleCount * perRound + position + 1);
}

QString barcode(qsizetype index)
{
    const qsizetype company = kFirstCompany + index / kItemsPerCompany;
    const QString digits = u"87%1%2"_s.arg(company, 5, 10, QChar(u'0'))
                               .arg(index % kItemsPerCompany, 5, 10, QChar(u'0'));
    return digits + QString::number(ProductCatalogue::ean13CheckDigit(digits));
}

double price(double base, qsizetype colour)
{
    // Some colours cost a little more; whole cents only.
    return std::round((base + 0.5 * double(colour % 3)) * 100.0) / 100.0;
}

} // namespace

ProductCatalogue::ProductCatalogue(qsizetype size) : m_size(std::max<qsizetype>(size, 0)) {}

Product ProductCatalogue::product(qsizetype index) const
{
    Product product;
    product.ID = kFirstID + index;
    if (index % kBareBlock == kBare)
        return product;

    const qsizetype article = index % kArticleCount;
    const qsizetype round = index / kArticleCount;
    const qsizetype colour = (round * kColourStride + article) % kColourCount;
    const Article& a = kArticles[article];
    const QString colourName = kColours[colour].toString();

    const qsizetype slot = index % kFallbackBlock;
    if (slot != kWithoutSku)
        product.Sku = articleNumber(index);
    if (slot != kWithoutName)
        product.Name = a.name.toString() + u' ' + colourName;
    if (slot != kWithoutBarcode) {
        product.Description = a.description.toString() + u" Kleur: "_s + colourName + u'.';
        product.BarCode = barcode(index);
    }
    if (slot != kWithoutPrice)
        product.SellPrice1WithVat = price(a.price, colour);
    product.Active = index % kInactiveEvery != kInactiveAt;
    return product;
}

QList<Product> ProductCatalogue::page(qint64 offset, qint64 limit) const
{
    QList<Product> products;
    if (offset < 0 || limit <= 0 || offset >= m_size)
        return products;
    const qsizetype end = offset + std::min<qint64>(limit, m_size - offset);
    products.reserve(end - offset);
    for (qsizetype index = offset; index < end; ++index)
        products.append(product(index));
    return products;
}

int ProductCatalogue::ean13CheckDigit(QStringView twelveDigits)
{
    int sum = 0;
    for (qsizetype i = 0; i < twelveDigits.size() && i < 12; ++i) {
        const int digit = twelveDigits[i].digitValue();
        sum += (i % 2 == 0) ? digit : 3 * digit;
    }
    return (10 - sum % 10) % 10;
}
