#include "TestHome.h"
#include "model/AppSettings.h"
#include "views/settings/SettingsSidebarModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;
using Model = SettingsSidebarModel;

// The sidebar's tree over the store, checked by Qt's model tester throughout.
class SettingsSidebarModelTest : public QObject
{
    Q_OBJECT

private slots:
    void entriesReadAndFollowTheStore();
};

void SettingsSidebarModelTest::entriesReadAndFollowTheStore()
{
    TestHome home;
    AppSettings settings;
    settings.setDossiers(
        {{QUuid::createUuid(), u"Winkel"_s, u"key"_s}, {QUuid::createUuid(), {}, {}}});
    settings.setPrinters({{.name = u"Balie"_s, .ipAddress = u"10.0.0.5"_s}});
    LabelTemplate bound = settings.templates().constFirst();
    bound.printerID = settings.printers().constFirst().id;
    settings.setTemplates({bound});
    Model model(settings);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const auto row = [&model](Kind kind, int index) {
        return model.index(index, 0, model.groupIndex(kind));
    };
    const auto symbol = [](const QModelIndex& index) {
        return index.data(Model::symbolRole).toString();
    };

    // Three groups, the divider (not choosable) and "Over".
    QCOMPARE(model.rowCount(), 5);
    QCOMPARE(model.flags(model.index(0, 0)), Qt::ItemIsEnabled);
    QCOMPARE(model.flags(model.index(3, 0)), Qt::NoItemFlags);
    QCOMPARE(model.indexOfKey(u"about"_s).data().toString(), u"Over"_s);
    QCOMPARE(symbol(row(Kind::dossier, 0)), u"folder.fill"_s);
    QCOMPARE(symbol(row(Kind::dossier, 1)), u"folder"_s);
    QCOMPARE(symbol(row(Kind::labelTemplate, 0)), u"doc.text.fill"_s);
    for (const QModelIndex& record : {row(Kind::dossier, 1), row(Kind::labelTemplate, 0)})
        QCOMPARE(model.indexOfKey(record.data(Model::keyRole).toString()), record);
    QVERIFY(!model.indexOfKey(u"printer-x"_s).isValid());

    // Same length: the rows change in place, the templates' too.
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    settings.updatePrinter(0, [](Printer& p) { p.ipAddress.clear(); });
    QCOMPARE(resets.size(), 0);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(symbol(row(Kind::printer, 0)), u"printer"_s);

    // A new length; an empty group shows its text, which cannot be chosen, and
    // a template whose printer is gone loses its filled symbol.
    settings.setPrinters({});
    QCOMPARE(resets.size(), 1);
    QCOMPARE(row(Kind::printer, 0).data().toString(), u"Geen printers"_s);
    QCOMPARE(model.flags(row(Kind::printer, 0)), Qt::NoItemFlags);
    QCOMPARE(symbol(row(Kind::labelTemplate, 0)), u"doc.text"_s);
    QVERIFY(!row(Kind::labelTemplate, 0).data(Model::setUpRole).toBool());
}

QTEST_MAIN(SettingsSidebarModelTest)
#include "tst_SettingsSidebarModel.moc"
