#pragma once

#include "labelrender/BarcodeGraphic.h"
#include "labelrender/FieldGraphic.h"
#include "labelrender/LabelFont.h"
#include "labelrender/LabelRenderResult.h"
#include "labelrender/PlacedField.h"
#include "labelrender/ZplCommandReader.h"

#include <QHash>
#include <QPoint>
#include <QSet>
#include <QTransform>
#include <optional>

// Follows the commands of a ZPL text as a printer does, field by field, and
// paints each finished label. State such as ^PW, ^LL, ^CI and ^BY carries
// over to following labels, as on the printer. Every number is clamped to
// what a printer accepts, and only the first `maxLabels` labels that fit in
// LabelRenderer::kMaxPixels are drawn; the rest are only counted.
class LabelInterpreter
{
public:
    LabelInterpreter(int dotsPerMm, const LabelFont& font, int maxLabels);

    void apply(const ZplCommandReader::Command& command);
    LabelRenderResult finish();

private:
    using Params = QStringList;
    using Handler = void (LabelInterpreter::*)(const Params&);

    struct FontChoice
    {
        QChar name = u'A';
        QChar orientation = u'N';
        int height = 9;
        int width = 5;
    };
    struct Box
    {
        int width = 1, height = 1, thickness = 1, rounding = 0;
        bool white = false;
    };
    struct Field
    {
        QPoint origin;
        bool baselineOrigin = false;
        std::optional<FontChoice> font;
        std::optional<LabelFont::Block> block;
        bool reverse = false;
        std::optional<QChar> hexIndicator;
        std::optional<BarcodeGraphic::Options> barcode;
        QString barcodeCommand;
        QChar barcodeOrientation = u'N';
        std::optional<Box> box;
        std::optional<QString> data;
    };
    static const QHash<QString, Handler>& handlers();
    void startLabel(const Params&);
    void endLabel(const Params&);
    void fieldOrigin(const Params& p);
    void fieldTypeset(const Params& p);
    void labelHome(const Params& p);
    void printWidth(const Params& p);
    void labelLength(const Params& p);
    void changeFont(const Params& p);
    void scalableFont(const Params& p);
    void fieldOrientation(const Params& p);
    void fieldData(const Params& p);
    void fieldSeparator(const Params&);
    void fieldBlock(const Params& p);
    void fieldReverse(const Params&);
    void graphicBox(const Params& p);
    void fieldHex(const Params& p);
    void codePage(const Params& p);
    void barcodeDefaults(const Params& p);
    // ^BC, ^BE, ^B8 and ^BU: orientation, height, interpretation line, above it.
    template <BarcodeGraphic::Kind kKind, char16_t kLetter> void simpleBarcode(const Params& p)
    {
        linearBarcode(kKind, QString::fromUtf16(u"^B") + QChar(kLetter), p, 1, 2);
    }
    void code39(const Params& p);
    void qrCode(const Params& p);
    void dataMatrix(const Params& p);
    void comment(const Params&) {}

    void linearBarcode(BarcodeGraphic::Kind kind, const QString& command, const Params& p,
                       int heightAt, int interpretationAt);
    void setBarcode(BarcodeGraphic::Kind kind, const QString& command, QChar orientation);
    std::optional<FieldGraphic> fieldGraphic(const QByteArray& bytes, const QString& text);
    void place(FieldGraphic graphic, QChar orientation, const QString& command, const QString& data,
               bool white);
    bool drawing() const;
    bool hasFields() const;
    void paintLabel();
    // Each text once, whichever list it went to first.
    void say(QStringList& list, const QString& text);
    void cut(const QString& text) { say(m_result.cuts, text); }
    void note(const QString& text) { say(m_result.notes, text); }

    int m_dotsPerMm;
    const LabelFont& m_font;
    int m_maxLabels;
    qint64 m_pixels = 0;
    int m_fieldsDrawn = 0;
    bool m_outOfPixels = false;

    QPoint m_home;
    std::optional<int> m_width;
    std::optional<int> m_length;
    int m_codePage = 0;
    FontChoice m_defaultFont;
    QChar m_defaultOrientation = u'N';
    int m_moduleWidth = 2;
    double m_wideToNarrow = 3.0; // ^BY ratio, 2.0 to 3.0
    int m_barHeight = 10;

    Field m_field;
    QList<PlacedField> m_placed;
    bool m_fieldsSkipped = false; // fields of a label that is only counted
    bool m_inLabel = false;
    LabelRenderResult m_result;
    QSet<QString> m_said; // notes, cuts and commands not drawn, each kept once
};
