#include "views/common/Divider.h"
#include "views/common/SymbolIcons.h"
#include "views/common/Theme.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

// The named colours, the palette roles and the symbol set.
class ThemeTest : public QObject
{
    Q_OBJECT

private slots:
    void textColoursAreReadable_data();
    void textColoursAreReadable();
    void aPaletteChangeReachesRolesLinesAndStyleSheets();
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
}

void ThemeTest::textColoursAreReadable()
{
    QFETCH(QColor, window);
    QFETCH(QColor, text);
    QFETCH(QColor, card);
    QPalette palette(text, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::AlternateBase, card);
    palette.setColor(QPalette::Base, card);
    QVERIFY(Theme::contrastRatio(Theme::secondaryText(palette), window) >= 4.5);
    // One green and one red for text and symbols, wherever they are put.
    for (const QColor& background : {window, card}) {
        QVERIFY(Theme::contrastRatio(Theme::green(palette), background) >= 4.5);
        QVERIFY(Theme::contrastRatio(Theme::errorText(palette), background) >= 4.5);
    }
    QCOMPARE(Theme::green(palette).hue() / 60, QColor(52, 199, 89).hue() / 60);
    QCOMPARE(qRound(Theme::contrastRatio(QColor(118, 118, 118), Qt::white) * 100), 454);
}

void ThemeTest::aPaletteChangeReachesRolesLinesAndStyleSheets()
{
    const QPalette original = QApplication::palette();
    const auto restore = qScopeGuard([&original] { QApplication::setPalette(original); });
    Theme theme(*qApp);
    QWidget window;
    auto* line = new Divider(Qt::Horizontal, 20, &window);
    auto* button = new QPushButton(&window);
    button->move(0, 10);
    button->setStyleSheet(u"QPushButton { background: palette(highlight); border: none; }"_s);
    window.show();
    // A desktop switching to dark replaces the whole palette.
    QPalette dark(QColor(58, 58, 60), QColor(40, 40, 42));
    dark.setColor(QPalette::WindowText, QColor(236, 236, 236));
    dark.setColor(QPalette::Highlight, QColor(10, 132, 255));
    QApplication::setPalette(dark);
    const QPalette now = QApplication::palette();
    QCOMPARE(now.color(Theme::kSecondaryText), Theme::secondaryText(dark));
    QCOMPARE(now.color(Theme::kSuccessText), Theme::green(dark));
    QCOMPARE(now.color(QPalette::Disabled, Theme::kErrorText), Theme::errorText(dark));
    const auto drawn = [&window, line] {
        return window.grab(line->geometry()).toImage().pixelColor(5, 0).red();
    };
    // A line is the text colour at the separator's opacity over the window.
    QTRY_VERIFY(qAbs(drawn() - (40 + (236 - 40) * Theme::kSeparatorOpacity)) <= 1);
    QTRY_COMPARE(button->grab().toImage().pixelColor(2, 2), QColor(10, 132, 255));
}

void ThemeTest::everySymbolIsDrawnInItsColour()
{
    SymbolIcons::tinted(u"gear", Qt::red); // registers the set
    const QStringList names = QDir(u":/symbols"_s).entryList({u"*.svg"_s});
    QVERIFY(names.size() >= 28);
    for (const QString& name : names) {
        const QIcon icon = SymbolIcons::tinted(QStringView(name).chopped(4), Qt::red, 32);
        // Drawn for a second screen at twice the pixels, not scaled up.
        QCOMPARE(icon.pixmap(QSize(32, 32), 2.0).size(), QSize(64, 64));
        const QImage image = icon.pixmap(QSize(32, 32), 1.0).toImage();
        // Something is drawn in the colour, and not just a filled square.
        int drawn = 0;
        for (int i = 0; i < image.width() * image.height(); ++i)
            drawn += image.pixelColor(i % image.width(), i / image.width()) == QColor(Qt::red);
        QVERIFY2(drawn > 50 && drawn < 900, qPrintable(name));
    }
    QVERIFY(SymbolIcons::tinted(u"no.such.symbol", Qt::red).isNull());
}

QTEST_MAIN(ThemeTest)
#include "tst_Theme.moc"
