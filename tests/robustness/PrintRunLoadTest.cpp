#include "LabelSink.h"
#include "LoopbackHttpServer.h"
#include "TestHome.h"
#include "viewmodels/ProductListViewModel.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkProxy>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kProducts = 1000;
const QString kTemplate = u"^XA^FO20,20^FD{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}|{{BARCODE}}^FS^XZ"_s;

QString sku(int index)
{
    return u"ART-%1"_s.arg(index, 4, 10, QLatin1Char('0'));
}

// Names with accents, so the labels are checked as UTF-8, not only ASCII.
QString name(int index)
{
    return u"Product %1 crème brûlée"_s.arg(index);
}

QByteArray catalogue()
{
    QJsonArray products;
    for (int i = 0; i < kProducts; ++i) {
        products.append(QJsonObject{{u"ID"_s, 100000 + i},
                                    {u"Sku"_s, sku(i)},
                                    {u"Name"_s, name(i)},
                                    {u"SellPrice1WithVat"_s, i + 0.5},
                                    {u"BarCode"_s, u"87%1"_s.arg(i, 11, 10, QLatin1Char('0'))}});
    }
    return QJsonDocument(QJsonObject{{u"data"_s, products}}).toJson(QJsonDocument::Compact);
}

// Written out by hand rather than through the template engine under test.
QByteArray expectedLabel(int index)
{
    return (u"^XA^FO20,20^FD"_s + sku(index) + u'|' + name(index) + u'|' + QString::number(index) +
            u".50|87"_s + u"%1"_s.arg(index, 11, 10, QLatin1Char('0')) + u"^FS^XZ"_s)
        .toUtf8();
}

// The largest gap between two ticks of a 5 ms timer: how long the event loop
// was kept from anything else, such as repainting the window.
class StallMeter : public QObject
{
public:
    StallMeter()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(5ms);
        connect(&m_timer, &QTimer::timeout, this, &StallMeter::tick);
        m_clock.start();
        m_timer.start();
    }

    // Counts the time since the last tick too: a loop blocked until the end
    // would otherwise show no gap at all.
    qint64 largestStallMs() const
    {
        return std::max(m_largestGapMs, m_clock.elapsed() - m_lastTick) - 5;
    }

private:
    void tick()
    {
        const qint64 now = m_clock.elapsed();
        m_largestGapMs = std::max(m_largestGapMs, now - m_lastTick);
        m_lastTick = now;
    }

    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_lastTick = 0;
    qint64 m_largestGapMs = 0;
};

} // namespace

class PrintRunLoadTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void thousandLabelsArriveIntactInOrder();
};

void PrintRunLoadTest::initTestCase()
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

void PrintRunLoadTest::thousandLabelsArriveIntactInOrder()
{
    TestHome home;
    AppSettings settings;
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    const QByteArray body = catalogue();
    server.setHandler([&body](const LoopbackHttpServer::Request&) {
        return LoopbackHttpServer::Response::json(body);
    });
    LabelSink sink;
    QVERIFY(sink.listen());

    settings.updateDossier(0, [](Dossier& dossier) { dossier.apiKey = u"key-123"_s; });
    settings.addPrinter();
    settings.updatePrinter(0, [&sink](Printer& printer) {
        printer.ipAddress = u"127.0.0.1"_s;
        printer.port = sink.port();
    });
    const QUuid printerID = settings.printers().at(0).id;
    settings.updateTemplate(0, [&printerID](LabelTemplate& labelTemplate) {
        labelTemplate.zplContent = kTemplate;
        labelTemplate.printerID = printerID;
    });

    ProductListViewModel model(server.baseUrl());
    model.setSettings(&settings);
    QCoro::waitFor(model.fetchProducts());
    QVERIFY2(!model.errorMessage(), qPrintable(model.errorMessage().value_or(QString())));
    QCOMPARE(model.products().size(), kProducts);
    QSet<qint64> all;
    for (const Product& product : model.products())
        all.insert(product.ID);
    model.setCheckedProductIDs(all);
    model.setPrintQuantity(1);

    QElapsedTimer clock;
    clock.start();
    qint64 largestStallMs = 0;
    {
        const StallMeter meter;
        QCoro::waitFor(model.printCheckedLabels());
        QTRY_COMPARE_WITH_TIMEOUT(sink.jobs().size(), kProducts, 10000);
        largestStallMs = meter.largestStallMs();
    }
    qInfo("%d labels in %lld ms; largest event loop stall %lld ms", kProducts,
          static_cast<long long>(clock.elapsed()), static_cast<long long>(largestStallMs));

    QVERIFY2(!model.errorMessage(), qPrintable(model.errorMessage().value_or(QString())));
    QCOMPARE(model.successMessage(), u"Etiket geprint voor "_s + sku(kProducts - 1));
    QCOMPARE(sink.connectionCount(), kProducts);
    for (int i = 0; i < kProducts; ++i)
        QCOMPARE(sink.jobs().at(i), expectedLabel(i));
    QVERIFY2(largestStallMs < 50,
             qPrintable(u"the event loop stalled %1 ms"_s.arg(largestStallMs)));
}

QTEST_GUILESS_MAIN(PrintRunLoadTest)
#include "PrintRunLoadTest.moc"
