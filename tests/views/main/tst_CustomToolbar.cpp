#include "CustomToolbar.h"
#include "ProductWindowFixture.h"
#include "model/AppSettings.h"
#include "viewmodels/ProductListViewModel.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Fixture = ProductWindowFixture;

class CustomToolbarTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pickersListRecordsAndShowTheSelection();
    void onlyAnotherDossierReloads();
    void typingFiltersOnEveryKeystroke();
    void badgeCountsCheckedProductsAndClearsThem();
    void reloadButtonIsDisabledWhileLoading();

private:
    void addSecondDossier();
    bool noFurtherRequestsAfter(int expected);

    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ProductListViewModel> m_viewModel;
    std::unique_ptr<CustomToolbar> m_toolbar;
};

void CustomToolbarTest::init()
{
    m_fixture = std::make_unique<Fixture>();
    QVERIFY(m_fixture->isReady());
    m_settings = m_fixture->makeConfiguredSettings();
    m_viewModel = m_fixture->makeViewModel();
    m_viewModel->setSettings(m_settings.get());
    m_toolbar = std::make_unique<CustomToolbar>(*m_settings, *m_viewModel);
    m_toolbar->show();
}

void CustomToolbarTest::cleanup()
{
    m_toolbar.reset();
    m_viewModel.reset();
    m_settings.reset();
    m_fixture.reset();
}

void CustomToolbarTest::addSecondDossier()
{
    Dossier second;
    second.name = u"Magazijn"_s;
    second.apiKey = u"key-2"_s;
    QList<Dossier> dossiers = m_settings->dossiers();
    dossiers.append(second);
    m_settings->setDossiers(dossiers);
}

bool CustomToolbarTest::noFurtherRequestsAfter(int expected)
{
    if (!QTest::qWaitFor([&] { return m_fixture->productRequestCount() >= expected; }, 5000))
        return false;
    QTest::qWait(150);
    return m_fixture->productRequestCount() == expected;
}

void CustomToolbarTest::pickersListRecordsAndShowTheSelection()
{
    addSecondDossier();
    QComboBox* dossiers = m_toolbar->dossierPicker();
    QCOMPARE(dossiers->count(), 2);
    QCOMPARE(dossiers->itemText(0), u"Winkel"_s);
    QCOMPARE(dossiers->itemText(1), u"Magazijn"_s);
    QCOMPARE(dossiers->currentIndex(), 0);
    QCOMPARE(m_toolbar->templatePicker()->currentText(), u"Schap"_s);

    // An identifier that names no dossier shows no entry.
    m_settings->setSelectedDossierID(QUuid::createUuid());
    QCOMPARE(dossiers->currentIndex(), -1);
    QCOMPARE(dossiers->currentText(), QString());

    m_settings->setDossiers({});
    QCOMPARE(dossiers->count(), 0);
    QCOMPARE(m_toolbar->templatePicker()->count(), 1);
    QCOMPARE(m_toolbar->templatePicker()->currentIndex(), 0);
}

void CustomToolbarTest::onlyAnotherDossierReloads()
{
    addSecondDossier();
    const QUuid first = m_settings->dossiers().at(0).id;
    const QUuid second = m_settings->dossiers().at(1).id;
    QComboBox* picker = m_toolbar->dossierPicker();

    QTest::keyClick(picker, Qt::Key_Down);
    QCOMPARE(m_settings->selectedDossierID(), second);
    QVERIFY(noFurtherRequestsAfter(1));
    QCOMPARE(m_fixture->server().requests().last().header("ApiKey"), QByteArray("key-2"));

    // Choosing the entry that is already selected.
    emit picker->activated(picker->currentIndex());
    QVERIFY(noFurtherRequestsAfter(1));

    // A change made elsewhere, for example in the settings window, reloads too.
    m_settings->setSelectedDossierID(first);
    QCOMPARE(picker->currentIndex(), 0);
    QVERIFY(noFurtherRequestsAfter(2));
    m_settings->setSelectedDossierID(first);
    QVERIFY(noFurtherRequestsAfter(2));

    // The label template is not a reason to reload.
    LabelTemplate other;
    other.name = u"Prijs"_s;
    QList<LabelTemplate> templates = m_settings->templates();
    templates.append(other);
    m_settings->setTemplates(templates);
    QTest::keyClick(m_toolbar->templatePicker(), Qt::Key_Down);
    QCOMPARE(m_settings->selectedTemplateID(), other.id);
    QVERIFY(noFurtherRequestsAfter(2));
}

void CustomToolbarTest::typingFiltersOnEveryKeystroke()
{
    m_fixture->serveProducts(
        {Fixture::product(1, u"A"_s, u"Hamer"_s), Fixture::product(2, u"B"_s, u"Zaag"_s)});
    m_viewModel->fetchProducts();
    QTRY_COMPARE(m_viewModel->products().size(), 2);

    QSignalSpy edits(m_viewModel.get(), &ProductListViewModel::searchTextChanged);
    QLineEdit* search = m_toolbar->searchField();
    QCOMPARE(search->placeholderText(), u"Zoeken..."_s);
    QTest::keyClicks(search, u"ha"_s);
    QCOMPARE(edits.count(), 2);
    QCOMPARE(m_viewModel->searchText(), u"ha"_s);
    QCOMPARE(m_viewModel->filteredCount(), 1);
    QTest::keyClick(search, Qt::Key_Backspace);
    QCOMPARE(m_viewModel->searchText(), u"h"_s);

    m_viewModel->setSearchText(u"zaag"_s);
    QCOMPARE(search->text(), u"zaag"_s);
}

void CustomToolbarTest::badgeCountsCheckedProductsAndClearsThem()
{
    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Een"_s),
                              Fixture::product(2, u"B"_s, u"Twee"_s),
                              Fixture::product(3, u"C"_s, u"Drie"_s)});
    m_viewModel->fetchProducts();
    QTRY_COMPARE(m_viewModel->products().size(), 3);
    QVERIFY(!m_toolbar->checkedBadge()->isVisible());

    m_viewModel->setSelectedProductID(2);
    m_viewModel->setSearchText(u"e"_s);
    for (const Product& product : m_viewModel->products())
        m_viewModel->toggleChecked(product);
    QVERIFY(m_toolbar->checkedBadge()->isVisible());
    QCOMPARE(m_toolbar->checkedBadgeLabel()->text(), u"3 geselecteerd"_s);

    QTest::mouseClick(m_toolbar->clearCheckedButton(), Qt::LeftButton);
    QVERIFY(m_viewModel->checkedProductIDs().isEmpty());
    QVERIFY(!m_toolbar->checkedBadge()->isVisible());
    QCOMPARE(m_viewModel->selectedProductID(), 2);
    QCOMPARE(m_viewModel->searchText(), u"e"_s);
    QCOMPARE(m_viewModel->products().size(), 3);
}

void CustomToolbarTest::reloadButtonIsDisabledWhileLoading()
{
    m_fixture->serveProducts({Fixture::product(1, u"A"_s, u"Een"_s)}, 200ms);
    QPushButton* reload = m_toolbar->reloadButton();
    QVERIFY(reload->isEnabled());
    QVERIFY(!reload->icon().isNull());
    QTest::mouseClick(reload, Qt::LeftButton);
    QVERIFY(m_viewModel->isLoading());
    QVERIFY(!reload->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(reload->isEnabled(), 5000);
    QCOMPARE(m_viewModel->products().size(), 1);
    QCOMPARE(m_fixture->productRequestCount(), 1);
}

QTEST_MAIN(CustomToolbarTest)
#include "tst_CustomToolbar.moc"
