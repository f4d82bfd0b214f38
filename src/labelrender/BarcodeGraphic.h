#pragma once

#include "labelrender/FieldGraphic.h"
#include "labelrender/LabelFont.h"

#include <QByteArray>
#include <QString>
#include <optional>

// Barcodes drawn by zint's vector output, every module on whole dots.
class BarcodeGraphic
{
public:
    enum class Kind
    {
        Code128,
        Ean13,
        Ean8,
        UpcA,
        Code39,
        Qr,
        DataMatrix
    };
    enum class Interpretation
    {
        None,
        Below,
        Above
    };

    struct Options
    {
        Kind kind = Kind::Code128;
        int moduleWidth = 2; // dots per narrow module (^BY, or the 2D size)
        int barHeight = 10;  // dots, linear codes only
        Interpretation interpretation = Interpretation::Below;
        bool checkDigit = false; // Code 39 mod-43
        int qrErrorLevel = 3;    // 1..4: L, M, Q, H
    };

    // `data` are the field bytes as the printer gets them. On failure the
    // result is empty and `error` holds zint's reason.
    static std::optional<FieldGraphic> make(const Options& options, const QByteArray& data,
                                            const LabelFont& font, QString* error);
};
