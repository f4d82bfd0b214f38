#include "labelrender/LabelInterpreter.h"

#include "labelrender/LabelCanvas.h"
#include "labelrender/LabelRenderer.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

// The largest number a printer takes for any dot measure.
constexpr int kMaxDots = 32000;
// Far beyond any label, and far inside int, so sums of bounds cannot overflow.
constexpr qreal kMaxFieldExtent = 1 << 24;

int signedIntAt(const QStringList& p, qsizetype i, int fallback, int bound)
{
    bool ok = false;
    const qlonglong value = i < p.size() ? p.at(i).trimmed().toLongLong(&ok) : 0;
    return ok ? int(qBound(qlonglong(-bound), value, qlonglong(bound))) : fallback;
}

int intAt(const QStringList& p, qsizetype i, int fallback)
{
    return qMax(0, signedIntAt(p, i, fallback, kMaxDots));
}

QChar charAt(const QStringList& p, qsizetype i, QChar fallback)
{
    const QString text = i < p.size() ? p.at(i).trimmed() : QString();
    return text.isEmpty() ? fallback : text.at(0).toUpper();
}

bool yesAt(const QStringList& p, qsizetype i, bool fallback)
{
    const QChar c = charAt(p, i, fallback ? u'Y' : u'N');
    return c == u'Y';
}

QChar orientationOr(QChar c, QChar fallback)
{
    return QStringView(u"NRIB").contains(c) ? c : fallback;
}

qreal angleOf(QChar orientation)
{
    switch (orientation.unicode()) {
    case u'R':
        return 90;
    case u'I':
        return 180;
    case u'B':
        return 270;
    default:
        return 0;
    }
}

QByteArray decodeHex(const QByteArray& bytes, char indicator)
{
    QByteArray out;
    out.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        bool ok = false;
        const int value = bytes.at(i) == indicator ? bytes.mid(i + 1, 2).toInt(&ok, 16) : 0;
        if (ok && i + 2 < bytes.size()) {
            out.append(char(value));
            i += 2;
        } else {
            out.append(bytes.at(i));
        }
    }
    return out;
}

// ^FD of a QR code starts with the error level and input mode: "QA,data".
QByteArray qrPayload(const QByteArray& data, int* errorLevel)
{
    if (data.size() < 3 || data.at(2) != ',')
        return data;
    const int level = QByteArray("LMQH").indexOf(char(QChar::toUpper(uint(data.at(0)))));
    if (level >= 0)
        *errorLevel = level + 1;
    QByteArray payload = data.mid(3);
    if (QChar::toUpper(uint(data.at(1))) == u'M' && !payload.isEmpty()) {
        const char type = char(QChar::toUpper(uint(payload.at(0))));
        payload = payload.mid(type == 'B' ? 5 : 1);
    }
    return payload;
}

// Code 128 invocation codes (">;" subset C, ">:" subset B, ...) choose the
// encoding, which zint picks by itself; they are no data.
QByteArray withoutInvocations(const QByteArray& data)
{
    QByteArray out;
    for (qsizetype i = 0; i < data.size(); ++i) {
        if (data.at(i) == '>' && i + 1 < data.size() &&
            QByteArray(":;56789").contains(data.at(i + 1))) {
            ++i;
            continue;
        }
        out.append(data.at(i));
    }
    return out;
}

} // namespace

LabelInterpreter::LabelInterpreter(int dotsPerMm, const LabelFont& font, int maxLabels)
    : m_dotsPerMm(dotsPerMm), m_font(font), m_maxLabels(maxLabels)
{}

