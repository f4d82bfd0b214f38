#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "services/ZPLService.h"
#include "viewmodels/ProductListViewModel.h"

#include <QCoroTask>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;
using Fixture = ProductWindowFixture;

namespace {

void run(QCoro::Task<> task)
{
    QCoro::waitFor(std::move(task));
}

QString ids(const QList<Product>& products)
{
    QStringList result;
    for (const Product& p : products)
        result.append(QString::number(p.ID));
    return result.join(u',');
}

} // namespace

class ProductListViewModelTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_model.reset(); // before the settings and the server it uses
        m_settings.reset();
        m_fixture = std::make_unique<Fixture>();
        QVERIFY(m_fixture->isReady());
        m_settings = m_fixture->makeConfiguredSettings();
        m_settings->setBookyear(u"2024"_s);
        m_model = m_fixture->makeViewModel();
        m_model->setSettings(m_settings.get());
    }

    // A failed reload keeping the products is shown with the window's alert.
    void loadUsesTheSelectedDossierAndNeedsItsKey()
    {
        serve({Fixture::product(1, u"A"_s, u"Appel"_s)});
        const auto& request = m_fixture->server().requests().constLast();
        QCOMPARE(request.query + ' ' + request.header("ApiKey") + ' ' + request.header("Bookyear"),
                 "limit=1000&offset=0 key-1 2024");
        m_settings->addDossier(); // selected, and without a key
        const auto withoutSettings = m_fixture->makeViewModel();
        for (ProductListViewModel* model : {m_model.get(), withoutSettings.get()}) {
            QSignalSpy loading(model, &ProductListViewModel::isLoadingChanged);
            run(model->fetchProducts());
            QCOMPARE(model->errorMessage(), u"Selecteer een dossier met API key in Instellingen"_s);
            QCOMPARE(loading.count(), 0);
        }
        QCOMPARE(m_fixture->productRequestCount(), 1);
        QCOMPARE(m_model->products().size(), 1);
    }

    void searchIsCaseInsensitiveOverAllTexts_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("expected");
        QTest::newRow("sku, upper query") << u"AB-1"_s << u"1"_s;
        QTest::newRow("name, mixed case") << u"kOFFie"_s << u"1"_s;
        QTest::newRow("unknown name") << u"UNKN"_s << u"2"_s;
        QTest::newRow("barcode") << u"8712"_s << u"1"_s;
        QTest::newRow("description") << u"ARABICA"_s << u"1"_s;
        QTest::newRow("composed query, decomposed name") << u"brûlée"_s << u"3"_s;
        QTest::newRow("blank is a real query") << u" "_s << u"1,3"_s;
        QTest::newRow("empty shows all") << QString() << u"1,2,3"_s;
    }

    void searchIsCaseInsensitiveOverAllTexts()
    {
        QFETCH(QString, query);
        QFETCH(QString, expected);
        Product coffee =
            Fixture::product(1, u"ab-100"_s, u"Koffie Bonen"_s, 1.0, u"8712345678906"_s);
        coffee.Description = u"Arabica"_s;
        serve({coffee, Fixture::product(2, u"XY-9"_s, {}),
               Fixture::product(3, u"T-3"_s, u"Crème brûle\u0301e"_s)});
        m_model->setSearchText(query);
        QCOMPARE(ids(m_model->filteredProducts()), expected);
    }

    void reloadsFilterBeforeTellingAndKeepSelectionAndChecks()
    {
        serve({Fixture::product(1, u"A"_s, u"Kaas"_s), Fixture::product(2, u"B"_s, u"Peer"_s)});
        m_model->setSelectedProductID(2);
        m_model->toggleChecked(m_model->products()[1]);
        m_model->setSearchText(u"PE"_s);
        QCOMPARE(ids(m_model->filteredProducts()), u"2"_s);

        // Observers must find the whole new state when they hear of it.
        QStringList seen;
        const auto record = [&] {
            seen.append(ids(m_model->filteredProducts()));
        };
        connect(m_model.get(), &ProductListViewModel::productsChanged, this, record);
        connect(m_model.get(), &ProductListViewModel::filteredProductsChanged, this, record);
        connect(m_model.get(), &ProductListViewModel::searchTextChanged, this, record);
        serve({Fixture::product(3, u"C"_s, u"Peen"_s),
               Fixture::product(2, u"B"_s, u"Peer, nieuw"_s),
               Fixture::product(5, u"E"_s, u"Pers"_s), Fixture::product(4, u"D"_s, u"Kool"_s)});
        QCOMPARE(seen, QStringList(2, u"3,2,5"_s));
        // The selection and the checks survive the reload, with the new data.
        QCOMPARE(m_model->selectedProduct()->displayName(), u"Peer, nieuw"_s);
        QVERIFY(m_model->checkedProductIDs().contains(2));

        seen.clear();
        m_model->setSearchText(u"kool"_s);
        QCOMPARE(seen, QStringList(2, u"4"_s));
        m_model->setSelectedProductID(1); // no longer delivered
        QVERIFY(!m_model->selectedProduct());
    }

    void printRunSendsEachCopyInServiceOrder()
    {
        const Product a = Fixture::product(10, u"A-1"_s, u"Appel"_s);
        const Product b = Fixture::product(12, u"B-2"_s, u"Peer"_s);
        serve({a, Fixture::product(11, u"X"_s, u"Anders"_s), b});
        // Checked in the other order: the run follows the service's order.
        m_model->toggleChecked(b);
        m_model->toggleChecked(a);
        m_model->setPrintQuantity(3);
        run(m_model->printCheckedLabels());
        const QByteArray labelA = Fixture::expectedLabel(a);
        const QByteArray labelB = Fixture::expectedLabel(b);
        QTRY_COMPARE(m_fixture->sink().jobs(),
                     QList<QByteArray>({labelA, labelA, labelA, labelB, labelB, labelB}));
        QCOMPARE(m_model->successMessage(), u"Etiket geprint voor B-2"_s);
        QCOMPARE(m_model->checkedProductIDs().size(), 2);

        // A checked product that the search hides is left out.
        m_model->setPrintQuantity(1);
        m_model->setSearchText(u"peer"_s);
        run(m_model->printCheckedLabels());
        QTRY_COMPARE(m_fixture->sink().jobs().size(), 7);
        QCOMPARE(m_fixture->sink().jobs().constLast(), labelB);
    }

    void printLabelReportsEachMissingPiece()
    {
        const Product appel = Fixture::product(1, u"A"_s, u"Appel"_s);
        ProductListViewModel withoutSettings;
        run(withoutSettings.printLabel(appel));
        QCOMPARE(withoutSettings.errorMessage(), u"Instellingen niet geladen"_s);
        run(m_model->printLabel(appel));
        QCOMPARE(m_model->successMessage(), u"Etiket geprint voor A"_s);
        // A name that would grow the label past 1 MiB sends nothing.
        run(m_model->printLabel(
            Fixture::product(2, u"B"_s, QString(ZPLService::kMaxLabelBytes, u'x'))));
        QCOMPARE(m_model->errorMessage(), ZPLService::labelTooLargeMessage());

        // Failures leave the earlier success in place, a refused printer first.
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost));
        const quint16 refused = closed.serverPort();
        closed.close();
        m_settings->updatePrinter(0, [refused](Printer& p) { p.port = refused; });
        run(m_model->printLabel(appel));
        QVERIFY(m_model->errorMessage().value_or(QString()).startsWith(u"Verbinding mislukt: "_s));
        m_settings->updatePrinter(0, [](Printer& p) { p.ipAddress.clear(); });
        run(m_model->printLabel(appel));
        QCOMPARE(m_model->errorMessage(),
                 u"Printer 'Balie' heeft geen IP adres. Configureer dit in Instellingen."_s);
        m_settings->setPrinters({});
        run(m_model->printLabel(appel));
        QCOMPARE(m_model->errorMessage(), u"Geen printer geselecteerd voor dit etiket. Selecteer "
                                          u"een printer in Instellingen."_s);
        m_settings->setTemplates({});
        run(m_model->printLabel(appel));
        QCOMPARE(m_model->errorMessage(), u"Geen etiket geselecteerd"_s);
        QCOMPARE(m_model->successMessage(), u"Etiket geprint voor A"_s);
        QTRY_COMPARE(m_fixture->sink().jobs().size(), 1);
    }

    void successMessageClearsUnlessReplaced()
    {
        constexpr int kDuration = 400;
        m_model->setSuccessMessageDuration(kDuration);
        run(m_model->printLabel(Fixture::product(1, u"A-1"_s, u"Appel"_s)));
        QCOMPARE(m_model->successMessage(), u"Etiket geprint voor A-1"_s);
        QTest::qWait(150);
        QElapsedTimer clock;
        clock.start();
        run(m_model->printLabel(Fixture::product(2, {}, u"Zonder nummer"_s)));
        QCOMPARE(m_model->successMessage(), u"Etiket geprint voor "_s);
        // The first label's timer finds another message and leaves it.
        QTRY_VERIFY_WITH_TIMEOUT(!m_model->successMessage(), 5000);
        QVERIFY(clock.elapsed() >= kDuration);
    }

private:
    void serve(const QList<Product>& products)
    {
        m_fixture->serveProducts(products);
        run(m_model->fetchProducts());
        QVERIFY2(!m_model->errorMessage(), qPrintable(m_model->errorMessage().value_or(QString())));
    }

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_model;
};

QTEST_GUILESS_MAIN(ProductListViewModelTest)
#include "tst_ProductListViewModel.moc"
