#include "labelrender/LabelWarnings.h"

#include "services/ZPLService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isAscii(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
}

int eanCheckDigit(const QString& digits)
{
    int sum = 0;
    // Weights 3 and 1 alternate from the rightmost digit before the check.
    for (qsizetype i = 0; i < digits.size(); ++i) {
        const int weight = (digits.size() - i) % 2 == 1 ? 3 : 1;
        sum += weight * digits.at(i).digitValue();
    }
    return (10 - sum % 10) % 10;
}

QString barcodeProblem(const QString& command, const QString& value, bool checkDigitCounts)
{
    const int dataLength = command == u"^BE" ? 12 : command == u"^B8" ? 7 : 11;
    const auto prefix = u"Barcode %1 met \"%2\": "_s.arg(command, value);
    if (value.isEmpty() ||
        !std::all_of(value.cbegin(), value.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return prefix + u"alleen cijfers zijn toegestaan."_s;
    if (value.size() != dataLength && value.size() != dataLength + 1)
        return prefix + u"%1 of %2 cijfers verwacht."_s.arg(dataLength).arg(dataLength + 1);
    const int check = eanCheckDigit(value.left(dataLength));
    if (checkDigitCounts && value.size() == dataLength + 1 &&
        value.at(dataLength).digitValue() != check)
        return prefix + u"het controlecijfer moet %1 zijn."_s.arg(check);
    return QString();
}

QString fieldName(const RenderedField& field)
{
    if (field.data.isEmpty())
        return field.command;
    const QString data = field.data.size() > 24 ? field.data.left(23) + u'…' : field.data;
    return u"%1 \"%2\""_s.arg(field.command, data);
}

void checkBounds(const RenderedLabel& label, QStringList* warnings)
{
    const QSize size = label.sizeDots();
    for (const RenderedField& field : label.fields) {
        const QRect r = field.bounds;
        if (r.isEmpty())
            continue;
        const QString name = fieldName(field);
        const auto edges = [&](int first, int last, int extent, const QString& where) {
            if (first < 0 || first >= extent)
                warnings->append((u"%1 begint buiten de "_s + where).arg(name).arg(extent));
            else if (last >= extent)
                warnings->append((u"%1 loopt buiten de "_s + where).arg(name).arg(extent));
        };
        if (label.widthKnown)
            edges(r.left(), r.right(), size.width(), u"etiketbreedte (^PW%2)."_s);
        if (label.lengthKnown)
            edges(r.top(), r.bottom(), size.height(), u"etiketlengte (^LL%2)."_s);
    }
}

} // namespace

QStringList LabelWarnings::check(const QString& zplTemplate, const Product* product,
                                 const LabelRenderResult& rendering)
{
    QStringList warnings;
    const ZPLService service;
    const bool utf8 = zplTemplate.contains(u"^CI28"_s);
    const auto accentWarning = u"Tekens buiten ASCII in %1 zonder ^CI28: letters met accenten "
                               u"worden verkeerd afgedrukt."_s;
    if (!utf8 && !isAscii(zplTemplate))
        warnings.append(accentWarning.arg(u"het sjabloon"_s));

    const auto& table = ZPLService::placeholders();
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (!zplTemplate.contains(it.key()))
            continue;
        const QString value =
            (product ? service.generateZPL(*product, it.key()) : service.previewZPL(it.key()))
                .value_or(QString());
        const QString where =
            (product ? u"het veld %1"_s : u"de voorbeeldwaarde %1"_s).arg(it.value());
        if (!utf8 && !isAscii(value))
            warnings.append(accentWarning.arg(where));
        if (product && (value.contains(u'^') || value.contains(u'~')))
            warnings.append(u"Het veld %1 bevat ^ of ~: op de printer eindigt daar het veld of "
                            u"begint een opdracht. Zet ^FH voor het veld en schrijf het teken "
                            u"als _5E (^) of _7E (~)."_s.arg(it.value()));
    }

    // The sample barcode is a made-up number whose check digit is not right;
    // only its digits and length say something about the template.
    const QString sampleBarcode =
        product ? QString() : service.previewZPL(u"{{BARCODE}}"_s).value_or(QString());
    for (const RenderedLabel& label : rendering.labels) {
        for (const RenderedField& field : label.fields) {
            if (field.command == u"^BE" || field.command == u"^B8" || field.command == u"^BU") {
                const bool checkDigitCounts = product || field.data != sampleBarcode;
                if (const QString problem =
                        barcodeProblem(field.command, field.data, checkDigitCounts);
                    !problem.isEmpty())
                    warnings.append(problem);
            }
        }
        checkBounds(label, &warnings);
    }
    if (!rendering.commandsNotDrawn.isEmpty())
        warnings.append(
            u"Niet getekend in het voorbeeld: %1."_s.arg(rendering.commandsNotDrawn.join(u", "_s)));
    return warnings;
}
