#include "labelrender/LabelPreview.h"
#include "labelrender/LabelRenderer.h"

#include <QJsonDocument>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestLabelWarnings : public QObject
{
    Q_OBJECT

private slots:
    void warnings_data()
    {
        QTest::addColumn<QString>("zplTemplate");
        QTest::addColumn<QString>("product");      // JSON; empty: the sample values
        QTest::addColumn<QStringList>("expected"); // one fragment per warning, in order

        const QString name = u"^XA^FO20,20^A0N,30^FD{{NAAM}}^FS^XZ"_s;
        const QString ean = u"^XA^FO20,20^BEN,60^FD{{BARCODE}}^FS^XZ"_s;
        auto barcode = [](const QString& code) {
            return u"{\"ID\":1,\"BarCode\":\"%1\"}"_s.arg(code);
        };

        QTest::newRow("accent in the template")
            << u"^XA^FO20,20^A0N,30^FDPrijs € {{PRIJS}}^FS^XZ"_s << QString()
            << QStringList{u"in het sjabloon zonder ^CI28"_s};
        QTest::newRow("accent with ^CI28") << u"^XA^CI28^FO0,0^A0N,30^FDé {{NAAM}}^FS^XZ"_s
                                           << u"{\"ID\":1,\"Name\":\"Crème\"}"_s << QStringList();
        QTest::newRow("accent in the product") << name << u"{\"ID\":1,\"Name\":\"Crème\"}"_s
                                               << QStringList{u"in het veld Productnaam"_s};
        QTest::newRow("caret in the product")
            << name << u"{\"ID\":1,\"Name\":\"A^B\"}"_s
            << QStringList{u"Het veld Productnaam bevat ^ of ~"_s, u"voorbeeld: ^B."_s};
        QTest::newRow("EAN-13 wrong check digit")
            << ean << barcode(u"5901234123450"_s) << QStringList{u"controlecijfer moet 7 zijn"_s};
        // The sample barcode's made-up check digit is no news.
        QTest::newRow("EAN-13 sample value") << ean << QString() << QStringList();
        QTest::newRow("EAN-13 letters") << ean << barcode(u"59012341234A"_s)
                                        << QStringList{u"alleen cijfers"_s, u"niet getekend"_s};
        QTest::newRow("runs past the width")
            << u"^XA^PW200^LL300^FO150,10^A0N,30,30^FD{{NAAM}}^FS^XZ"_s << QString()
            << QStringList{u"loopt buiten de etiketbreedte (^PW200)"_s};
        QTest::newRow("runs past the length, rotated")
            << u"^XA^PW800^LL100^FO10,10^A0R,30,30^FD{{NAAM}}^FS^XZ"_s << QString()
            << QStringList{u"loopt buiten de etiketlengte (^LL100)"_s};
        QTest::newRow("commands not drawn")
            << u"^XA^PQ2^MMT^FO0,0^A0N,20^FD{{NAAM}}^FS^XZ"_s << QString()
            << QStringList{u"Niet getekend in het voorbeeld: ^PQ, ^MM."_s};
    }

    void warnings()
    {
        QFETCH(QString, zplTemplate);
        QFETCH(QString, product);
        QFETCH(QStringList, expected);

        const std::optional<Product> values =
            product.isEmpty()
                ? std::nullopt
                : Product::fromJson(QJsonDocument::fromJson(product.toUtf8()).object(), nullptr);
        QVERIFY(product.isEmpty() || values);
        const LabelRenderer renderer;
        const LabelPreview preview =
            LabelPreview::make(renderer, zplTemplate, values ? &*values : nullptr);
        QStringList all = preview.warnings + preview.rendering.notes.filter(u"niet getekend"_s);
        QVERIFY2(all.size() == expected.size(), qPrintable(all.join(u'|')));
        for (qsizetype i = 0; i < expected.size(); ++i)
            QVERIFY2(all.at(i).contains(expected.at(i)), qPrintable(all.at(i)));
    }
};

QTEST_MAIN(TestLabelWarnings)
#include "tst_LabelWarnings.moc"
