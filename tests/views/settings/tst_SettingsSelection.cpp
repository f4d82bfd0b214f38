#include "SettingsViewHarness.h"
#include "views/common/Theme.h"
#include "views/settings/AboutSettingsPage.h"
#include "views/settings/DossierEditorPage.h"
#include "views/settings/NoRecordSelectedView.h"
#include "views/settings/PrinterEditorPage.h"
#include "views/settings/SettingsSidebarDelegate.h"
#include "views/settings/TemplateEditorPage.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;

// The sidebar, the selection key and what the detail area shows for it.
class SettingsSelectionTest : public QObject
{
    Q_OBJECT

private slots:
    void keysUseUpperCaseUuidsAndParseStrictly();
    void plusOpensItsGroupAddsAndSelects();
    void rowsShowStateAndFollowTheStore();
    void staleKeysShowTheEmptyStates();
    void deletingMovesTheSelection();
};

void SettingsSelectionTest::keysUseUpperCaseUuidsAndParseStrictly()
{
    const QUuid id = QUuid::fromString(u"{6f1c2b0e-8d4a-4c3b-9e2f-1a2b3c4d5e6f}"_s);
    QCOMPARE(SettingsTabKey::make(Kind::dossier, id),
             u"dossier-6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F"_s);
    QCOMPARE(SettingsTabKey::make(Kind::labelTemplate, id),
             u"template-6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F"_s);

    const SettingsTabKey::Parsed printer =
        SettingsTabKey::parse(u"printer-6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F"_s);
    QCOMPARE(printer.kind, Kind::printer);
    QCOMPARE(printer.id, id);
    QCOMPARE(SettingsTabKey::parse(u"about"_s).kind, Kind::about);

    // The kind comes from the prefix; a bad UUID leaves no id.
    for (const QString& bad :
         {u"dossier-"_s, u"dossier-xyz"_s, u"dossier-{6F1C2B0E-8D4A-4C3B-9E2F-1A2B3C4D5E6F}"_s}) {
        const SettingsTabKey::Parsed parsed = SettingsTabKey::parse(bad);
        QCOMPARE(parsed.kind, Kind::dossier);
        QVERIFY2(!parsed.id, qPrintable(bad));
    }
    QCOMPARE(SettingsTabKey::parse(u"About"_s).kind, Kind::none);
    QCOMPARE(SettingsTabKey::parse(QString()).kind, Kind::none);
}

void SettingsSelectionTest::plusOpensItsGroupAddsAndSelects()
{
    SettingsViewHarness harness;
    harness.setPrinters({SettingsViewHarness::printer(u"Balie"_s, u"10.0.0.5"_s)});
    QVERIFY(harness.show());
    SettingsSidebar* sidebar = harness.sidebar();

    harness.clickHeader(Kind::printer);
    QVERIFY(!harness.view().isExpanded(Kind::printer) &&
            !sidebar->isExpanded(harness.group(Kind::printer)));
    QVERIFY(harness.view().isExpanded(Kind::dossier));
    // "Over" stays at the bottom whatever the groups show.
    const auto aboutBottom = [&] {
        return sidebar->visualRect(harness.sidebarModel().indexOfKey(u"about"_s)).bottom();
    };
    QTRY_COMPARE(aboutBottom(), sidebar->viewport()->height() - 1);

    QToolButton* plus = sidebar->addButton(Kind::printer);
    QCOMPARE(plus->toolTip(), u"Nieuwe printer"_s);
    clickOn(plus);

    QCOMPARE(harness.settings().printers().size(), 2);
    const Printer added = harness.settings().printers().constLast();
    QCOMPARE(added.name, u"Nieuwe Printer"_s);
    QVERIFY(harness.view().isExpanded(Kind::printer) &&
            sidebar->isExpanded(harness.group(Kind::printer)));
    QCOMPARE(harness.view().selectedTab(), SettingsTabKey::make(Kind::printer, added.id));
    auto* page = harness.pageAs<PrinterEditorPage>();
    QVERIFY(page);
    QCOMPARE(page->index(), 1);
    QCOMPARE(harness.sidebarModel().rowCount(harness.group(Kind::printer)), 2);
    QVERIFY(harness.isRowSelected(Kind::printer, 1) && !harness.isRowSelected(Kind::printer, 0));

    // The same for templates and dossiers.
    clickOn(sidebar->addButton(Kind::labelTemplate));
    QCOMPARE(harness.settings().templates().constLast().name, u"Nieuw Etiket"_s);
    QVERIFY(harness.pageAs<TemplateEditorPage>());
    clickOn(sidebar->addButton(Kind::dossier));
    QCOMPARE(harness.settings().dossiers().constLast().name, u"Nieuw Dossier"_s);
    QCOMPARE(harness.pageAs<DossierEditorPage>()->index(),
             harness.settings().dossiers().size() - 1);

    // A click on a row selects it; the keyboard's "+" adds to the group it is on.
    const QRect first = sidebar->visualRect(harness.row(Kind::printer, 0));
    QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, {}, first.center());
    QCOMPARE(harness.view().selectedTab(),
             SettingsTabKey::make(Kind::printer, harness.settings().printers().at(0).id));
    sidebar->setCurrentIndex(harness.group(Kind::printer));
    QTest::keyClick(sidebar, Qt::Key_Plus);
    QCOMPARE(harness.settings().printers().size(), 3);
    QVERIFY(harness.isRowSelected(Kind::printer, 2));
    QTRY_COMPARE(aboutBottom(), sidebar->viewport()->height() - 1);
}

