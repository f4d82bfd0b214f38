#include "labelrender/BarcodeGraphic.h"

#include <QFontMetricsF>
#include <QList>
#include <memory>
#include <zint.h>

namespace {

struct SymbolDeleter
{
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};

int symbology(BarcodeGraphic::Kind kind)
{
    switch (kind) {
    case BarcodeGraphic::Kind::Code128:
        return BARCODE_CODE128;
    case BarcodeGraphic::Kind::Ean13:
    case BarcodeGraphic::Kind::Ean8:
        return BARCODE_EANX;
    case BarcodeGraphic::Kind::UpcA:
        return BARCODE_UPCA;
    case BarcodeGraphic::Kind::Code39:
        return BARCODE_CODE39;
    case BarcodeGraphic::Kind::Qr:
        return BARCODE_QRCODE;
    case BarcodeGraphic::Kind::DataMatrix:
        return BARCODE_DATAMATRIX;
    }
    return BARCODE_CODE128;
}

bool isLinear(BarcodeGraphic::Kind kind)
{
    return kind != BarcodeGraphic::Kind::Qr && kind != BarcodeGraphic::Kind::DataMatrix;
}

// The printer reads a fixed number of digits (12, 7 or 11), pads shorter
// data with zeros on the left, drops what follows and computes the check
// digit itself. The fixed length also keeps zint's EANX on the symbol asked
// for: it chooses EAN-13, EAN-8 or an add-on by the length.
QByteArray printerDigits(BarcodeGraphic::Kind kind, const QByteArray& data)
{
    const qsizetype length = kind == BarcodeGraphic::Kind::Ean13  ? 12
                             : kind == BarcodeGraphic::Kind::Ean8 ? 7
                             : kind == BarcodeGraphic::Kind::UpcA ? 11
                                                                  : 0;
    if (length == 0)
        return data;
    return data.left(length).rightJustified(length, '0');
}

struct Text
{
    QPointF baselineStart;
    QString text;
    int pixelSize;
};

} // namespace

std::optional<FieldGraphic> BarcodeGraphic::make(const Options& options, const QByteArray& data,
                                                 const LabelFont& font, QString* error)
{
    std::unique_ptr<zint_symbol, SymbolDeleter> symbol(ZBarcode_Create());
    const int module = qMax(1, options.moduleWidth);
    const bool linear = isLinear(options.kind);
    symbol->symbology = symbology(options.kind);
    symbol->scale = 1; // two vector units per module
    symbol->input_mode = DATA_MODE;
    symbol->show_hrt = options.interpretation != Interpretation::None;
    if (linear)
        symbol->height = float(qMax(1, options.barHeight)) / module;
    if (options.kind == Kind::Code39 && options.checkDigit)
        symbol->option_2 = 1;
    if (options.kind == Kind::Qr)
        symbol->option_1 = options.qrErrorLevel;
    const QByteArray input = printerDigits(options.kind, data);
    const int status = ZBarcode_Encode_and_Buffer_Vector(
        symbol.get(), reinterpret_cast<const unsigned char*>(input.constData()), int(input.size()),
        0);
    if (status >= ZINT_ERROR || !symbol->vector) {
        *error = QString::fromLatin1(symbol->errtxt);
        return std::nullopt;
    }

    auto dots = [module](float units) {
        return qRound(units * module / 2.0);
    };
    QList<QRect> bars;
    int barsBottom = 0;
    for (const zint_vector_rect* r = symbol->vector->rectangles; r; r = r->next) {
        if (r->colour != -1 && r->colour != 7)
            continue; // only the foreground draws on a one-colour printer
        const QRect bar(QPoint(dots(r->x), dots(r->y)),
                        QPoint(dots(r->x + r->width) - 1, dots(r->y + r->height) - 1));
        bars.append(bar);
        barsBottom = qMax(barsBottom, bar.bottom() + 1);
    }

    QList<Text> texts;
    const bool moveTextUp = options.interpretation == Interpretation::Above;
    const int textBand = dots(symbol->vector->height) - barsBottom;
    QRectF ink;
    for (const zint_vector_string* s = symbol->vector->strings; s; s = s->next) {
        const QString text = QString::fromUtf8(reinterpret_cast<const char*>(s->text));
        const int pixelSize = qMax(1, dots(s->fsize));
        const qreal width = QFontMetricsF(font.fontForPixelSize(pixelSize)).horizontalAdvance(text);
        qreal x = s->x * module / 2.0;
        if (s->halign == 0)
            x -= width / 2;
        else if (s->halign == 2)
            x -= width;
        const qreal y = moveTextUp ? s->y * module / 2.0 - barsBottom : s->y * module / 2.0;
        texts.append({QPointF(x, y), text, pixelSize});
        const QFontMetricsF metrics(font.fontForPixelSize(pixelSize));
        ink |= QRectF(x, y - metrics.ascent(), width, metrics.ascent() + metrics.descent());
    }
    if (moveTextUp) {
        for (QRect& bar : bars)
            bar.translate(0, textBand);
    }
    for (const QRect& bar : bars)
        ink |= QRectF(bar);

    // The field's frame starts at the leftmost ink; quiet zones are the
    // label designer's business, as on the printer.
    const QPointF shift(-qFloor(ink.left()), moveTextUp ? -qFloor(ink.top()) : 0);
    for (QRect& bar : bars)
        bar.translate(shift.toPoint());
    for (Text& text : texts)
        text.baselineStart += shift;
    ink.translate(shift);

    FieldGraphic graphic;
    graphic.size = QSizeF(ink.right(), ink.bottom());
    graphic.baseline = linear ? barsBottom + (moveTextUp ? textBand : 0) : graphic.size.height();
    graphic.ink = ink;
    graphic.paint = [bars, texts, &font](QPainter& painter) {
        for (const QRect& bar : bars)
            painter.fillRect(bar, painter.pen().color());
        for (const Text& text : texts) {
            painter.setFont(font.fontForPixelSize(text.pixelSize));
            painter.drawText(text.baselineStart, text.text);
        }
    };
    return graphic;
}
