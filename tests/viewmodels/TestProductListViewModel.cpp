#include "LabelSink.h"
#include "LoopbackHttpServer.h"
#include "TestHome.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>

#include <QCoroTask>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QJsonObject product(qint64 id, const char* sku, const char* name, const char* barcode = nullptr,
                    const char* description = nullptr, std::optional<double> price = 1.5)
{
    QJsonObject object{{u"ID"_s, id}};
    if (sku)
        object.insert(u"Sku"_s, QString::fromUtf8(sku));
    if (name)
        object.insert(u"Name"_s, QString::fromUtf8(name));
    if (barcode)
        object.insert(u"BarCode"_s, QString::fromUtf8(barcode));
    if (description)
        object.insert(u"Description"_s, QString::fromUtf8(description));
    if (price)
        object.insert(u"SellPrice1WithVat"_s, *price);
    return object;
}

QByteArray envelope(const QJsonArray& products)
{
    return QJsonDocument(QJsonObject{{u"data"_s, products}, {u"records"_s, products.size()}})
        .toJson(QJsonDocument::Compact);
}

// Runs a task to completion on the event loop.
void run(QCoro::Task<> task)
{
    QCoro::waitFor(std::move(task));
}

quint16 refusedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    const quint16 port = server.serverPort();
    server.close();
    return port;
}

} // namespace

class ProductListViewModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadNeedsDossierWithKey();
    void loadThenFailedReloadKeepsProducts();
    void searchIsCaseInsensitiveOverAllTexts_data();
    void searchIsCaseInsensitiveOverAllTexts();
    void typingAndDeletingMatchesAFreshFilter();
    void selectionAndChecksSurviveReload();
    void printRunSendsEachCopyInServiceOrder();
    void hiddenCheckedProductIsNotPrinted();
    void zeroOrNegativeQuantityPrintsNothing();
    void printLabelReportsEachMissingPiece();
    void successMessageClearsAfterThreeSecondsUnlessReplaced();

private:
    void serve(const QJsonArray& products);
    void configurePrinter(const QString& address, qint64 port, const QString& zpl);
    QStringList ids(const QList<Product>& products) const;

    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<LoopbackHttpServer> m_server;
    std::unique_ptr<LabelSink> m_sink;
    std::unique_ptr<ProductListViewModel> m_model;
    QByteArray m_body;
    int m_status = 200;
};

void ProductListViewModelTest::init()
{
    m_home = std::make_unique<TestHome>();
    m_settings = std::make_unique<AppSettings>();
    m_settings->updateDossier(0, [](Dossier& d) { d.apiKey = u"key-123"_s; });
    m_settings->setBookyear(u"2024"_s);

    m_server = std::make_unique<LoopbackHttpServer>();
    QVERIFY(m_server->listen());
    m_server->setHandler([this](const LoopbackHttpServer::Request&) {
        return LoopbackHttpServer::Response::json(m_body, m_status);
    });
    m_sink = std::make_unique<LabelSink>();
    QVERIFY(m_sink->listen());

    m_model = std::make_unique<ProductListViewModel>(m_server->baseUrl());
    m_model->setSettings(m_settings.get());
    m_status = 200;
}

void ProductListViewModelTest::cleanup()
{
    m_model.reset();
    m_sink.reset();
    m_server.reset();
    m_settings.reset();
    m_home.reset();
}

void ProductListViewModelTest::serve(const QJsonArray& products)
{
    m_body = envelope(products);
    run(m_model->fetchProducts());
    QVERIFY2(!m_model->errorMessage(), qPrintable(m_model->errorMessage().value_or(QString())));
}

void ProductListViewModelTest::configurePrinter(const QString& address, qint64 port,
                                                const QString& zpl)
{
    m_settings->addPrinter();
    const Printer printer = m_settings->printers().constLast();
    m_settings->updatePrinter(m_settings->printers().size() - 1, [&](Printer& p) {
        p.name = u"Balie"_s;
        p.ipAddress = address;
        p.port = port;
    });
    m_settings->updateTemplate(0, [&](LabelTemplate& t) {
        t.zplContent = zpl;
        t.printerID = printer.id;
    });
    m_settings->setSelectedTemplateID(m_settings->templates().constFirst().id);
}

