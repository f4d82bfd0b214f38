#include "MainWindowShots.h"

#include "ProductWindowFixture.h"
#include "app/MainWindow.h"
#include "app/StampixApp.h"
#include "model/AppSettings.h"
#include "services/ZPLService.h"
#include "viewmodels/ProductListViewModel.h"
#include "views/main/ContentView.h"
#include "views/main/CustomToolbar.h"
#include "views/main/PrintButton.h"
#include "views/main/ProductListView.h"
#include "views/main/ProductTableModel.h"
#include "views/main/StatusBarView.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QStyleFactory>
#include <QTableView>
#include <QTest>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using State = ContentView::ContentState;
using Fixture = ProductWindowFixture;

namespace {

QList<Product> catalogue()
{
    const struct
    {
        const char16_t* sku;
        const char16_t* name;
        double price;
        const char16_t* barcode;
    } rows[] = {
        {u"100", u"Kruiskopschroeven 4x40 mm (200 st.)", 7.95, u"8712345000107"},
        {u"9", u"Houtlijm D3 watervast 250 g", 6.49, u"8712345000091"},
        {u"10", u"Schuurpapier korrel 120 (5 vel)", 3.25, u"8712345000015"},
        {u"A-220", u"Klauwhamer 450 g glasvezel steel", 24.95, u"8712345002200"},
        {u"a-31", u"Rolmaat 5 m met blokkering", 12.5, u"8712345000312"},
        {u"B-12", u"Waterpas aluminium 60 cm", 18.99, u"8712345000121"},
        {u"B-7", u"Kitpistool professioneel", 9.99, u"8712345000077"},
        {u"C-400", u"Afplaktape 38 mm x 50 m", 4.45, u"8712345004006"},
        {u"D-15", u"Accuboormachine 18 V met 2 accu's", 149.0, u"8712345000152"},
        {u"E-2", u"Verfroller 18 cm + beugel", 5.75, u"8712345000022"},
        {u"F-88", u"Werkhandschoenen maat 10", 3.99, u"8712345000886"},
        {u"G-5", u"Pluggen 6 mm (100 st.)", 2.79, u"8712345000053"},
        {u"H-41", u"Stofmasker FFP2 (3 st.)", 8.95, u"8712345000411"},
        {u"K-9", u"Kabelbinders 200 mm zwart (100 st.)", 4.99, u"8712345000091"},
        {u"L-3", u"Zaagblad decoupeerzaag hout (5 st.)", 11.49, u"8712345000039"},
        {u"M-60", u"Montagekit transparant 290 ml", 7.25, u"8712345000602"},
        {u"N-8", u"Ladder aluminium 3 x 7 treden", 199.0, u"8712345000084"},
        {u"P-14", u"Plamuurmes 60 mm", 3.49, u"8712345000145"},
    };
    QList<Product> products;
    qint64 id = 1001;
    for (const auto& row : rows) {
        products.append(Fixture::product(id++, QString::fromUtf16(row.sku),
                                         QString::fromUtf16(row.name), row.price,
                                         QString::fromUtf16(row.barcode)));
    }
    // One product as the service sometimes sends it: no name, no price.
    products.append(Fixture::product(id, u"Z-1"_s, {}, std::nullopt, {}));
    return products;
}

} // namespace

QPalette MainWindowShots::darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(40, 40, 42));
    palette.setColor(QPalette::WindowText, QColor(236, 236, 236));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(44, 44, 47));
    palette.setColor(QPalette::Text, QColor(236, 236, 236));
    palette.setColor(QPalette::Button, QColor(58, 58, 60));
    palette.setColor(QPalette::ButtonText, QColor(236, 236, 236));
    palette.setColor(QPalette::Highlight, QColor(10, 132, 255));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, QColor(140, 140, 140));
    return palette;
}

MainWindowShots::MainWindowShots(QString outputDirectory)
    : m_outputDirectory(std::move(outputDirectory)), m_fixture(std::make_unique<Fixture>())
{}

MainWindowShots::~MainWindowShots()
{
    m_app.reset();
}

