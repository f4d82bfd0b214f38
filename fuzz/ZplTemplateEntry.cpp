#include "FuzzCheck.h"
#include "FuzzEntries.h"
#include "LabelInput.h"
#include "services/ZPLService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

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
    const auto [zplTemplate, product] = LabelInput::read(data, size);

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

    // A template that the fill changed holds a placeholder.
    check(!filled ||
              zpl.validateTemplate(zplTemplate).errors.filter(u"Geen placeholders"_s).isEmpty(),
          "a template with a placeholder is not reported as having none");
    const QString preview = zpl.previewZPL(zplTemplate).value_or(QString());
    check(!holdsPlaceholder(preview), "a preview holds no placeholder", preview);
    return 0;
}
