#include "labelrender/LabelRenderer.h"

#include <QtTest>
#include <zbar.h>

using namespace Qt::StringLiterals;
using namespace zbar; // zbar.h puts its C API in a namespace under C++

namespace {

QStringList scan(const QImage& picture)
{
    const QImage gray = picture.convertToFormat(QImage::Format_Grayscale8);
    QByteArray y800;
    for (int y = 0; y < gray.height(); ++y)
        y800.append(reinterpret_cast<const char*>(gray.constScanLine(y)), gray.width());
    zbar_image_scanner_t* scanner = zbar_image_scanner_create();
    zbar_image_scanner_set_config(scanner, ZBAR_NONE, ZBAR_CFG_ENABLE, 1);
    zbar_image_t* image = zbar_image_create();
    zbar_image_set_format(image, zbar_fourcc('Y', '8', '0', '0'));
    zbar_image_set_size(image, gray.width(), gray.height());
    zbar_image_set_data(image, y800.constData(), y800.size(), nullptr);
    zbar_scan_image(scanner, image);
    QStringList found;
    for (const zbar_symbol_t* s = zbar_image_first_symbol(image); s; s = zbar_symbol_next(s))
        found << QString::fromLatin1(zbar_get_symbol_name(zbar_symbol_get_type(s))) + u':' +
                     QString::fromUtf8(zbar_symbol_get_data(s));
    zbar_image_destroy(image);
    zbar_image_scanner_destroy(scanner);
    return found;
}

QRect blackBounds(const QImage& image, const QRect& window)
{
    QRect bounds;
    for (int y = window.top(); y <= window.bottom(); ++y)
        for (int x = window.left(); x <= window.right(); ++x)
            if (image.pixel(x, y) == qRgb(0, 0, 0))
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

int blackOnLine(const QImage& image, QPoint from, QPoint step, int count)
{
    int black = 0;
    for (QPoint p = from; count-- > 0; p += step)
        black += image.pixel(p) == qRgb(0, 0, 0);
    return black;
}

// The side of the bounds whose edge line is most black: the bars of "TTT".
QChar denseSide(const QImage& image, const QRect& r)
{
    const int counts[] = {blackOnLine(image, r.topLeft(), {1, 0}, r.width()),
                          blackOnLine(image, r.bottomLeft(), {1, 0}, r.width()),
                          blackOnLine(image, r.topLeft(), {0, 1}, r.height()),
                          blackOnLine(image, r.topRight(), {0, 1}, r.height())};
    return u"NIBR"_s.at(std::max_element(std::begin(counts), std::end(counts)) - counts);
}

const auto kLayout =
    u"^XA^PW800^LL800"
    "^FO50,50^A0N,40,40^FDTTT^FS"
    "^FO400,50^A0R,40,40^FDTTT^FS"
    "^FO50,200^A0I,40,40^FDTTT^FS"
    "^FO400,200^A0B,40,40^FDTTT^FS"
    "^FT50,400^A0N,40,20^FDTTT^FS"
    "^FO400,420^A0N,30,30^FB200,3,0,L^FDTTTT TTTT TTTT TTTT TTTT TTTT TTTT TTTT TTTT TTTT^FS"
    "^FO50,550^GB200,100,5^FS"
    "^FO400,550^GB200,100,100^FS^FO420,570^FR^A0N,40,40^FDTT^FS"
    "^XZ"_s;

} // namespace

class TestLabelRenderer : public QObject
{
    Q_OBJECT

private slots:
    void barcodesScan_data()
    {
        QTest::addColumn<int>("dotsPerMm");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("expected");

        QTest::newRow("EAN-13 adds its check digit")
            << 8 << u"^BEN,80,Y,N^FD590123412345"_s << u"EAN-13:5901234123457"_s;
        QTest::newRow("EAN-8") << 8 << u"^B8N,60^FD9638507"_s << u"EAN-8:96385074"_s;
        QTest::newRow("UPC-A") << 8 << u"^BUN,80^FD03600029145"_s << u"UPC-A:036000291452"_s;
        QTest::newRow("Code 128, subset C invocation, text above")
            << 8 << u"^BCN,60,Y,Y^FD>;12345678"_s << u"CODE-128:12345678"_s;
        QTest::newRow("Code 128 rotated, 12 dots/mm")
            << 12 << u"^BY3^BCR,120,N^FDART-0042"_s << u"CODE-128:ART-0042"_s;
        QTest::newRow("Code 39") << 8 << u"^BY2,2^B3N,N,80,Y^FDABC-123"_s << u"CODE-39:ABC-123"_s;
        QTest::newRow("QR with a ^FH escape")
            << 24 << u"^BQN,2,8^FH^FDHA,A_5EB"_s << u"QR-Code:A^B"_s;
    }

