#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"
#include "views/settings/SettingsEditorPage.h"

#include <QImage>
#include <QTest>

// The named colours and the symbol set.
class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void textColoursAreReadable_data();
    void textColoursAreReadable();
    void everySymbolIsDrawnInItsColour();
};

void ThemeTest::textColoursAreReadable_data()
{
    QTest::addColumn<QColor>("window");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("card"); // the settings cards
    QTest::newRow("light") << QColor(239, 239, 239) << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("dark") << QColor(40, 40, 42) << QColor(236, 236, 236) << QColor(30, 30, 32);
    QTest::newRow("grey, low contrast")
        << QColor(128, 128, 128) << QColor(20, 20, 20) << QColor(140, 140, 140);
    QTest::newRow("Adwaita dark") << QColor(53, 53, 53) << QColor(Qt::white) << QColor(45, 45, 45);
}

void ThemeTest::textColoursAreReadable()
{
    QFETCH(QColor, window);
    QFETCH(QColor, text);
    QFETCH(QColor, card);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::AlternateBase, card);
    QVERIFY(Theme::contrastRatio(Theme::secondaryText(palette), window) >= 4.5);
    QVERIFY(Theme::contrastRatio(Theme::successText(palette), window) >= 4.5);
    // The settings editors' results, on the card.
    QVERIFY(Theme::contrastRatio(SettingsEditorPage::green(palette), card) >= 4.5);
    QVERIFY(Theme::contrastRatio(SettingsEditorPage::red(palette), card) >= 4.5);
    QVERIFY(SettingsEditorPage::green(palette).hue() / 60 == Theme::green().hue() / 60);
    QCOMPARE(qRound(Theme::contrastRatio(Qt::black, Qt::white)), 21);
    QCOMPARE(qRound(Theme::contrastRatio(QColor(118, 118, 118), Qt::white) * 100), 454);
    // Still green.
    QVERIFY(Theme::successText(palette).hue() / 60 == Theme::green().hue() / 60);
}

void ThemeTest::everySymbolIsDrawnInItsColour()
{
    for (const QString& name : SymbolIcons::symbolNames()) {
        const QIcon icon = SymbolIcons::tinted(name, Qt::red, 32);
        // Drawn for a second screen at twice the pixels, not scaled up.
        QCOMPARE(icon.pixmap(QSize(32, 32), 2.0).size(), QSize(64, 64));
        const QImage image = icon.pixmap(QSize(32, 32), 1.0).toImage();
        // Something is drawn in the colour, and not just a filled square.
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                drawn += image.pixelColor(x, y) == QColor(Qt::red);
        }
        QVERIFY2(drawn > 50 && drawn < 900, qPrintable(name));
    }
}

QTEST_MAIN(ThemeTest)
#include "tst_Theme.moc"