const QHash<QString, LabelInterpreter::Handler>& LabelInterpreter::handlers()
{
    static const QHash<QString, Handler> table{
        {u"XA"_s, &LabelInterpreter::startLabel},
        {u"XZ"_s, &LabelInterpreter::endLabel},
        {u"FO"_s, &LabelInterpreter::fieldOrigin},
        {u"FT"_s, &LabelInterpreter::fieldTypeset},
        {u"LH"_s, &LabelInterpreter::labelHome},
        {u"PW"_s, &LabelInterpreter::printWidth},
        {u"LL"_s, &LabelInterpreter::labelLength},
        {u"CF"_s, &LabelInterpreter::changeFont},
        {u"A"_s, &LabelInterpreter::scalableFont},
        {u"FW"_s, &LabelInterpreter::fieldOrientation},
        {u"FD"_s, &LabelInterpreter::fieldData},
        {u"FV"_s, &LabelInterpreter::fieldData},
        {u"FS"_s, &LabelInterpreter::fieldSeparator},
        {u"FB"_s, &LabelInterpreter::fieldBlock},
        {u"FR"_s, &LabelInterpreter::fieldReverse},
        {u"GB"_s, &LabelInterpreter::graphicBox},
        {u"FH"_s, &LabelInterpreter::fieldHex},
        {u"CI"_s, &LabelInterpreter::codePage},
        {u"BY"_s, &LabelInterpreter::barcodeDefaults},
        {u"BC"_s, &LabelInterpreter::simpleBarcode<BarcodeGraphic::Kind::Code128, u'C'>},
        {u"BE"_s, &LabelInterpreter::simpleBarcode<BarcodeGraphic::Kind::Ean13, u'E'>},
        {u"B8"_s, &LabelInterpreter::simpleBarcode<BarcodeGraphic::Kind::Ean8, u'8'>},
        {u"BU"_s, &LabelInterpreter::simpleBarcode<BarcodeGraphic::Kind::UpcA, u'U'>},
        {u"B3"_s, &LabelInterpreter::code39},
        {u"BQ"_s, &LabelInterpreter::qrCode},
        {u"BX"_s, &LabelInterpreter::dataMatrix},
        {u"FX"_s, &LabelInterpreter::comment},
    };
    return table;
}

void LabelInterpreter::apply(const ZplCommandReader::Command& command)
{
    const auto handler = handlers().constFind(command.name);
    if (command.prefix != u'^' || handler == handlers().constEnd()) {
        say(m_result.commandsNotDrawn, command.displayName());
        return;
    }
    const bool keepWhole = command.name == u"FD" || command.name == u"FV" ||
                           command.name == u"FX" || command.name == u"A";
    const Params params = keepWhole ? Params{command.params} : command.params.split(u',');
    (this->*handler.value())(params);
}

void LabelInterpreter::startLabel(const Params&)
{
    if (m_inLabel && hasFields())
        endLabel({});
    m_inLabel = true;
    m_field = {};
}

void LabelInterpreter::endLabel(const Params&)
{
    fieldSeparator({});
    if (drawing())
        paintLabel();
    ++m_result.labelCount;
    m_placed.clear();
    m_fieldsSkipped = false;
    m_inLabel = false;
}

bool LabelInterpreter::hasFields() const
{
    return !m_placed.isEmpty() || m_fieldsSkipped;
}

bool LabelInterpreter::drawing() const
{
    return !m_outOfPixels && m_result.labels.size() < m_maxLabels;
}

void LabelInterpreter::paintLabel()
{
    const LabelCanvas::Size size = LabelCanvas::size(m_placed, m_dotsPerMm, m_width, m_length);
    const qint64 pixels = qint64(size.dots.width()) * size.dots.height();
    if (m_pixels + pixels > LabelRenderer::kMaxPixels) {
        m_outOfPixels = true;
        cut(u"Alleen de eerste %1 etiketten getoond: samen zouden ze meer dan 64 miljoen "
            u"punten beslaan."_s.arg(m_result.labels.size()));
        return;
    }
    m_pixels += pixels;
    if (!size.widthKnown || !size.lengthKnown)
        note(u"Etiketgrootte onbekend (geen ^PW of ^LL): het beeld toont wat getekend is, met "
             u"een marge."_s);
    if (size.shortened)
        note(u"Etiket ingekort tot %1 bij %1 punten."_s.arg(LabelCanvas::kMaxSideDots));
    m_result.labels.append(LabelCanvas::paint(m_placed, m_dotsPerMm, size));
}

