// Walks one product window through its states against a local product
// service and label sink, and saves a picture of each state.

#include "ProductWindowFixture.h"
#include "ScreenshotFolder.h"
#include "app/MainWindow.h"
#include "app/StampixApp.h"
#include "model/AppSettings.h"
#include "services/ZPLService.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/main/ContentView.h"
#include "views/main/CustomToolbar.h"
#include "views/main/PrintButton.h"
#include "views/main/StatusBarView.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using State = ContentView::ContentState;
using Fixture = ProductWindowFixture;

namespace {

QList<Product> catalogue()
{
    // Article number; name; price; barcode.
    const QStringList rows =
        QStringLiteral(u"100;Kruiskopschroeven 4x40 mm (200 st.);7.95;8712345000107\n"
                       u"9;Houtlijm D3 watervast 250 g;6.49;8712345000091\n"
                       u"10;Schuurpapier korrel 120 (5 vel);3.25;8712345000015\n"
                       u"A-220;Klauwhamer 450 g glasvezel steel;24.95;8712345002200\n"
                       u"a-31;Rolmaat 5 m met blokkering;12.5;8712345000312\n"
                       u"B-12;Waterpas aluminium 60 cm;18.99;8712345000121\n"
                       u"B-7;Kitpistool professioneel;9.99;8712345000077\n"
                       u"C-400;Afplaktape 38 mm x 50 m;4.45;8712345004006\n"
                       u"D-15;Accuboormachine 18 V met 2 accu's;149.0;8712345000152\n"
                       u"E-2;Verfroller 18 cm + beugel;5.75;8712345000022\n"
                       u"F-88;Werkhandschoenen maat 10;3.99;8712345000886\n"
                       u"G-5;Pluggen 6 mm (100 st.);2.79;8712345000053\n"
                       u"H-41;Stofmasker FFP2 (3 st.);8.95;8712345000411\n"
                       u"K-9;Kabelbinders 200 mm zwart (100 st.);4.99;8712345000091\n"
                       u"L-3;Zaagblad decoupeerzaag hout (5 st.);11.49;8712345000039\n"
                       u"M-60;Montagekit transparant 290 ml;7.25;8712345000602\n"
                       u"N-8;Ladder aluminium 3 x 7 treden;199.0;8712345000084\n"
                       u"P-14;Plamuurmes 60 mm;3.49;8712345000145")
            .split(u'\n');
    QList<Product> products;
    qint64 id = 1001;
    for (const QString& row : rows) {
        const QStringList fields = row.split(u';');
        products.append(
            Fixture::product(id++, fields[0], fields[1], fields[2].toDouble(), fields[3]));
    }
    // One product as the service sometimes sends it: no name, no price.
    products.append(Fixture::product(id, u"Z-1"_s, {}, std::nullopt, {}));
    return products;
}

// The alert is a window of its own; draw it, with a plain title strip for
// its title, where a sheet would hang.
QPixmap withAlert(MainWindow* window, QMessageBox* alert)
{
    QPixmap picture = window->grab();
    const QPixmap box = alert->grab();
    const int titleHeight = 24;
    QPainter painter(&picture);
    painter.fillRect(picture.rect(), QColor(0, 0, 0, 60));
    const QPoint at((picture.width() - box.width()) / 2,
                    window->menuWidget()->height() + 40 + titleHeight);
    const QRect title(at.x(), at.y() - titleHeight, box.width(), titleHeight);
    painter.fillRect(title, alert->palette().color(QPalette::Mid));
    painter.setPen(alert->palette().color(QPalette::WindowText));
    painter.drawText(title, Qt::AlignCenter, alert->windowTitle());
    painter.drawPixmap(at, box);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.drawRect(title.united(QRect(at, box.size())).adjusted(-1, -1, 0, 0));
    return picture;
}

} // namespace

