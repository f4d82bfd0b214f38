#include "SymbolIcons.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Share of the image's pixels that are drawn, and whether all drawn pixels have this colour.
struct Coverage
{
    double drawn = 0;
    bool allInColour = true;
};

Coverage coverage(const QIcon& icon, const QColor& colour)
{
    const QImage image =
        icon.pixmap(QSize(32, 32), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    int drawn = 0;
    Coverage result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() < 200)
                continue;
            ++drawn;
            // Edges are blended; premultiplied alpha rounds their channels a little.
            const int distance = qAbs(pixel.red() - colour.red()) +
                                 qAbs(pixel.green() - colour.green()) +
                                 qAbs(pixel.blue() - colour.blue());
            if (distance > 6)
                result.allInColour = false;
        }
    }
    result.drawn = double(drawn) / (image.width() * image.height());
    return result;
}

} // namespace

class SymbolIconsTest : public QObject
{
    Q_OBJECT

private slots:
    void everySymbolTheWindowsUseHasABundledIcon();
    void tintedIconsTakeTheColour();
    void unknownNamesGiveNoIcon();
    void appIconIsAvailable();
};

void SymbolIconsTest::everySymbolTheWindowsUseHasABundledIcon()
{
    const QStringList used =
        u"folder.badge.gearshape magnifyingglass cube.box checkmark.circle.fill "
        u"printer.fill printer xmark xmark.circle.fill arrow.clockwise "
        u"checkmark.square.fill square gear folder folder.fill doc.text "
        u"doc.text.fill chevron.down chevron.right plus info.circle "
        u"info.circle.fill tag key.fill calendar network number trash "
        u"exclamationmark.triangle.fill"_s.split(u' ');
    for (const QString& name : used) {
        QVERIFY2(SymbolIcons::symbolNames().contains(name), qPrintable(name));
        QVERIFY2(!SymbolIcons::icon(name).isNull(), qPrintable(name));
        // Something is drawn, and not just a filled square.
        const Coverage drawn = coverage(SymbolIcons::bundled(name), Qt::black);
        QVERIFY2(drawn.drawn > 0.05 && drawn.drawn < 0.9, qPrintable(name));
    }
    // Filled and outlined variants differ.
    QVERIFY(coverage(SymbolIcons::bundled(u"checkmark.square.fill"), Qt::black).drawn >
            coverage(SymbolIcons::bundled(u"square"), Qt::black).drawn * 1.5);
}

void SymbolIconsTest::tintedIconsTakeTheColour()
{
    const QColor green(65, 195, 145);
    const Coverage tinted = coverage(SymbolIcons::tinted(u"printer.fill", green), green);
    QVERIFY(tinted.drawn > 0.05);
    QVERIFY(tinted.allInColour);

    const QColor text = QApplication::palette().color(QPalette::WindowText);
    QVERIFY(coverage(SymbolIcons::bundled(u"gear"), text).allInColour);
}

void SymbolIconsTest::unknownNamesGiveNoIcon()
{
    QVERIFY(SymbolIcons::icon(u"no.such.symbol").isNull());
    QVERIFY(SymbolIcons::tinted(u"no.such.symbol", Qt::red).isNull());
}

void SymbolIconsTest::appIconIsAvailable()
{
    const QIcon icon = SymbolIcons::appIcon();
    QVERIFY(!icon.isNull());
    QVERIFY(coverage(icon, Qt::white).drawn > 0.5);
}

QTEST_MAIN(SymbolIconsTest)
#include "tst_SymbolIcons.moc"