void LabelInterpreter::fieldOrigin(const Params& p)
{
    m_field.origin = m_home + QPoint(intAt(p, 0, 0), intAt(p, 1, 0));
    m_field.baselineOrigin = false;
}

void LabelInterpreter::fieldTypeset(const Params& p)
{
    fieldOrigin(p);
    m_field.baselineOrigin = true;
}

void LabelInterpreter::labelHome(const Params& p)
{
    m_home = QPoint(intAt(p, 0, 0), intAt(p, 1, 0));
}

void LabelInterpreter::printWidth(const Params& p)
{
    if (const int width = intAt(p, 0, 0); width > 0)
        m_width = width;
}

void LabelInterpreter::labelLength(const Params& p)
{
    if (const int length = intAt(p, 0, 0); length > 0)
        m_length = length;
}

void LabelInterpreter::changeFont(const Params& p)
{
    m_defaultFont.name = charAt(p, 0, m_defaultFont.name);
    const int height = intAt(p, 1, 0);
    const int width = intAt(p, 2, 0);
    if (height > 0)
        m_defaultFont.height = height;
    m_defaultFont.width = width > 0 ? width : (height > 0 ? 0 : m_defaultFont.width);
}

void LabelInterpreter::scalableFont(const Params& p)
{
    const QString all = p.value(0);
    const QStringList rest = all.mid(1).split(u',');
    FontChoice font = m_defaultFont;
    font.name = all.isEmpty() ? u'0' : all.at(0).toUpper();
    font.orientation = orientationOr(charAt(rest, 0, m_defaultOrientation), m_defaultOrientation);
    const int height = intAt(rest, 1, 0);
    const int width = intAt(rest, 2, 0);
    font.height = height > 0 ? height : (width > 0 ? width : m_defaultFont.height);
    font.width = width > 0 ? width : 0;
    m_field.font = font;
}

void LabelInterpreter::fieldOrientation(const Params& p)
{
    m_defaultOrientation = orientationOr(charAt(p, 0, u'N'), m_defaultOrientation);
}

void LabelInterpreter::fieldData(const Params& p)
{
    if (!m_field.data)
        m_field.data.emplace();
    m_field.data->append(p.value(0));
}

void LabelInterpreter::fieldBlock(const Params& p)
{
    LabelFont::Block block;
    block.width = qMax(0, intAt(p, 0, 0));
    block.maxLines = qBound(1, intAt(p, 1, 1), 9999);
    block.lineSpacing = signedIntAt(p, 2, 0, 9999);
    const QChar justification = charAt(p, 3, u'L');
    block.justification = justification == u'C'   ? LabelFont::Justification::Center
                          : justification == u'R' ? LabelFont::Justification::Right
                          : justification == u'J' ? LabelFont::Justification::Justified
                                                  : LabelFont::Justification::Left;
    m_field.block = block;
}

void LabelInterpreter::fieldReverse(const Params&)
{
    m_field.reverse = true;
}

void LabelInterpreter::graphicBox(const Params& p)
{
    Box box;
    box.thickness = qMax(1, intAt(p, 2, 1));
    box.width = qMax(box.thickness, intAt(p, 0, box.thickness));
    box.height = qMax(box.thickness, intAt(p, 1, box.thickness));
    box.white = charAt(p, 3, u'B') == u'W';
    box.rounding = qBound(0, intAt(p, 4, 0), 8);
    m_field.box = box;
}

void LabelInterpreter::fieldHex(const Params& p)
{
    m_field.hexIndicator = p.value(0).isEmpty() ? u'_' : p.value(0).at(0);
}

void LabelInterpreter::codePage(const Params& p)
{
    m_codePage = intAt(p, 0, 0);
    if (m_codePage != 0 && m_codePage != 27 && m_codePage != 28)
        note(u"^CI%1 wordt getoond als Latin-1."_s.arg(m_codePage));
}

