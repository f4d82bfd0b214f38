#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QImage>
#include <QScopeGuard>
#include <QTest>

// The named colours and the symbol set.
class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void textColoursAreReadable_data();
    void textColoursAreReadable();
    void theApplicationPaletteKeepsTheRoles();
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
    palette.setColor(QPalette::Base, card);
    QVERIFY(Theme::contrastRatio(Theme::secondaryText(palette), window) >= 4.5);
    // One green and one red for text and symbols, wherever they are put.
    for (const QColor& background : {window, card}) {
        QVERIFY(Theme::contrastRatio(Theme::green(palette), background) >= 4.5);
        QVERIFY(Theme::contrastRatio(Theme::errorText(palette), background) >= 4.5);
    }
    // Still green.
    QCOMPARE(Theme::green(palette).hue() / 60, QColor(52, 199, 89).hue() / 60);
    QCOMPARE(qRound(Theme::contrastRatio(Qt::black, Qt::white)), 21);
    QCOMPARE(qRound(Theme::contrastRatio(QColor(118, 118, 118), Qt::white) * 100), 454);
}

void ThemeTest::theApplicationPaletteKeepsTheRoles()
{
    const QPalette original = QApplication::palette();
    const auto restore = qScopeGuard([&original] { QApplication::setPalette(original); });
    Theme theme(*qApp);
    // A desktop switching to dark replaces the whole palette.
    QPalette dark(QColor(58, 58, 60), QColor(40, 40, 42));
    dark.setColor(QPalette::WindowText, QColor(236, 236, 236));
    QApplication::setPalette(dark);
    const QPalette now = QApplication::palette();
    QCOMPARE(now.color(QPalette::Window), QColor(40, 40, 42));
    QCOMPARE(now.color(Theme::kSecondaryText), Theme::secondaryText(dark));
    QCOMPARE(now.color(Theme::kSuccessText), Theme::green(dark));
    QCOMPARE(now.color(QPalette::Disabled, Theme::kErrorText), Theme::errorText(dark));
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