QStringList ProductListViewModelTest::ids(const QList<Product>& products) const
{
    QStringList result;
    for (const Product& p : products)
        result.append(QString::number(p.ID));
    return result;
}

void ProductListViewModelTest::loadNeedsDossierWithKey()
{
    const QString expected = u"Selecteer een dossier met API key in Instellingen"_s;

    ProductListViewModel withoutSettings(m_server->baseUrl());
    QSignalSpy loading(&withoutSettings, &ProductListViewModel::isLoadingChanged);
    run(withoutSettings.fetchProducts());
    QCOMPARE(withoutSettings.errorMessage(), expected);
    QCOMPARE(loading.count(), 0);

    m_settings->updateDossier(0, [](Dossier& d) { d.apiKey.clear(); });
    run(m_model->fetchProducts());
    QCOMPARE(m_model->errorMessage(), expected);
    QVERIFY(!m_model->isLoading());
    QCOMPARE(m_server->requests().size(), 0);
}

void ProductListViewModelTest::loadThenFailedReloadKeepsProducts()
{
    serve({product(1, "A-1", "Appel"), product(2, "B-2", "Peer")});
    QCOMPARE(m_model->products().size(), 2);
    QCOMPARE(m_model->filteredCount(), 2);
    QVERIFY(!m_model->isLoading());

    const auto& request = m_server->requests().constLast();
    QCOMPARE(request.method, "GET");
    QCOMPARE(request.path, "/product");
    QCOMPARE(request.query, "limit=1000&offset=0");
    QCOMPARE(request.header("ApiKey"), "key-123");
    QCOMPARE(request.header("Bookyear"), "2024");

    m_status = 500;
    QSignalSpy loading(m_model.get(), &ProductListViewModel::isLoadingChanged);
    run(m_model->fetchProducts());
    QCOMPARE(m_model->errorMessage(), u"Serverfout: HTTP 500"_s);
    QCOMPARE(loading.count(), 2); // true, then false
    QVERIFY(!m_model->isLoading());
    QCOMPARE(ids(m_model->products()), QStringList({u"1"_s, u"2"_s}));
    QCOMPARE(m_model->filteredCount(), 2);

    // A later success clears the error at its start.
    m_status = 200;
    run(m_model->fetchProducts());
    QVERIFY(!m_model->errorMessage());
}

void ProductListViewModelTest::searchIsCaseInsensitiveOverAllTexts_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("sku, upper query") << u"AB-1"_s << QStringList{u"1"_s};
    QTest::newRow("name, mixed case") << u"kOFFie"_s << QStringList{u"1"_s};
    QTest::newRow("unknown name") << u"UNKN"_s << QStringList{u"2"_s};
    QTest::newRow("barcode") << u"8712"_s << QStringList{u"1"_s};
    QTest::newRow("description") << u"ARABICA"_s << QStringList{u"1"_s};
    QTest::newRow("accented letters") << u"CRÈME"_s << QStringList{u"3"_s};
    QTest::newRow("blank is a real query") << u" "_s << QStringList{u"1"_s, u"3"_s};
    QTest::newRow("no match") << u"zzz"_s << QStringList{};
    QTest::newRow("empty shows all") << QString() << QStringList{u"1"_s, u"2"_s, u"3"_s};
}

void ProductListViewModelTest::searchIsCaseInsensitiveOverAllTexts()
{
    QFETCH(QString, query);
    QFETCH(QStringList, expected);
    serve({product(1, "ab-100", "Koffie Bonen", "8712345678906", "Arabica"),
           product(2, "XY-9", nullptr), product(3, "T-3", "Crème brûlée")});

    QSignalSpy filtered(m_model.get(), &ProductListViewModel::filteredProductsChanged);
    m_model->setSearchText(query);
    QCOMPARE(filtered.count(), 1);
    QCOMPARE(ids(m_model->filteredProducts()), expected);
}

