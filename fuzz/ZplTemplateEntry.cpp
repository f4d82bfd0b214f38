#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "services/ZPLService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

// Input layout: fields separated by NUL bytes, in this order: template, Sku,
// Name, Description, BarCode, price (as text, e.g. "12.5"). A field that is
// missing at the end, or that is the single byte 0x7F, is absent; an
// unparsable price is absent too.
namespace {

const QStringList kMessages{
    u"Ontbreekt ^XA (etiket start)"_s, u"Ontbreekt ^XZ (etiket einde)"_s,
    u"Geen placeholders gevonden. Gebruik {{ARTIKELNR}}, {{NAAM}}, of {{PRIJS}}"_s};

std::optional<QString> field(const QList<QByteArray>& fields, qsizetype index)
{
    if (index >= fields.size() || fields.at(index) == "\x7f")
        return std::nullopt;
    return QString::fromUtf8(fields.at(index));
}

bool holdsPlaceholder(const QString& text)
{
    const auto& table = ZPLService::placeholders();
    return std::any_of(table.keyBegin(), table.keyEnd(),
                       [&text](const QString& placeholder) { return text.contains(placeholder); });
}

// A value that can neither be nor complete a placeholder.
bool isInert(const QString& value)
{
    return !value.isEmpty() && std::none_of(value.cbegin(), value.cend(), [](QChar c) {
        return c == u'{' || c == u'}' || (c >= u'A' && c <= u'Z');
    });
}

} // namespace

int stampixfuzz::zplTemplate(const std::uint8_t* data, std::size_t size)
{
    const QList<QByteArray> fields = toBytes(data, size).split('\0');
    const QString zplTemplate = field(fields, 0).value_or(QString());
    Product product;
    product.ID = 1;
    product.Sku = field(fields, 1);
    product.Name = field(fields, 2);
    product.Description = field(fields, 3);
    product.BarCode = field(fields, 4);
    bool parsed = false;
    const double price = field(fields, 5).value_or(QString()).toDouble(&parsed);
    if (parsed)
        product.SellPrice1WithVat = price;

    const ZPLService zpl;
    const std::optional<QString> label = zpl.generateZPL(product, zplTemplate);
    if (label)
        check(label->toUtf8().size() <= ZPLService::kMaxLabelBytes, "a label stays within 1 MiB");
    const bool filled = label != zplTemplate;
    if (!zplTemplate.contains(u"{{"_s))
        check(!filled, "a template without placeholders comes back unchanged");
    const QStringList values{product.sku(), product.displayName(),
                             zpl.generateZPL(product, u"{{PRIJS}}"_s).value_or(QString()),
                             product.Description.value_or(QString()), product.barcode()};
    if (label && std::all_of(values.cbegin(), values.cend(), isInert))
        check(!holdsPlaceholder(*label), "no placeholder survives the fill", *label);

    const ZPLService::Validation validation = zpl.validateTemplate(zplTemplate);
    for (const QString& error : validation.errors)
        check(kMessages.contains(error), "validation gives only known messages", error);
    // A template that the fill changed holds a placeholder.
    check(!filled || !validation.errors.contains(kMessages[2]),
          "a template with a placeholder is not reported as having none");
    const QString preview = zpl.previewZPL(zplTemplate).value_or(QString());
    check(!holdsPlaceholder(preview), "a preview holds no placeholder", preview);
    return 0;
}