int MainWindowShots::run()
{
    if (!m_fixture->isReady() || !QDir().mkpath(m_outputDirectory)) {
        std::fprintf(stderr, "cannot start the local services or create %s\n",
                     qPrintable(m_outputDirectory));
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    m_app = std::make_unique<StampixApp>(m_fixture->server().baseUrl());
    m_window = m_app->openMainWindow();
    m_window->resize(kWidth, kHeight);

    configurationNeeded();
    loading();
    empty();
    noResults();
    checkedWithSuccess();
    saveFailed();
    labelPreview();
    errorAlert();
    darkTable();
    return m_failures;
}

void MainWindowShots::configurationNeeded()
{
    if (waitFor("configuration needed", [this] {
            return m_window->contentView()->contentState() == State::ConfigurationNeeded;
        }))
        save(u"01-configuration-needed"_s, m_window);
}

void MainWindowShots::loading()
{
    m_fixture->serveProducts({}, 1500ms);
    m_fixture->configure(*m_app->settings());
    if (waitFor("loading",
                [this] { return m_window->contentView()->contentState() == State::Loading; })) {
        QTest::qWait(300); // let the wheel turn a little
        save(u"02-loading"_s, m_window);
    }
}

void MainWindowShots::empty()
{
    if (waitFor("empty",
                [this] { return m_window->contentView()->contentState() == State::Empty; }))
        save(u"03-empty"_s, m_window);
}

void MainWindowShots::noResults()
{
    m_fixture->serveProducts(catalogue());
    m_app->refreshProductsAction()->trigger();
    if (!waitFor("product table",
                 [this] { return m_window->contentView()->contentState() == State::ProductList; }))
        return;
    QLineEdit* search = m_window->contentView()->toolbar()->searchField();
    search->setFocus();
    QTest::keyClicks(search, u"schroevendraaier"_s);
    if (waitFor("no results",
                [this] { return m_window->contentView()->contentState() == State::NoResults; }))
        save(u"04-no-results"_s, m_window);
    search->selectAll();
    QTest::keyClick(search, Qt::Key_Backspace);
}

void MainWindowShots::checkedWithSuccess()
{
    if (!waitFor("product table again",
                 [this] { return m_window->contentView()->contentState() == State::ProductList; }))
        return;
    ProductListViewModel* model = m_app->productListViewModel();
    const QList<Product>& products = model->products();
    for (int index : {3, 4, 8})
        model->toggleChecked(products.at(index));
    model->setSelectedProductID(products.at(5).ID);
    StatusBarView* status = m_window->contentView()->statusBar();
    QTest::mouseClick(status->printButton(), Qt::LeftButton);
    if (waitFor("print run", [status, model] {
            return !status->isPrinting() && model->successMessage().has_value();
        }))
        save(u"05-products-checked-success"_s, m_window);
}

void MainWindowShots::saveFailed()
{
    // A directory where the settings file goes makes the next save fail; the
    // success message of the print run still shows beside the line.
    AppSettings* settings = m_app->settings();
    const QString file = settings->settingsFilePath();
    QFile::remove(file);
    QDir().mkdir(file);
    settings->setBookyear(settings->bookyear());
    settings->savePendingChanges();
    save(u"09-save-failed"_s, m_window);
    m_window->resize(600, kHeight);
    save(u"09-save-failed-narrow"_s, m_window);
    m_window->resize(kWidth, kHeight);
    QDir().rmdir(file);
    settings->setBookyear(settings->bookyear());
    settings->savePendingChanges();
}

void MainWindowShots::labelPreview()
{
    // A shelf label of 60 by 40 mm, the panel opened with Ctrl+L while the
    // success message of the print run still shows.
    m_app->settings()->updateTemplate(0, [](LabelTemplate& t) {
        t.zplContent = u"^XA^CI28^PW480^LL320\n"
                       u"^FO20,20^A0N,30,30^FB440,2,0,L^FD{{NAAM}}^FS\n"
                       u"^FO20,92^A0N,22,22^FDArt. {{ARTIKELNR}}^FS\n"
                       u"^FO20,124^A0N,64,64^FD€ {{PRIJS}}^FS\n"
                       u"^FO90,204^BY2^BEN,70,Y,N^FD{{BARCODE}}^FS\n"
                       u"^XZ"_s;
    });
    QTest::keyClick(m_window, Qt::Key_L, Qt::ControlModifier);
    if (waitFor("label preview panel",
                [this] { return m_window->contentView()->isLabelPreviewShown(); })) {
        save(u"08-label-preview"_s, m_window);
        hostileLabelPreviews();
    }
    m_app->labelPreviewAction()->trigger();
}

void MainWindowShots::hostileLabelPreviews()
{
    // Thirty fields off the label: twenty warnings, and how many more.
    const QString shelfLabel = m_app->settings()->templates().at(0).zplContent;
    m_app->settings()->updateTemplate(0, [](LabelTemplate& t) {
        t.zplContent =
            u"^XA^PW480^LL320"_s + u"^FO500,0^A0N,30^FD{{NAAM}}^FS"_s.repeated(30) + u"^XZ"_s;
    });
    QTest::qWait(50);
    save(u"08-label-preview-many-warnings"_s, m_window);
    // A label that filling would grow past 1 MiB.
    m_app->settings()->updateTemplate(0, [](LabelTemplate& t) {
        t.zplContent = u"^XA^FD{{NAAM}}^FS^FX"_s + QString(ZPLService::kMaxLabelBytes, u'x');
    });
    QTest::qWait(50);
    save(u"08-label-preview-too-large"_s, m_window);
    m_app->settings()->updateTemplate(
        0, [&shelfLabel](LabelTemplate& t) { t.zplContent = shelfLabel; });
}

void MainWindowShots::errorAlert()
{
    m_fixture->serveStatus(401);
    m_app->refreshProductsAction()->trigger();
    if (waitFor("error alert", [this] {
            QMessageBox* alert = m_window->contentView()->errorAlert();
            return alert && alert->isVisible();
        })) {
        QTest::qWait(50);
        saveWithAlert(u"06-error-alert"_s);
        save(u"06-error-alert-box"_s, m_window->contentView()->errorAlert());
    }
    if (QMessageBox* alert = m_window->contentView()->errorAlert())
        QTest::mouseClick(alert->buttons().first(), Qt::LeftButton);
}

void MainWindowShots::darkTable()
{
    const QPalette light = QApplication::palette();
    QApplication::setPalette(darkPalette());
    m_app->productListViewModel()->clearSuccess();
    QTest::qWait(50);
    save(u"07-products-dark"_s, m_window);
    QApplication::setPalette(light);
}

void MainWindowShots::settle()
{
    // Pending layout passes and repaints, as the event loop would run them before a frame.
    QTest::qWait(30);
}

bool MainWindowShots::waitFor(const char* what, const std::function<bool()>& condition,
                              int timeoutMs)
{
    if (QTest::qWaitFor(condition, timeoutMs))
        return true;
    std::fprintf(stderr, "state not reached: %s\n", what);
    ++m_failures;
    return false;
}

void MainWindowShots::save(const QString& name, QWidget* widget)
{
    settle();
    const QString path = QDir(m_outputDirectory).filePath(name + u".png"_s);
    if (!widget || !widget->grab().save(path)) {
        std::fprintf(stderr, "cannot save %s\n", qPrintable(path));
        ++m_failures;
        return;
    }
    std::printf("%s\n", qPrintable(path));
}

void MainWindowShots::saveWithAlert(const QString& name)
{
    // The alert is a window of its own; draw it, with a plain title strip for
    // its title, where a sheet would hang.
    settle();
    QPixmap picture = m_window->grab();
    QMessageBox* alert = m_window->contentView()->errorAlert();
    const QPixmap box = alert->grab();
    const int titleHeight = 24;
    QPainter painter(&picture);
    painter.fillRect(picture.rect(), QColor(0, 0, 0, 60));
    const QPoint at((picture.width() - box.width()) / 2,
                    m_window->menuWidget()->height() + 40 + titleHeight);
    const QRect title(at.x(), at.y() - titleHeight, box.width(), titleHeight);
    painter.fillRect(title, alert->palette().color(QPalette::Mid));
    painter.setPen(alert->palette().color(QPalette::WindowText));
    painter.drawText(title, Qt::AlignCenter, alert->windowTitle());
    painter.drawPixmap(at, box);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.drawRect(title.united(QRect(at, box.size())).adjusted(-1, -1, 0, 0));
    painter.end();
    const QString path = QDir(m_outputDirectory).filePath(name + u".png"_s);
    if (!picture.save(path)) {
        ++m_failures;
        return;
    }
    std::printf("%s\n", qPrintable(path));
}