void ProductListViewModelTest::typingAndDeletingMatchesAFreshFilter()
{
    QJsonArray catalogue;
    const char* names[] = {"Koffie", "Thee", "Kaas", "Appeltaart", "Taart", "Koek"};
    for (int i = 0; i < 60; ++i)
        catalogue.append(product(i + 1, QByteArray("SKU-" + QByteArray::number(i)).constData(),
                                 names[i % 6]));
    serve(catalogue);

    // Narrowing reuses earlier matches; widening and replacing must not.
    const QStringList edits = {u"k"_s, u"ko"_s, u"koe"_s, u"ko"_s, u"t"_s, u"ta"_s,
                               u"taa"_s, u"aa"_s, u"sku-1"_s, u"sku-"_s, u""_s, u"e"_s};
    for (const QString& text : edits) {
        m_model->setSearchText(text);
        ProductListViewModel fresh(m_server->baseUrl());
        fresh.setSettings(m_settings.get());
        run(fresh.fetchProducts());
        fresh.setSearchText(text);
        QCOMPARE(ids(m_model->filteredProducts()), ids(fresh.filteredProducts()));
    }
}

void ProductListViewModelTest::selectionAndChecksSurviveReload()
{
    serve({product(1, "A", "Een"), product(2, "B", "Twee")});
    m_model->setSelectedProductID(2);
    m_model->toggleChecked(m_model->products()[1]);
    QCOMPARE(m_model->selectedProduct()->sku(), u"B"_s);

    serve({product(2, "B", "Twee, nieuw"), product(3, "C", "Drie")});
    QCOMPARE(m_model->selectedProduct()->displayName(), u"Twee, nieuw"_s);
    QVERIFY(m_model->checkedProductIDs().contains(2));

    m_model->setSelectedProductID(1); // no longer delivered
    QVERIFY(!m_model->selectedProduct());
    m_model->toggleChecked(m_model->products()[0]);
    QVERIFY(!m_model->isChecked(m_model->products()[0]));
}

void ProductListViewModelTest::printRunSendsEachCopyInServiceOrder()
{
    serve({product(10, "A-1", "Appel", "123", nullptr, 2.5), product(11, "X", "Anders"),
           product(12, "B-2", "Peer", nullptr, nullptr, std::nullopt)});
    configurePrinter(u"127.0.0.1"_s, m_sink->port(), u"^XA^FD{{ARTIKELNR}}|{{NAAM}}|{{PRIJS}}^XZ"_s);
    // Checked in the other order: the run follows the service's order.
    m_model->toggleChecked(m_model->products()[2]);
    m_model->toggleChecked(m_model->products()[0]);
    m_model->setPrintQuantity(3);

    run(m_model->printCheckedLabels());

    const QByteArray a = "^XA^FDA-1|Appel|2.50^XZ";
    const QByteArray b = "^XA^FDB-2|Peer|-^XZ";
    QTRY_COMPARE(m_sink->jobs().size(), 6);
    QCOMPARE(m_sink->jobs(), QList<QByteArray>({a, a, a, b, b, b}));
    QCOMPARE(m_sink->connectionCount(), 6);
    QCOMPARE(m_model->successMessage(), u"Etiket geprint voor B-2"_s);
    QVERIFY(!m_model->errorMessage());
    QCOMPARE(m_model->checkedProductIDs().size(), 2);
}

void ProductListViewModelTest::hiddenCheckedProductIsNotPrinted()
{
    serve({product(1, "A", "Appel"), product(2, "B", "Peer")});
    configurePrinter(u"127.0.0.1"_s, m_sink->port(), u"{{NAAM}}"_s);
    m_model->toggleChecked(m_model->products()[0]);
    m_model->toggleChecked(m_model->products()[1]);

    m_model->setSearchText(u"peer"_s);
    QCOMPARE(ids(m_model->checkedProducts()), QStringList{u"2"_s});
    run(m_model->printCheckedLabels());
    QTRY_COMPARE(m_sink->jobs().size(), 1);
    QCOMPARE(m_sink->jobs().constFirst(), "Peer");

    m_model->setSearchText(QString());
    run(m_model->printCheckedLabels());
    QTRY_COMPARE(m_sink->jobs().size(), 3);
    QCOMPARE(m_sink->jobs().mid(1), QList<QByteArray>({"Appel", "Peer"}));
}

