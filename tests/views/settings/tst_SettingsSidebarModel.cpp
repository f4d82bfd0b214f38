#include "TestHome.h"
#include "model/AppSettings.h"
#include "views/settings/SettingsSidebarModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using Kind = SettingsTabKey::Kind;
using Entry = SettingsSidebarModel::Entry;

// The sidebar's tree over the store: what each entry says and how it follows
// the store's changes, checked by Qt's model tester throughout.
class SettingsSidebarModelTest : public QObject
{
    Q_OBJECT

private slots:
    void entriesReadTheStore();
    void followsTheStore();
};

namespace {

Entry entryOf(const QModelIndex& index)
{
    return index.data(SettingsSidebarModel::entryRole).value<Entry>();
}

} // namespace

void SettingsSidebarModelTest::entriesReadTheStore()
{
    TestHome home;
    AppSettings settings;
    settings.setDossiers(
        {{QUuid::createUuid(), u"Winkel"_s, u"key"_s}, {QUuid::createUuid(), u""_s, {}}});
    settings.setPrinters({});
    SettingsSidebarModel model(settings);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);

    QCOMPARE(model.rowCount(), 5);
    const QStringList titles{u"Dossiers"_s, u"Printers"_s, u"Etiketten"_s};
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(model.index(row, 0).data().toString(), titles.at(row));
        QCOMPARE(entryOf(model.index(row, 0)), Entry::group);
        QCOMPARE(model.flags(model.index(row, 0)), Qt::ItemIsEnabled);
    }
    QCOMPARE(entryOf(model.index(3, 0)), Entry::divider);
    QCOMPARE(model.flags(model.index(3, 0)), Qt::NoItemFlags);
    const QModelIndex about = model.index(4, 0);
    QCOMPARE(about.data().toString(), u"Over"_s);
    QCOMPARE(about.data(SettingsSidebarModel::symbolRole).toString(), u"info.circle"_s);
    QCOMPARE(model.indexOfKey(u"about"_s), about);

    const QModelIndex dossiers = model.groupIndex(Kind::dossier);
    QCOMPARE(model.kindOf(dossiers), Kind::dossier);
    QCOMPARE(model.rowCount(dossiers), 2);
    const QModelIndex first = model.index(0, 0, dossiers);
    QCOMPARE(first.data().toString(), u"Winkel"_s);
    QCOMPARE(first.data(SettingsSidebarModel::symbolRole).toString(), u"folder.fill"_s);
    QVERIFY(first.data(SettingsSidebarModel::setUpRole).toBool());
    QVERIFY(model.flags(first) & Qt::ItemIsSelectable);
    const QModelIndex second = model.index(1, 0, dossiers);
    QCOMPARE(second.data().toString(), QString());
    QCOMPARE(second.data(SettingsSidebarModel::symbolRole).toString(), u"folder"_s);
    for (const QModelIndex& row : {first, second})
        QCOMPARE(model.indexOfKey(row.data(SettingsSidebarModel::keyRole).toString()), row);

    // An empty group shows its empty text, which cannot be chosen.
    const QModelIndex printers = model.groupIndex(Kind::printer);
    QCOMPARE(model.rowCount(printers), 1);
    QCOMPARE(model.index(0, 0, printers).data().toString(), u"Geen printers"_s);
    QCOMPARE(entryOf(model.index(0, 0, printers)), Entry::emptyText);
    QCOMPARE(model.flags(model.index(0, 0, printers)), Qt::NoItemFlags);

    for (const QString& key :
         {u"dossier-"_s + SettingsTabKey::uuidText(QUuid::createUuid()), u"printer-x"_s, QString()})
        QVERIFY2(!model.indexOfKey(key).isValid(), qPrintable(key));
}

void SettingsSidebarModelTest::followsTheStore()
{
    TestHome home;
    AppSettings settings;
    settings.setPrinters({{.name = u"Balie"_s, .ipAddress = u"10.0.0.5"_s}});
    LabelTemplate bound = settings.templates().constFirst();
    bound.printerID = settings.printers().constFirst().id;
    settings.setTemplates({bound});
    SettingsSidebarModel model(settings);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    const auto templateRow = [&model] {
        return model.index(0, 0, model.groupIndex(Kind::labelTemplate));
    };
    QCOMPARE(templateRow().data(SettingsSidebarModel::symbolRole).toString(), u"doc.text.fill"_s);

    // Same length: the rows change in place.
    settings.updatePrinter(0, [](Printer& p) { p.ipAddress.clear(); });
    QCOMPARE(resets.size(), 0);
    QVERIFY(changes.size() >= 2); // printers and templates
    QCOMPARE(model.index(0, 0, model.groupIndex(Kind::printer))
                 .data(SettingsSidebarModel::symbolRole)
                 .toString(),
             u"printer"_s);

    // New lengths, and a template whose printer is gone loses its filled symbol.
    settings.addPrinter();
    QCOMPARE(model.rowCount(model.groupIndex(Kind::printer)), 2);
    settings.setPrinters({});
    QCOMPARE(resets.size(), 2);
    QCOMPARE(model.index(0, 0, model.groupIndex(Kind::printer)).data().toString(),
             u"Geen printers"_s);
    QCOMPARE(templateRow().data(SettingsSidebarModel::symbolRole).toString(), u"doc.text"_s);
    QVERIFY(!templateRow().data(SettingsSidebarModel::setUpRole).toBool());
}

QTEST_MAIN(SettingsSidebarModelTest)
#include "tst_SettingsSidebarModel.moc"
