#include "labelrender/LabelPreview.h"
#include "services/ZPLService.h"

#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMiB = 1024 * 1024;

// Sanitizers multiply time and memory; there only the bounds are checked.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kBudgetHolds = false;
#elif defined(__has_feature)
constexpr bool kBudgetHolds = !__has_feature(address_sanitizer);
#else
constexpr bool kBudgetHolds = true;
#endif

QString repeated(const QString& unit, qsizetype bytes = kMiB)
{
    return unit.repeated(bytes / unit.toUtf8().size());
}

// The process's peak resident memory in MiB since the last reset, where the
// system tells (Linux); -1 elsewhere.
qint64 peakMiB()
{
    QFile status(u"/proc/self/status"_s);
    static const QRegularExpression kPeak(u"VmHWM:\\s*(\\d+)"_s);
    const auto peak = kPeak.match(
        QString::fromLatin1(status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray()));
    return peak.hasMatch() ? peak.captured(1).toLongLong() / 1024 : -1;
}

Product product(const QString& name, const QString& sku = u"A-1"_s, const QString& description = {})
{
    return {1, sku, name, description, 2.5, QString(), {}};
}

} // namespace

// Templates and catalogue values written to hurt: each is filled, drawn and
// checked as the product window does it, within the time and memory a user
// can live with, and within the renderer's bounds.
class HostileLabelsTest : public QObject
{
    Q_OBJECT

private slots:
    void staysWithinBounds_data()
    {
        QTest::addColumn<QString>("zplTemplate");
        QTest::addColumn<Product>("product");
        QTest::addColumn<int>("labelsDrawn");
        QTest::addColumn<QString>("said"); // a cut, a note or the failure

        const QString fd = u"^XA^FO10,10^A0N,30,30^FD{{NAAM}}^FS^XZ"_s;
        QTest::newRow("a thousand full-size labels")
            << u"^XA^PW4800^LL4800"_s + u"^XZ"_s.repeated(1000) << product(u"x"_s) << 2
            << u"Alleen de eerste 2 etiketten getoond: samen zouden ze meer dan 64 miljoen punten "
               u"beslaan."_s;
        QTest::newRow("labels in the name")
            << fd << product(repeated(u"^XA^FDx^FS^XZ"_s, kMiB - 100)) << 100
            << u"Alleen de eerste 100 etiketten getoond."_s;
        QTest::newRow("huge numbers")
            << u"^XA^PW2147483648^LL99999999999^LH2147483647,2147483647^FO2147483647,-2147483649"
               u"^A0B,2147483647,2147483647^FD{{NAAM}}^FS^FO0,0^GB2147483647,2147483647,2147483647,"
               u"B,8"
               u"^FS^BY2147483647,9,2147483647^BCN,2147483647^FD12^FS^XZ"_s
            << product(u"Zeep"_s) << 1 << u"Etiket ingekort tot 4800 bij 4800 punten."_s;
        QTest::newRow("placeholders inside values")
            << u"^XA^FD{{ARTIKELNR}}^FS^XZ"_s
            << product(u"n"_s, repeated(u"{{OMSCHRIJVING}}"_s), repeated(u"d"_s)) << 0
            << ZPLService::labelTooLargeMessage();
        QTest::newRow("1 MiB in one line at the largest font")
            << u"^XA^PW800^LL800^FO0,0^A0R,32000,32000^FD{{NAAM}}^FS^XZ"_s
            << product(repeated(u"Wij "_s, kMiB - 100)) << 1 << QString();
        QTest::newRow("1 MiB in a block at the largest font")
            << u"^XA^PW800^LL800^FO0,0^A0N,32000,32000^FB32000,9999,9999,J^FD{{NAAM}}^FS^XZ"_s
            << product(repeated(u"Wij "_s, kMiB - 100)) << 1 << QString();
        QTest::newRow("a warning for every field")
            << fd << product(repeated(u"^FS^FO9999,9999^BEN,10^FD1^FS^FO0,0^FDé"_s, kMiB - 40)) << 1
            << u"Etiket ingekort tot 4800 bij 4800 punten."_s;
        QTest::newRow("a barcode for every field")
            << fd << product(repeated(u"^FS^BQN,2,10^FDQA,123^FS^BCN^FD12^FS^FD"_s, kMiB - 40)) << 1
            << u"Alleen de eerste 2.000 velden getoond."_s;
    }

    void staysWithinBounds()
    {
        QFETCH(QString, zplTemplate);
        QFETCH(Product, product);
        QFETCH(int, labelsDrawn);
        QFETCH(QString, said);

        const LabelRenderer renderer(8);
        QFile clearPeak(u"/proc/self/clear_refs"_s);
        if (clearPeak.open(QIODevice::WriteOnly))
            clearPeak.write("5");
        QElapsedTimer timer;
        timer.start();
        const LabelPreview preview = LabelPreview::make(renderer, zplTemplate, &product);
        const qint64 elapsed = timer.elapsed();
        const qint64 peak = peakMiB();

        QCOMPARE(preview.rendering.labels.size(), labelsDrawn);
        if (!said.isEmpty()) {
            const QStringList all =
                preview.rendering.cuts + preview.rendering.notes + QStringList{preview.failure};
            QVERIFY2(all.contains(said), qPrintable(all.join(u" | "_s)));
        }
        if (kBudgetHolds) {
            QVERIFY2(elapsed < 1000, qPrintable(u"%1 ms"_s.arg(elapsed)));
            QVERIFY2(peak < 256, qPrintable(u"%1 MiB"_s.arg(peak)));
        }
    }
};

QTEST_MAIN(HostileLabelsTest)
#include "tst_HostileLabels.moc"