    void barcodesScan()
    {
        QFETCH(int, dotsPerMm);
        QFETCH(QString, field);
        QFETCH(QString, expected);

        const LabelRenderer renderer(dotsPerMm);
        const LabelRenderResult result =
            renderer.render(u"^XA^PW900^LL900^BY2^FO80,80"_s + field + u"^FS^XZ"_s);
        QCOMPARE(result.labels.size(), 1);
        QCOMPARE(result.notes, QStringList());
        QCOMPARE(scan(result.labels.first().image), QStringList{expected});
    }

    void fieldsLandWhereThePrinterPutsThem_data()
    {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QRect>("expected"); // bounds of the black pixels, give or take kSlack
        QTest::addColumn<QString>("bars");   // the side the T bars lie on

        // Text widths depend on the face; only the edges the origin fixes are exact.
        QTest::newRow("N") << QRect(0, 0, 350, 150) << QRect(50, 50, -1, 40) << u"N"_s;
        QTest::newRow("R") << QRect(350, 0, 350, 190) << QRect(400, 50, 40, -1) << u"R"_s;
        QTest::newRow("I") << QRect(0, 150, 350, 150) << QRect(50, 200, -1, 40) << u"I"_s;
        QTest::newRow("B") << QRect(350, 195, 350, 150) << QRect(400, 200, 40, -1) << u"B"_s;
        QTest::newRow("baseline origin, half width")
            << QRect(0, 340, 350, 100) << QRect(50, 371, -1, 29) << u"N"_s;
        QTest::newRow("block wraps")
            << QRect(400, 410, 300, 120) << QRect(400, 420, -1, 90) << u"N"_s;
    }

    void fieldsLandWhereThePrinterPutsThem()
    {
        QFETCH(QRect, window);
        QFETCH(QRect, expected);
        QFETCH(QString, bars);
        constexpr int kSlack = 9; // side bearings and the face's cap height

        const QImage image = LabelRenderer().render(kLayout).labels.value(0).image;
        const QRect found = blackBounds(image, window);
        QVERIFY(qAbs(found.left() - expected.left()) <= kSlack);
        QVERIFY(qAbs(found.top() - expected.top()) <= kSlack);
        if (expected.width() > 0)
            QVERIFY(found.width() <= expected.width() &&
                    found.width() > expected.width() - 2 * kSlack);
        if (expected.height() > 0)
            QVERIFY(found.bottom() <= expected.bottom() + 1 &&
                    found.height() > expected.height() - 2 * kSlack);
        QCOMPARE(QString(denseSide(image, found)), bars);
    }

    void boxEdgesAndReverseField()
    {
        const QImage image = LabelRenderer().render(kLayout).labels.value(0).image;
        QCOMPARE(blackBounds(image, QRect(0, 540, 350, 200)), QRect(50, 550, 200, 100));
        QCOMPARE(blackBounds(image, QRect(55, 555, 190, 90)), QRect()); // a line of five dots
        // The reversed text is white inside the filled box, whose corners stay black.
        QCOMPARE(blackBounds(image, QRect(390, 540, 220, 120)), QRect(400, 550, 200, 100));
        QVERIFY(blackOnLine(image, {420, 590}, {1, 0}, 160) < 155);
    }
};

QTEST_MAIN(TestLabelRenderer)
#include "tst_LabelRenderer.moc"
