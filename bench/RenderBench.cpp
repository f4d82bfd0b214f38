// Drawing a typical label (five text fields and an EAN-13) at 8 dots/mm,
// against plain QPainter drawing the same texts with the same face plus zint
// drawing the same barcode: what drawing it costs before any ZPL is read.

#include "labelrender/LabelRenderer.h"

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <stdexcept>
#include <zint.h>

using namespace Qt::StringLiterals;

namespace {

struct Text
{
    QPoint baseline;
    int pixelSize;
    QString text;
};

const QList<Text> kTexts{
    {{40, 70}, 45, u"ART-004711"_s},
    {{40, 130}, 40, u"Theeglas dubbelwandig"_s},
    {{40, 175}, 30, u"Borosilicaatglas, 250 ml"_s},
    {{40, 260}, 60, u"EUR 12.95"_s},
    {{420, 260}, 25, u"Demo Winkel"_s},
};

QString typicalLabel()
{
    QString zpl = u"^XA^PW800^LL480^CI28"_s;
    for (const Text& t : kTexts)
        zpl += u"^FT%1,%2^A0N,%3,%3^FD%4^FS"_s.arg(t.baseline.x())
                   .arg(t.baseline.y())
                   .arg(t.pixelSize)
                   .arg(t.text);
    return zpl + u"^BY2^FO40,300^BEN,100,Y,N^FD871234567890^FS^XZ"_s;
}

void renderProject(benchmark::State& state)
{
    const LabelRenderer renderer;
    const QString zpl = typicalLabel();
    for (auto _ : state) {
        LabelRenderResult result = renderer.render(zpl);
        if (result.labels.size() != 1 || result.labels.first().fields.size() != 6)
            throw std::runtime_error("the label did not render");
        benchmark::DoNotOptimize(result);
    }
}

void drawBarcode(QPainter& painter, const QFont& font)
{
    zint_symbol* symbol = ZBarcode_Create();
    symbol->symbology = BARCODE_EANX;
    symbol->height = 50;
    if (ZBarcode_Encode_and_Buffer_Vector(
            symbol, reinterpret_cast<const unsigned char*>("871234567890"), 12, 0) >= ZINT_ERROR)
        throw std::runtime_error("zint failed");
    for (const zint_vector_rect* r = symbol->vector->rectangles; r; r = r->next)
        painter.fillRect(QRectF(40 + r->x, 300 + r->y, r->width, r->height), Qt::black);
    painter.setFont(font);
    for (const zint_vector_string* s = symbol->vector->strings; s; s = s->next)
        painter.drawText(QPointF(40 + s->x, 300 + s->y),
                         QString::fromUtf8(reinterpret_cast<const char*>(s->text)));
    ZBarcode_Delete(symbol);
}

void renderBaseline(benchmark::State& state)
{
    QFont face(u"Liberation Sans Narrow"_s);
    face.setBold(true);
    face.setStyleStrategy(QFont::NoAntialias);
    QList<QFont> fonts;
    for (const Text& t : kTexts) {
        fonts.append(face);
        fonts.last().setPixelSize(t.pixelSize);
    }
    QFont digits = face;
    digits.setPixelSize(20);
    for (auto _ : state) {
        QImage image(800, 480, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        for (qsizetype i = 0; i < kTexts.size(); ++i) {
            painter.setFont(fonts.at(i));
            painter.drawText(kTexts.at(i).baseline, kTexts.at(i).text);
        }
        drawBarcode(painter, digits);
        painter.end();
        benchmark::DoNotOptimize(image);
    }
}

} // namespace

BENCHMARK(renderProject)->Name("render/project")->UseRealTime();
BENCHMARK(renderBaseline)->Name("render/baseline")->UseRealTime();

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv); // fonts need a GUI application
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
