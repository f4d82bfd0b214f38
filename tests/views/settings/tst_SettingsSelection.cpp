#include "SettingsViewHarness.h"
#include "views/common/Theme.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/NoRecordSelectedView.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsSidebarDelegate.h"
#include "views/settings/TemplateEditorPage.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

// The sidebar, the selection key and what the detail area shows for it.
class SettingsSelectionTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsFollowTheStoreAndPlusAdds();
    void deleteButtonsAndEmptyStates();
};

void SettingsSelectionTest::rowsFollowTheStoreAndPlusAdds()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Met sleutel"_s, u"Zonder"_s}, {u"key-1"_s, QString()});
    harness.settings().setPrinters({{.name = u"Balie"_s, .ipAddress = u"10.0.0.5"_s}});
    QVERIFY(harness.show());
    SettingsSidebar* sidebar = harness.sidebar();
    const QPalette palette = sidebar->palette();

    // Selected: white on the accent colour; set up: green; else secondary.
    const QModelIndex selected = harness.row(Kind::dossier, 0);
    QVERIFY(harness.isRowSelected(Kind::dossier, 0));
    QCOMPARE(SettingsSidebarDelegate::iconColor(selected, true, palette), QColor(Qt::white));
    QCOMPARE(SettingsSidebarDelegate::textColor(true, palette), QColor(Qt::white));
    QCOMPARE(SettingsSidebarDelegate::iconColor(selected, false, palette), Theme::green(palette));
    QCOMPARE(SettingsSidebarDelegate::iconColor(harness.row(Kind::dossier, 1), false, palette),
             Theme::secondaryText(palette));

    // An edit keeps the selection, and so does a record less before it.
    harness.view().select(Kind::dossier, harness.settings().dossiers().at(1).id);
    harness.settings().updateDossier(1, [](Dossier& d) { d.name = u"Nieuwe naam"_s; });
    QVERIFY(harness.isRowSelected(Kind::dossier, 1));
    harness.settings().deleteDossier(harness.settings().dossiers().at(0));
    QVERIFY(harness.isRowSelected(Kind::dossier, 0));
    QVERIFY(sidebar->isExpanded(harness.group(Kind::dossier)));

    // "+" opens its closed group; the tree and the page follow the model's selection.
    harness.clickHeader(Kind::printer);
    QVERIFY(!sidebar->isExpanded(harness.group(Kind::printer)));
    clickOn(sidebar->addButton(Kind::printer));
    QCOMPARE(harness.settings().printers().size(), 2);
    QVERIFY(sidebar->isExpanded(harness.group(Kind::printer)));
    QCOMPARE(harness.pageAs<PrinterEditorPage>()->index(), 1);
    QVERIFY(harness.isRowSelected(Kind::printer, 1) && !harness.isRowSelected(Kind::printer, 0));
    for (const Kind kind : {Kind::dossier, Kind::labelTemplate}) {
        clickOn(sidebar->addButton(kind));
        QCOMPARE(harness.view().selectedTab(),
                 SettingsTabKey::make(kind, harness.view().model().ids(kind).constLast()));
    }

    // A click on a row selects it; the keyboard's "+" adds to the group it is on.
    const QRect first = sidebar->visualRect(harness.row(Kind::printer, 0));
    QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, {}, first.center());
    QCOMPARE(harness.view().selectedTab(),
             SettingsTabKey::make(Kind::printer, harness.settings().printers().at(0).id));
    sidebar->setCurrentIndex(harness.group(Kind::printer));
    QTest::keyClick(sidebar, Qt::Key_Plus);
    QCOMPARE(harness.settings().printers().size(), 3);
    QVERIFY(harness.isRowSelected(Kind::printer, 2));
}

// What a delete selects is the model's rule; here each page deletes its own record.
void SettingsSelectionTest::deleteButtonsAndEmptyStates()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Een"_s, u"Twee"_s});
    harness.settings().setPrinters({{.name = u"P1"_s, .ipAddress = u"10.0.0.1"_s}});
    harness.settings().addTemplate();
    QVERIFY(harness.show());
    SettingsViewModel& model = harness.view().model();
    const QList<QUuid> kept{model.ids(Kind::dossier).at(1), model.ids(Kind::labelTemplate).at(1)};

    clickOn(harness.open<DossierEditorPage>(Kind::dossier)->deleteButton());
    clickOn(harness.open<TemplateEditorPage>(Kind::labelTemplate)->deleteButton());
    clickOn(harness.open<PrinterEditorPage>(Kind::printer)->deleteButton());
    QCOMPARE(model.ids(Kind::dossier) + model.ids(Kind::labelTemplate), kept);
    QVERIFY(model.ids(Kind::printer).isEmpty());
    QCOMPARE(harness.pageAs<DossierEditorPage>()->nameField()->text(), u"Twee"_s);

    // Keys that match no record show their kind's empty state.
    const QString unknown = SettingsTabKey::uuidText(QUuid::createUuid());
    harness.view().setSelectedTab(u"dossier-"_s + unknown);
    auto* empty = harness.pageAs<NoRecordSelectedView>();
    QCOMPARE(empty->detail()->text(), u"Selecteer een dossier"_s);
    QVERIFY(empty->hint().isEmpty());
    harness.view().setSelectedTab(u"printer-nonsense"_s);
    empty = harness.pageAs<NoRecordSelectedView>();
    QCOMPARE(empty->detail()->text(), u"Geen printers geconfigureerd"_s);
    QCOMPARE(empty->hint(), u"Klik op + naast Printers om er een toe te voegen"_s);
    // It follows the list as records come and go.
    harness.settings().addPrinter();
    QCOMPARE(harness.pageAs<NoRecordSelectedView>()->detail()->text(), u"Selecteer een printer"_s);
    harness.view().setSelectedTab(u"template-"_s + unknown);
    QCOMPARE(harness.pageAs<NoRecordSelectedView>()->detail()->text(), u"Selecteer een etiket"_s);
    harness.view().setSelectedTab(u"something"_s);
    QCOMPARE(harness.pageAs<QLabel>()->text(), u"Selecteer een item"_s);
}

QTEST_MAIN(SettingsSelectionTest)
#include "tst_SettingsSelection.moc"
