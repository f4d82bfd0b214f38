#include "services/ZPLService.h"

#include <algorithm>
#include <array>
#include <charconv>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kArticleNumber{"{{ARTIKELNR}}"};
constexpr QLatin1StringView kName{"{{NAAM}}"};
constexpr QLatin1StringView kPrice{"{{PRIJS}}"};
constexpr QLatin1StringView kDescription{"{{OMSCHRIJVING}}"};
constexpr QLatin1StringView kBarcode{"{{BARCODE}}"};

struct Fill
{
    QString articleNumber;
    QString name;
    QString price;
    QString description;
    QString barcode;
};

// Replaces in place unless the result would pass the bound. UTF-8 never
// takes fewer bytes than UTF-16 has units, so the length in units is an
// early, cheap test.
bool replaceWithin(QString& text, QLatin1StringView placeholder, const QString& value)
{
    const qsizetype count = text.count(placeholder);
    if (count == 0)
        return true;
    const qsizetype grown = text.size() + count * (value.size() - placeholder.size());
    if (grown > ZPLService::kMaxLabelBytes)
        return false;
    text.replace(placeholder, value);
    return true;
}

// The order matters: each step works on the result of the previous one.
std::optional<QString> applyFill(QString text, const Fill& fill)
{
    const bool within = replaceWithin(text, kArticleNumber, fill.articleNumber) &&
                        replaceWithin(text, kName, fill.name) &&
                        replaceWithin(text, kPrice, fill.price) &&
                        replaceWithin(text, kDescription, fill.description) &&
                        replaceWithin(text, kBarcode, fill.barcode);
    if (!within || text.size() > ZPLService::kMaxLabelBytes ||
        text.toUtf8().size() > ZPLService::kMaxLabelBytes)
        return std::nullopt;
    return text;
}

// "%.2f" with a point whatever the locale: std::to_chars always formats as
// printf does in the C locale, while printf itself follows the process locale.
QString formatPrice(double price)
{
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), price,
                                      std::chars_format::fixed, 2);
    return QString::fromLatin1(buffer.data(), result.ptr - buffer.data());
}

} // namespace

const QMap<QString, QString>& ZPLService::placeholders()
{
    static const QMap<QString, QString> table{
        {QString(kArticleNumber), u"Artikelnummer"_s},
        {QString(kName), u"Productnaam"_s},
        {QString(kPrice), u"Verkoopprijs incl. BTW"_s},
        {QString(kDescription), u"Productomschrijving"_s},
        {QString(kBarcode), u"Barcode"_s},
    };
    return table;
}

QString ZPLService::labelTooLargeMessage()
{
    return u"Etiket is groter dan 1 MiB: controleer de productgegevens"_s;
}

std::optional<QString> ZPLService::generateZPL(const Product& product,
                                               const QString& zplTemplate) const
{
    const Fill fill{
        product.sku(),
        product.displayName(),
        product.SellPrice1WithVat ? formatPrice(*product.SellPrice1WithVat) : u"-"_s,
        product.Description.value_or(QString()),
        product.barcode(),
    };
    return applyFill(zplTemplate, fill);
}

ZPLService::Validation ZPLService::validateTemplate(const QString& zplTemplate) const
{
    Validation validation;
    if (!zplTemplate.contains(u"^XA"_s))
        validation.errors.append(u"Ontbreekt ^XA (etiket start)"_s);
    if (!zplTemplate.contains(u"^XZ"_s))
        validation.errors.append(u"Ontbreekt ^XZ (etiket einde)"_s);

    const auto& table = placeholders();
    const bool hasPlaceholder =
        std::any_of(table.keyBegin(), table.keyEnd(),
                    [&](const QString& key) { return zplTemplate.contains(key); });
    if (!hasPlaceholder)
        validation.errors.append(
            u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s);

    validation.isValid = validation.errors.isEmpty();
    return validation;
}

std::optional<QString> ZPLService::previewZPL(const QString& zplTemplate) const
{
    static const Fill sample{
        u"TEST-001"_s,      u"Voorbeeld Product"_s, u"19,99"_s, u"Voorbeeld omschrijving"_s,
        u"1234567890123"_s,
    };
    return applyFill(zplTemplate, sample);
}
