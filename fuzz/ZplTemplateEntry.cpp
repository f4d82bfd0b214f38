#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "services/ZPLService.h"

#include <QList>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

using namespace Qt::StringLiterals;

// Input layout: fields separated by NUL bytes, in this order: template, Sku,
// Name, Description, BarCode, price (as text, e.g. "12.5"). A field that is
// missing at the end, or that is the single byte 0x7F, is absent; an
// unparsable price is absent too.
namespace {

constexpr char kAbsentMarker = '\x7f';

struct Input
{
    QString zplTemplate;
    Product product;
};

std::optional<QString> field(const QList<QByteArray>& fields, qsizetype index)
{
    if (index >= fields.size() || fields.at(index) == QByteArray(1, kAbsentMarker))
        return std::nullopt;
    return QString::fromUtf8(fields.at(index));
}

std::optional<double> parsePrice(const std::optional<QString>& text)
{
    if (!text)
        return std::nullopt;
    const std::string digits = text->toStdString();
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc())
        return std::nullopt;
    return value;
}

Input parse(const QByteArray& bytes)
{
    const QList<QByteArray> fields = bytes.split('\0');
    Input input;
    input.zplTemplate = field(fields, 0).value_or(QString());
    input.product.ID = 1;
    input.product.Sku = field(fields, 1);
    input.product.Name = field(fields, 2);
    input.product.Description = field(fields, 3);
    input.product.BarCode = field(fields, 4);
    input.product.SellPrice1WithVat = parsePrice(field(fields, 5));
    return input;
}

// A plain reference of the fill: five literal replace-all passes in a fixed
// order, each over the previous result.
std::u16string replaceAll(const std::u16string& text, const std::u16string& from,
                          const std::u16string& to)
{
    std::u16string out;
    std::size_t position = 0;
    for (;;) {
        const std::size_t hit = text.find(from, position);
        if (hit == std::u16string::npos)
            break;
        out.append(text, position, hit - position);
        out += to;
        position = hit + from.size();
    }
    out.append(text, position);
    return out;
}

const std::array<std::u16string, 5> kPlaceholders{u"{{ARTIKELNR}}", u"{{NAAM}}", u"{{PRIJS}}",
                                                  u"{{OMSCHRIJVING}}", u"{{BARCODE}}"};

QString referenceFill(const QString& zplTemplate, const std::array<QString, 5>& values)
{
    std::u16string text = zplTemplate.toStdU16String();
    for (std::size_t i = 0; i < kPlaceholders.size(); ++i)
        text = replaceAll(text, kPlaceholders[i], values[i].toStdU16String());
    return QString::fromStdU16String(text);
}

// printf's "%.2f" in the C locale, which this process never leaves.
QString referencePrice(const std::optional<double>& price)
{
    if (!price)
        return u"-"_s;
    std::array<char, 512> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.2f", *price);
    return QString::fromLatin1(buffer.data());
}

void checkValidation(const ZPLService& zpl, const QString& zplTemplate)
{
    QStringList expected;
    if (!zplTemplate.contains(u"^XA"_s))
        expected.append(u"Ontbreekt ^XA (etiket start)"_s);
    if (!zplTemplate.contains(u"^XZ"_s))
        expected.append(u"Ontbreekt ^XZ (etiket einde)"_s);
    bool anyPlaceholder = false;
    for (const std::u16string& placeholder : kPlaceholders)
        anyPlaceholder =
            anyPlaceholder || zplTemplate.contains(QString::fromStdU16String(placeholder));
    if (!anyPlaceholder)
        expected.append(
            u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s);

    const ZPLService::Validation validation = zpl.validateTemplate(zplTemplate);
    stampixfuzz::check(validation.errors == expected, "validation names exactly what is missing",
                       validation.errors.join(u" | "_s));
    stampixfuzz::check(validation.isValid == expected.isEmpty(),
                       "a template is valid exactly when nothing is missing");
}

void checkPreview(const ZPLService& zpl, const QString& zplTemplate)
{
    const QString preview = zpl.previewZPL(zplTemplate);
    const QString expected =
        referenceFill(zplTemplate, {u"TEST-001"_s, u"Voorbeeld Product"_s, u"19,99"_s,
                                    u"Voorbeeld omschrijving"_s, u"1234567890123"_s});
    stampixfuzz::check(preview == expected, "the preview fills the sample values", preview);
    // No sample value holds a brace, so no placeholder can survive or be formed.
    for (const std::u16string& placeholder : kPlaceholders)
        stampixfuzz::check(!preview.contains(QString::fromStdU16String(placeholder)),
                           "a preview holds no placeholder", preview);
}

} // namespace

namespace stampixfuzz {

int zplTemplate(const std::uint8_t* data, std::size_t size)
{
    const Input input = parse(toBytes(data, size));
    const ZPLService zpl;
    const Product& product = input.product;

    const QString label = zpl.generateZPL(product, input.zplTemplate);
    const QString expected = referenceFill(
        input.zplTemplate,
        {product.sku(), product.displayName(), referencePrice(product.SellPrice1WithVat),
         product.Description.value_or(QString()), product.barcode()});
    if (!product.SellPrice1WithVat || std::isfinite(*product.SellPrice1WithVat))
        check(label == expected, "a label is the template with the product's values filled in",
              label);
    if (!input.zplTemplate.contains(u"{{"_s))
        check(label == input.zplTemplate, "a template without placeholders comes back unchanged");

    checkValidation(zpl, input.zplTemplate);
    checkPreview(zpl, input.zplTemplate);
    return 0;
}

} // namespace stampixfuzz
