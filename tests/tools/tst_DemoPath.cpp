#include "DemoHome.h"
#include "LabelJobWriter.h"
#include "SimulatedProductService.h"
#include "TestHome.h"
#include "VirtualPrinter.h"
#include "app/StampixApp.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/main/ContentView.h"
#include "views/main/PrintButton.h"
#include "views/main/StatusBarView.h"

#include <QCoroTask>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kKey = u"demo-sleutel"_s;

// The default label as the printer must receive it, written out by hand.
QByteArray expectedLabel(const QString& sku, const QString& name, const QString& price)
{
    return (u"^XA\n^FO50,50^A0N,50,50^FD"_s + sku + u"^FS\n^FO50,120^A0N,40,40^FD"_s + name +
            u"^FS\n^FO50,180^A0N,35,35^FDE "_s + price + u"^FS\n^XZ"_s)
        .toUtf8();
}

} // namespace

// The demo from the user's side: the demo settings, the product list model
// against the simulator's service, and the jobs in the simulator's printer folder.
class DemoPathTest : public QObject
{
    Q_OBJECT

private slots:
    void printFromTheProductWindow();
};

// The demo as a user runs it: the application opens its window, which loads
// the demo dossier; two products are ticked, the quantity is typed and
// "Start afdrukken" pressed; the printer's folder holds the four labels.
void DemoPathTest::printFromTheProductWindow()
{
    QTemporaryDir jobs;
    SimulatedProductService service(ProductCatalogue(), kKey);
    QVERIFY(service.listen());
    VirtualPrinter printer(u"Virtual printer 1"_s, jobs.filePath(u"printer-1"_s));
    QString error;
    QVERIFY2(printer.start(0, &error), qPrintable(error));
    TestHome home;
    QVERIFY(home.writeSettingsFile(DemoHome::settingsDocument(kKey, printer.port())));

    StampixApp app(service.baseUrl());
    MainWindow* window = app.openMainWindow();
    ProductListViewModel& model = *app.productListViewModel();
    QTRY_COMPARE_WITH_TIMEOUT(model.products().size(), qsizetype(300), 5000);
    QCOMPARE(model.products(), service.catalogue().page(0, ProductListViewModel::kPageLimit));
    QCOMPARE(window->contentView()->contentState(), ContentView::ContentState::ProductList);

    // An accented name, and a product without a price; ticked in reverse order,
    // printed in the service's order.
    const Product withoutPrice = service.catalogue().product(19);
    const Product accented = service.catalogue().product(2);
    QVERIFY(!withoutPrice.SellPrice1WithVat);
    QCOMPARE(accented.Name, u"Crème brûlée schaaltjes (4 st.) crème"_s);
    model.toggleChecked(withoutPrice);
    model.toggleChecked(accented);
    StatusBarView* statusBar = window->contentView()->statusBar();
    QTRY_VERIFY(statusBar->printControls()->isVisible());
    QLineEdit* quantity = statusBar->quantityField();
    quantity->selectAll();
    QTest::keyClicks(quantity, u"2"_s);
    QTest::keyClick(quantity, Qt::Key_Return);
    QCOMPARE(model.printQuantity(), 2);
    QVERIFY(statusBar->printButton()->isEnabled());
    QTest::mouseClick(statusBar->printButton(), Qt::LeftButton);

    const QDir folder(printer.jobDirectory(), u"*.zpl"_s); // a picture lies beside each
    QTRY_COMPARE_WITH_TIMEOUT(folder.entryList(QDir::Files).size(), 4, 5000);
    QTRY_VERIFY(!statusBar->isPrinting());
    QCOMPARE(folder.entryList(QDir::Files),
             (QStringList{LabelJobWriter::fileName(1), LabelJobWriter::fileName(2),
                          LabelJobWriter::fileName(3), LabelJobWriter::fileName(4)}));
    const QByteArray first = expectedLabel(accented.sku(), *accented.Name,
                                           QString::asprintf("%.2f", *accented.SellPrice1WithVat));
    const QByteArray second = expectedLabel(withoutPrice.sku(), *withoutPrice.Name, u"-"_s);
    const QList<QByteArray> expected{first, first, second, second};
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(TestHome::readFile(folder.filePath(LabelJobWriter::fileName(i + 1))), expected[i]);
    QCOMPARE(model.errorMessage(), std::nullopt);
    QCOMPARE(model.successMessage(), u"Etiket geprint voor "_s + withoutPrice.sku());
}

QTEST_MAIN(DemoPathTest)
#include "tst_DemoPath.moc"