void ProductListViewModelTest::zeroOrNegativeQuantityPrintsNothing()
{
    serve({product(1, "A", "Appel")});
    configurePrinter(u"127.0.0.1"_s, m_sink->port(), u"{{NAAM}}"_s);
    m_model->toggleChecked(m_model->products()[0]);
    QSignalSpy success(m_model.get(), &ProductListViewModel::successMessageChanged);
    QSignalSpy error(m_model.get(), &ProductListViewModel::errorMessageChanged);

    for (qint64 quantity : {0, -2}) {
        m_model->setPrintQuantity(quantity);
        run(m_model->printCheckedLabels());
    }
    m_model->clearChecked();
    m_model->setPrintQuantity(1);
    run(m_model->printCheckedLabels());

    QTest::qWait(100);
    QCOMPARE(m_sink->connectionCount(), 0);
    QCOMPARE(success.count(), 0);
    QCOMPARE(error.count(), 0);
}

void ProductListViewModelTest::printLabelReportsEachMissingPiece()
{
    serve({product(1, "A", "Appel")});
    const Product appel = m_model->products().constFirst();

    ProductListViewModel withoutSettings(m_server->baseUrl());
    run(withoutSettings.printLabel(appel));
    QCOMPARE(withoutSettings.errorMessage(), u"Instellingen niet geladen"_s);

    run(m_model->printLabel(appel));
    QCOMPARE(m_model->errorMessage(),
             u"Geen printer geselecteerd voor dit etiket. Selecteer een printer in Instellingen."_s);

    configurePrinter(QString(), m_sink->port(), u"{{NAAM}}"_s);
    run(m_model->printLabel(appel));
    QCOMPARE(m_model->errorMessage(),
             u"Printer 'Balie' heeft geen IP adres. Configureer dit in Instellingen."_s);

    m_settings->updatePrinter(0, [](Printer& p) {
        p.ipAddress = u"127.0.0.1"_s;
        p.port = refusedPort();
    });
    run(m_model->printLabel(appel));
    QVERIFY2(m_model->errorMessage()->startsWith(u"Verbinding mislukt: "_s),
             qPrintable(*m_model->errorMessage()));
    QVERIFY(!m_model->successMessage());

    m_settings->setTemplates({});
    run(m_model->printLabel(appel));
    QCOMPARE(m_model->errorMessage(), u"Geen etiket geselecteerd"_s);
    QCOMPARE(m_sink->connectionCount(), 0);
}

void ProductListViewModelTest::successMessageClearsAfterThreeSecondsUnlessReplaced()
{
    serve({product(1, "A-1", "Appel"), product(2, nullptr, "Zonder nummer")});
    configurePrinter(u"127.0.0.1"_s, m_sink->port(), u"{{NAAM}}"_s);
    const Product appel = m_model->products()[0];
    const Product zonder = m_model->products()[1];

    QElapsedTimer clock;
    clock.start();
    run(m_model->printLabel(appel));
    QCOMPARE(m_model->successMessage(), u"Etiket geprint voor A-1"_s);
    QTest::qWait(1500);
    run(m_model->printLabel(zonder));
    QCOMPARE(m_model->successMessage(), u"Etiket geprint voor "_s);

    // The first label's timer finds another message and leaves it.
    QTest::qWait(3300 - int(clock.elapsed()));
    QCOMPARE(m_model->successMessage(), u"Etiket geprint voor "_s);
    QTRY_VERIFY_WITH_TIMEOUT(!m_model->successMessage(), 3000);
    QVERIFY(clock.elapsed() >= 4400);

    // The same text set twice is cleared by the first timer.
    run(m_model->printLabel(appel));
    QTest::qWait(1000);
    run(m_model->printLabel(appel));
    QTRY_VERIFY_WITH_TIMEOUT(!m_model->successMessage(), 2600);
}

QTEST_GUILESS_MAIN(ProductListViewModelTest)
#include "TestProductListViewModel.moc"