void LabelInterpreter::barcodeDefaults(const Params& p)
{
    m_moduleWidth = qBound(1, intAt(p, 0, m_moduleWidth), 10);
    bool ok = false;
    const double ratio = p.value(1).trimmed().toDouble(&ok);
    if (ok)
        m_wideToNarrow = qBound(2.0, ratio, 3.0);
    m_barHeight = qMax(1, intAt(p, 2, m_barHeight));
}

void LabelInterpreter::setBarcode(BarcodeGraphic::Kind kind, const QString& command,
                                  QChar orientation)
{
    BarcodeGraphic::Options options;
    options.kind = kind;
    options.moduleWidth = m_moduleWidth;
    options.barHeight = m_barHeight;
    m_field.barcode = options;
    m_field.barcodeCommand = command;
    m_field.barcodeOrientation = orientationOr(orientation, m_defaultOrientation);
}

void LabelInterpreter::linearBarcode(BarcodeGraphic::Kind kind, const QString& command,
                                     const Params& p, int heightAt, int interpretationAt)
{
    setBarcode(kind, command, charAt(p, 0, m_defaultOrientation));
    m_field.barcode->barHeight = qMax(1, intAt(p, heightAt, m_barHeight));
    const bool shown = yesAt(p, interpretationAt, true);
    const bool above = yesAt(p, interpretationAt + 1, false);
    m_field.barcode->interpretation = !shown  ? BarcodeGraphic::Interpretation::None
                                      : above ? BarcodeGraphic::Interpretation::Above
                                              : BarcodeGraphic::Interpretation::Below;
}

void LabelInterpreter::code39(const Params& p)
{
    linearBarcode(BarcodeGraphic::Kind::Code39, u"^B3"_s, p, 2, 3);
    m_field.barcode->checkDigit = yesAt(p, 1, false);
    // zint draws wide elements twice as wide as narrow ones and has no option
    // to change that.
    if (m_wideToNarrow > 2.0)
        note(u"Code 39 staat er met breed/smal-verhouding 2,0 in plaats van %1 (^BY)."_s.arg(
            QLocale(QLocale::Dutch).toString(m_wideToNarrow, 'f', 1)));
}

void LabelInterpreter::qrCode(const Params& p)
{
    setBarcode(BarcodeGraphic::Kind::Qr, u"^BQ"_s, u'N');
    // The printer's default magnification grows with its resolution.
    const int fallback = qMax(1, m_dotsPerMm / 4);
    m_field.barcode->moduleWidth = qBound(1, intAt(p, 2, fallback), 100);
    if (intAt(p, 1, 2) != 2)
        note(u"QR-code model 1 wordt getoond als model 2."_s);
}

void LabelInterpreter::dataMatrix(const Params& p)
{
    setBarcode(BarcodeGraphic::Kind::DataMatrix, u"^BX"_s, charAt(p, 0, m_defaultOrientation));
    m_field.barcode->moduleWidth = qBound(1, intAt(p, 1, m_moduleWidth), 100);
    if (intAt(p, 2, 200) != 200)
        note(u"Data Matrix wordt alleen als ECC 200 getoond."_s);
}

std::optional<FieldGraphic> LabelInterpreter::fieldGraphic(const QByteArray& bytes,
                                                           const QString& text)
{
    if (m_field.barcode) {
        BarcodeGraphic::Options options = *m_field.barcode;
        QByteArray payload = bytes;
        if (options.kind == BarcodeGraphic::Kind::Qr)
            payload = qrPayload(bytes, &options.qrErrorLevel);
        else if (options.kind == BarcodeGraphic::Kind::Code128)
            payload = withoutInvocations(bytes);
        if (payload.isEmpty())
            return std::nullopt; // the printer prints nothing for an empty barcode
        QString error;
        std::optional<FieldGraphic> graphic =
            BarcodeGraphic::make(options, payload, m_font, &error);
        if (!graphic)
            note(u"Barcode %1 \"%2\" niet getekend: %3"_s.arg(m_field.barcodeCommand, text, error));
        return graphic;
    }
    const FontChoice font = m_field.font.value_or(m_defaultFont);
    if (font.name != u'0')
        note(u"Lettertype %1 getekend als lettertype 0."_s.arg(font.name));
    if (!m_font.substitutionNote().isEmpty())
        note(m_font.substitutionNote());
    // No printer prints a line longer than 32,000 dots, and no character is
    // narrower than a dot; glyphs past that cost time and show nothing.
    QString shown = text;
    if (shown.size() > kMaxDots) {
        shown.truncate(kMaxDots);
        cut(u"Veldtekst ingekort tot de eerste %1 tekens."_s.arg(
            QLocale(QLocale::Dutch).toString(kMaxDots)));
    }
    if (m_field.block)
        return m_font.block(shown, font.height, font.width, *m_field.block);
    return m_font.line(shown, font.height, font.width);
}