void SettingsSelectionTest::rowsShowStateAndFollowTheStore()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Met sleutel"_s, u"Zonder"_s}, {u"key-1"_s, QString()});
    QVERIFY(harness.show());
    const QPalette palette = harness.sidebar()->palette();

    // Selected: white on the accent colour; set up: green; else secondary.
    const QModelIndex selected = harness.row(Kind::dossier, 0);
    QVERIFY(harness.isRowSelected(Kind::dossier, 0));
    QCOMPARE(SettingsSidebarDelegate::iconColor(selected, true, palette), QColor(Qt::white));
    QCOMPARE(SettingsSidebarDelegate::textColor(true, palette), QColor(Qt::white));
    QCOMPARE(SettingsSidebarDelegate::iconColor(selected, false, palette), Theme::green(palette));
    QCOMPARE(SettingsSidebarDelegate::iconColor(harness.row(Kind::dossier, 1), false, palette),
             Theme::secondaryText(palette));

    // Edits change the row in place; the selection stays.
    QSignalSpy resets(&harness.sidebarModel(), &QAbstractItemModel::modelReset);
    harness.settings().updateDossier(0, [](Dossier& d) { d.name = u"Nieuwe naam"_s; });
    QCOMPARE(resets.size(), 0);
    QCOMPARE(harness.row(Kind::dossier, 0).data().toString(), u"Nieuwe naam"_s);
    QVERIFY(harness.isRowSelected(Kind::dossier, 0));
    // A record less keeps the selection on the record that was selected.
    harness.view().select(Kind::dossier, harness.settings().dossiers().at(1).id);
    harness.settings().deleteDossier(harness.settings().dossiers().at(0));
    QVERIFY(harness.isRowSelected(Kind::dossier, 0));
    QVERIFY(harness.view().isExpanded(Kind::dossier) &&
            harness.sidebar()->isExpanded(harness.group(Kind::dossier)));
}

void SettingsSelectionTest::staleKeysShowTheEmptyStates()
{
    SettingsViewHarness harness;
    QVERIFY(harness.show());
    const QString unknown = SettingsTabKey::uuidText(QUuid::createUuid());

    harness.view().setSelectedTab(u"dossier-"_s + unknown);
    auto* empty = harness.pageAs<NoRecordSelectedView>();
    QCOMPARE(empty->message(), u"Selecteer een dossier"_s);
    QVERIFY(empty->hint().isEmpty());

    // No printers at all: the empty-list text and the hint.
    harness.view().setSelectedTab(u"printer-nonsense"_s);
    empty = harness.pageAs<NoRecordSelectedView>();
    QCOMPARE(empty->message(), u"Geen printers geconfigureerd"_s);
    QCOMPARE(empty->hint(), u"Klik op + naast Printers om er een toe te voegen"_s);

    // The empty state follows the list as records come and go.
    harness.settings().addPrinter();
    QCOMPARE(harness.pageAs<NoRecordSelectedView>()->message(), u"Selecteer een printer"_s);

    harness.view().setSelectedTab(u"template-"_s + unknown);
    QCOMPARE(harness.pageAs<NoRecordSelectedView>()->message(), u"Selecteer een etiket"_s);
    harness.view().setSelectedTab(u"something"_s);
    QCOMPARE(qobject_cast<QLabel*>(harness.page())->text(), u"Selecteer een item"_s);
}

void SettingsSelectionTest::deletingMovesTheSelection()
{
    SettingsViewHarness harness;
    harness.setDossiers({u"Een"_s, u"Twee"_s, u"Drie"_s});
    harness.setPrinters({SettingsViewHarness::printer(u"P1"_s, u"10.0.0.1"_s)});
    QVERIFY(harness.show());
    AppSettings& settings = harness.settings();
    SettingsView& view = harness.view();

    // Second of three dossiers: the first is selected afterwards.
    clickOn(harness.open<DossierEditorPage>(Kind::dossier, 1)->deleteButton());
    QCOMPARE(settings.dossiers().size(), 2);
    QCOMPARE(view.selectedTab(), SettingsTabKey::make(Kind::dossier, settings.dossiers().at(0).id));
    QCOMPARE(harness.pageAs<DossierEditorPage>()->nameField()->text(), u"Een"_s);

    // The last printer: the first dossier is selected.
    clickOn(harness.open<PrinterEditorPage>(Kind::printer)->deleteButton());
    QVERIFY(settings.printers().isEmpty());
    QCOMPARE(view.selectedTab(), SettingsTabKey::make(Kind::dossier, settings.dossiers().at(0).id));

    // Of two templates, deleting the first selects the remaining one.
    settings.addTemplate();
    const QUuid remaining = settings.templates().at(1).id;
    clickOn(harness.open<TemplateEditorPage>(Kind::labelTemplate)->deleteButton());
    QCOMPARE(settings.templates().size(), 1);
    QCOMPARE(view.selectedTab(), SettingsTabKey::make(Kind::labelTemplate, remaining));

    // Without dossiers, deleting the last printer leaves the selection alone.
    settings.setDossiers({});
    settings.addPrinter();
    const QString printerKey = SettingsTabKey::make(Kind::printer, settings.printers().at(0).id);
    view.setSelectedTab(printerKey);
    clickOn(harness.pageAs<PrinterEditorPage>()->deleteButton());
    QCOMPARE(view.selectedTab(), printerKey);
}

QTEST_MAIN(SettingsSelectionTest)
#include "tst_SettingsSelection.moc"