void renderMainWindowShots(ScreenshotFolder& folder)
{
    Fixture fixture;
    if (!fixture.isReady())
        return folder.fail(u"cannot start the local services"_s);
    StampixApp app(fixture.server().baseUrl());
    MainWindow* window = app.openMainWindow();
    ContentView* content = window->contentView();
    const auto reaches = [&folder, content](const char* what, State state) {
        return folder.waitFor(what, [content, state] { return content->contentState() == state; });
    };

    if (reaches("configuration needed", State::ConfigurationNeeded))
        folder.save(window, u"01-configuration-needed"_s);
    fixture.serveProducts({}, 1500ms);
    fixture.configure(*app.settings());
    if (reaches("loading", State::Loading)) {
        QTest::qWait(150); // let the wheel turn a little
        folder.save(window, u"02-loading"_s);
    }
    if (reaches("empty", State::Empty))
        folder.save(window, u"03-empty"_s);

    fixture.serveProducts(catalogue());
    app.refreshProductsAction()->trigger();
    if (reaches("product table", State::ProductList)) {
        QLineEdit* search = content->toolbar()->searchField();
        search->setFocus();
        QTest::keyClicks(search, u"schroevendraaier"_s);
        if (reaches("no results", State::NoResults))
            folder.save(window, u"04-no-results"_s);
        search->selectAll();
        QTest::keyClick(search, Qt::Key_Backspace);
    }

    ProductListViewModel* model = app.productListViewModel();
    if (reaches("product table again", State::ProductList)) {
        const QList<Product>& products = model->products();
        for (int index : {3, 4, 8})
            model->toggleChecked(products.at(index));
        model->setSelectedProductID(products.at(5).ID);
        StatusBarView* status = content->statusBar();
        QTest::mouseClick(status->printButton(), Qt::LeftButton);
        if (folder.waitFor("print run", [status, model] {
                return !status->isPrinting() && model->successMessage().has_value();
            }))
            folder.save(window, u"05-products-checked-success"_s);
    }

    // A save that fails; the success message of the print run still shows beside the line.
    AppSettings* settings = app.settings();
    ScreenshotFolder::blockSettingsFile(*settings, true);
    folder.save(window, u"09-save-failed"_s);
    window->resize(600, MainWindow::kInitialSize.height());
    folder.save(window, u"09-save-failed-narrow"_s);
    window->resize(MainWindow::kInitialSize);
    ScreenshotFolder::blockSettingsFile(*settings, false);

    // A shelf label of 60 by 40 mm, the panel opened with Ctrl+L while the
    // success message of the print run still shows.
    const auto setLabel = [settings](const QString& zpl) {
        settings->updateTemplate(0, [&zpl](LabelTemplate& t) { t.zplContent = zpl; });
    };
    setLabel(u"^XA^CI28^PW480^LL320\n"
             u"^FO20,20^A0N,30,30^FB440,2,0,L^FD{{NAAM}}^FS\n"
             u"^FO20,92^A0N,22,22^FDArt. {{ARTIKELNR}}^FS\n"
             u"^FO20,124^A0N,64,64^FD€ {{PRIJS}}^FS\n"
             u"^FO90,204^BY2^BEN,70,Y,N^FD{{BARCODE}}^FS\n"
             u"^XZ"_s);
    QTest::keyClick(window, Qt::Key_L, Qt::ControlModifier);
    if (folder.waitFor("label preview panel",
                       [content] { return content->isLabelPreviewShown(); })) {
        folder.save(window, u"08-label-preview"_s);
        const QString shelfLabel = settings->templates().at(0).zplContent;
        // Thirty fields off the label: twenty warnings, and how many more.
        setLabel(u"^XA^PW480^LL320"_s + u"^FO500,0^A0N,30^FD{{NAAM}}^FS"_s.repeated(30) + u"^XZ"_s);
        folder.save(window, u"08-label-preview-many-warnings"_s);
        // A label that filling would grow past 1 MiB.
        setLabel(u"^XA^FD{{NAAM}}^FS^FX"_s + QString(ZPLService::kMaxLabelBytes, u'x'));
        folder.save(window, u"08-label-preview-too-large"_s);
        setLabel(shelfLabel);
    }
    app.labelPreviewAction()->trigger();

    fixture.serveStatus(401);
    app.refreshProductsAction()->trigger();
    if (folder.waitFor("error alert", [content] {
            return content->errorAlert() && content->errorAlert()->isVisible();
        })) {
        ScreenshotFolder::settle();
        folder.save(withAlert(window, content->errorAlert()), u"06-error-alert"_s);
        folder.save(content->errorAlert(), u"06-error-alert-box"_s);
    }
    if (QMessageBox* alert = content->errorAlert())
        QTest::mouseClick(alert->buttons().first(), Qt::LeftButton);

    const QPalette light = QApplication::palette();
    QApplication::setPalette(ScreenshotFolder::darkPalette());
    model->clearSuccess();
    folder.save(window, u"07-products-dark"_s);
    QApplication::setPalette(light);
}