void LabelInterpreter::fieldSeparator(const Params&)
{
    const bool isField = m_field.box || m_field.data;
    const bool fieldsFull = isField && m_fieldsDrawn == LabelRenderer::kMaxFields;
    if (fieldsFull)
        cut(u"Alleen de eerste %1 velden getoond."_s.arg(
            QLocale(QLocale::Dutch).toString(LabelRenderer::kMaxFields)));
    if (!drawing() || fieldsFull) {
        m_fieldsSkipped = m_fieldsSkipped || isField;
        m_field = {};
        return;
    }
    m_fieldsDrawn += isField;
    if (m_field.box) {
        const Box box = *m_field.box;
        place(LabelCanvas::box(box.width, box.height, box.thickness, box.rounding), u'N', u"^GB"_s,
              QString(), box.white);
    } else if (m_field.data) {
        QByteArray bytes = m_field.data->toUtf8();
        if (m_field.hexIndicator)
            bytes = decodeHex(bytes, char(m_field.hexIndicator->toLatin1()));
        const QString text =
            m_codePage == 28 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
        // A barcode that cannot be drawn still counts as a field, with no ink.
        FieldGraphic graphic =
            fieldGraphic(bytes, text).value_or(FieldGraphic{{}, 0, {}, [](QPainter&) {
                                                            }});
        const QChar orientation = m_field.barcode
                                      ? m_field.barcodeOrientation
                                      : m_field.font.value_or(m_defaultFont).orientation;
        place(std::move(graphic), orientation, m_field.barcode ? m_field.barcodeCommand : u"^FD"_s,
              text, false);
    }
    m_field = {};
}

void LabelInterpreter::place(FieldGraphic graphic, QChar orientation, const QString& command,
                             const QString& data, bool white)
{
    m_inLabel = true;
    QTransform rotation;
    rotation.rotate(angleOf(orientation));
    const QPointF anchor = m_field.baselineOrigin
                               ? rotation.map(QPointF(0, graphic.baseline))
                               : rotation.mapRect(QRectF(QPointF(0, 0), graphic.size)).topLeft();
    const QPointF shift = QPointF(m_field.origin) - anchor;
    const QTransform transform = rotation * QTransform::fromTranslate(shift.x(), shift.y());
    PlacedField placed;
    const QRectF limit(-kMaxFieldExtent, -kMaxFieldExtent, 2 * kMaxFieldExtent,
                       2 * kMaxFieldExtent);
    placed.field = {command, transform.mapRect(graphic.ink).intersected(limit).toAlignedRect(),
                    data};
    placed.graphic = std::move(graphic);
    placed.transform = transform;
    placed.reverse = m_field.reverse;
    placed.white = white;
    m_placed.append(std::move(placed));
}

void LabelInterpreter::say(QStringList& list, const QString& text)
{
    if (!m_said.contains(text)) {
        m_said.insert(text);
        list.append(text);
    }
}

LabelRenderResult LabelInterpreter::finish()
{
    if (hasFields()) {
        note(u"^XZ ontbreekt aan het einde van het etiket."_s);
        endLabel({});
    }
    if (m_result.labelCount > LabelRenderer::kMaxLabels && !m_outOfPixels &&
        m_maxLabels == LabelRenderer::kMaxLabels)
        cut(u"Alleen de eerste %1 etiketten getoond."_s.arg(LabelRenderer::kMaxLabels));
    return std::move(m_result);
}
