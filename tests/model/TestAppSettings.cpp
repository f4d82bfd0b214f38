#include "SettingsSignalRecorder.h"
#include "TestHome.h"
#include "model/AppSettings.h"

#include <QDate>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;

class TestAppSettings : public QObject
{
    Q_OBJECT

private slots:
    void firstStartSavesTheDefaults();
    void everySetterNotifiesAndSchedulesEvenWhenUnchanged();
    void updateEditsOneRecordOrNothing();
    void dossierOperations();
    void templateOperations();
    void deletingAPrinterUnbindsItsTemplates();
    void selectionsFallBackToTheFirstRecord();
    void printerConfigurationNeedsAnAddress();
    void burstOfChangesIsWrittenOnceAfterTheDelay();
    void pendingSaveIsWrittenOnRequestAndDroppedWithTheStore();
};

void TestAppSettings::firstStartSavesTheDefaults()
{
    TestHome home;
    QVERIFY(home.isValid());
    QVERIFY(!QFileInfo::exists(home.settingsDirectory()));

    AppSettings settings;
    QVERIFY(QFileInfo(home.settingsDirectory()).isDir());
    QCOMPARE(settings.settingsFilePath(), home.settingsFilePath());
    QCOMPARE(settings.bookyear(), QString::number(QDate::currentDate().year()));
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);
    QVERIFY(settings.printers().isEmpty());
    QCOMPARE(settings.templates(), QList<LabelTemplate>{LabelTemplate::defaultTemplate()});
    QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
    QVERIFY(!settings.isConfigured());
    QVERIFY(!settings.isPrinterConfigured());

    // Nothing is written at once; the delayed save writes the defaults.
    QVERIFY(settings.isSavePending());
    QVERIFY(!QFileInfo::exists(home.settingsFilePath()));
    QTRY_VERIFY_WITH_TIMEOUT(!settings.isSavePending(), 5000);
    const auto written = SettingsData::read(home.readSettingsFile(), nullptr);
    QVERIFY(written);
    QCOMPARE(written->dossiers, settings.dossiers());
    QCOMPARE(written->templates, settings.templates());
    QCOMPARE(written->selectedDossierID, settings.selectedDossierID());
    QCOMPARE(written->selectedTemplateID, settings.selectedTemplateID());
    QCOMPARE(written->bookyear, settings.bookyear());
    QVERIFY(written->printers.isEmpty());
}

void TestAppSettings::everySetterNotifiesAndSchedulesEvenWhenUnchanged()
{
    TestHome home;
    AppSettings settings;
    settings.savePendingChanges();
    SettingsSignalRecorder recorder(settings);

    const std::function<void()> kSameValueAssignments[] = {
        [&] { settings.setBookyear(settings.bookyear()); },
        [&] { settings.setDossiers(settings.dossiers()); },
        [&] { settings.setSelectedDossierID(settings.selectedDossierID()); },
        [&] { settings.setPrinters(settings.printers()); },
        [&] { settings.setTemplates(settings.templates()); },
        [&] { settings.setSelectedTemplateID(settings.selectedTemplateID()); },
        [&] { settings.setSettingsWindowWidth(settings.settingsWindowWidth()); },
        [&] { settings.setSettingsWindowHeight(settings.settingsWindowHeight()); },
        [&] { settings.setColumnWidthCheckbox(settings.columnWidthCheckbox()); },
        [&] { settings.setColumnWidthSKU(settings.columnWidthSKU()); },
        [&] { settings.setColumnWidthName(settings.columnWidthName()); },
        [&] { settings.setColumnWidthPrice(settings.columnWidthPrice()); },
        [&] { settings.setColumnWidthBarcode(settings.columnWidthBarcode()); },
    };
    // In the recorder's order, which is the store's.
    const QStringList kProperties = SettingsSignalRecorder::properties();
    for (qsizetype i = 0; i < kProperties.size(); ++i) {
        recorder.clear();
        kSameValueAssignments[i]();
        QCOMPARE(recorder.changed(), QStringList{kProperties.at(i)});
        QVERIFY2(settings.isSavePending(), qPrintable(kProperties.at(i)));
        settings.savePendingChanges();
    }
}

void TestAppSettings::updateEditsOneRecordOrNothing()
{
    TestHome home;
    AppSettings settings;
    settings.addPrinter();
    settings.savePendingChanges();
    SettingsSignalRecorder recorder(settings);

    QVERIFY(settings.updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"10.1.1.1"_s; }));
    QCOMPARE(settings.printers().at(0).ipAddress, u"10.1.1.1"_s);
    QCOMPARE(recorder.changed(), QStringList{u"printers"_s});
    settings.savePendingChanges();

    recorder.clear();
    bool called = false;
    QVERIFY(!settings.updatePrinter(1, [&called](Printer&) { called = true; }));
    QVERIFY(!settings.updateDossier(-1, [&called](Dossier&) { called = true; }));
    QVERIFY(!settings.updateTemplate(7, [&called](LabelTemplate&) { called = true; }));
    QVERIFY(!called);
    QVERIFY(recorder.changed().isEmpty());
    QVERIFY(!settings.isSavePending());
}

void TestAppSettings::dossierOperations()
{
    TestHome home;
    AppSettings settings;
    settings.savePendingChanges();

    // The only dossier cannot be deleted, and the refusal saves nothing.
    SettingsSignalRecorder recorder(settings);
    settings.deleteDossier(settings.dossiers().at(0));
    QCOMPARE(settings.dossiers().size(), 1);
    QVERIFY(recorder.changed().isEmpty());
    QVERIFY(!settings.isSavePending());

    settings.addDossier();
    QCOMPARE(settings.dossiers().size(), 2);
    const Dossier added = settings.dossiers().at(1);
    QCOMPARE(added.name, u"Nieuw Dossier"_s);
    QVERIFY(added.apiKey.isEmpty());
    QCOMPARE(settings.selectedDossierID(), added.id);
    QVERIFY(!settings.isConfigured());
    QVERIFY(settings.updateDossier(1, [](Dossier& dossier) { dossier.apiKey = u"sleutel"_s; }));
    QVERIFY(settings.isConfigured());

    // Deleting the selected dossier (given as an edited copy) selects the first.
    Dossier editedCopy = settings.dossiers().at(1);
    editedCopy.name = u"Anders"_s;
    settings.deleteDossier(editedCopy);
    QCOMPARE(settings.dossiers(), QList<Dossier>{Dossier::defaultDossier()});
    QCOMPARE(settings.selectedDossierID(), Dossier::defaultDossier().id);

    // Deleting an unselected dossier keeps the selection.
    settings.addDossier();
    const QUuid second = settings.dossiers().at(1).id;
    settings.setSelectedDossierID(second);
    settings.deleteDossier(settings.dossiers().at(0));
    QCOMPARE(settings.dossiers().size(), 1);
    QCOMPARE(settings.selectedDossierID(), second);
}

void TestAppSettings::templateOperations()
{
    TestHome home;
    AppSettings settings;
    settings.addPrinter();
    settings.updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"10.0.0.9"_s; });
    const QUuid printerID = settings.printers().at(0).id;
    settings.updateTemplate(0, [printerID](LabelTemplate& t) { t.printerID = printerID; });
    QVERIFY(settings.isPrinterConfigured());
    settings.savePendingChanges();

    SettingsSignalRecorder recorder(settings);
    settings.deleteTemplate(settings.templates().at(0));
    QCOMPARE(settings.templates().size(), 1);
    QVERIFY(recorder.changed().isEmpty());
    QVERIFY(!settings.isSavePending());

    settings.addTemplate();
    const LabelTemplate added = settings.templates().at(1);
    QCOMPARE(added.name, u"Nieuw Etiket"_s);
    QCOMPARE(added.zplContent, LabelTemplate::kDefaultZPL);
    QVERIFY(!added.printerID && !added.printerIP && !added.printerPort);
    QCOMPARE(settings.selectedTemplateID(), added.id);
    QVERIFY(!settings.isPrinterConfigured());

    settings.deleteTemplate(added);
    QCOMPARE(settings.templates().size(), 1);
    QCOMPARE(settings.selectedTemplateID(), LabelTemplate::defaultTemplate().id);
    QVERIFY(settings.isPrinterConfigured());
}

void TestAppSettings::deletingAPrinterUnbindsItsTemplates()
{
    TestHome home;
    AppSettings settings;
    settings.addPrinter();
    settings.addPrinter();
    QCOMPARE(settings.printers().at(0).name, u"Nieuwe Printer"_s);
    QCOMPARE(settings.printers().at(0).port, 9100);
    QVERIFY(settings.printers().at(0).ipAddress.isEmpty());
    const Printer removed = settings.printers().at(0);
    const Printer kept = settings.printers().at(1);
    settings.updatePrinter(0, [](Printer& printer) { printer.ipAddress = u"10.0.0.1"_s; });

    settings.addTemplate();
    settings.addTemplate();
    settings.setSelectedTemplateID(settings.templates().at(0).id);
    const auto bindTo = [](const QUuid& id) {
        return [id](LabelTemplate& labelTemplate) {
            labelTemplate.printerID = id;
        };
    };
    settings.updateTemplate(0, bindTo(removed.id));
    settings.updateTemplate(1, bindTo(kept.id));
    settings.updateTemplate(2, bindTo(removed.id));
    QVERIFY(settings.isPrinterConfigured());

    settings.deletePrinter(removed);
    QCOMPARE(settings.printers(), QList<Printer>{kept});
    QVERIFY(!settings.templates().at(0).printerID);
    QCOMPARE(settings.templates().at(1).printerID, kept.id);
    QVERIFY(!settings.templates().at(2).printerID);
    QVERIFY(!settings.isPrinterConfigured());

    // The last printer may go too.
    settings.deletePrinter(kept);
    QVERIFY(settings.printers().isEmpty());
    QVERIFY(!settings.templates().at(1).printerID);
}

void TestAppSettings::selectionsFallBackToTheFirstRecord()
{
    TestHome home;
    AppSettings settings;
    settings.updateDossier(0, [](Dossier& dossier) { dossier.apiKey = u"k"_s; });
    settings.addDossier();
    QVERIFY(!settings.isConfigured());

    // A selection naming no record is kept as assigned but reads as the first.
    const QUuid unknown = QUuid::createUuid();
    settings.setSelectedDossierID(unknown);
    QCOMPARE(settings.selectedDossierID(), unknown);
    QCOMPARE(settings.selectedDossier(), settings.dossiers().at(0));
    QVERIFY(settings.isConfigured());
    settings.setSelectedDossierID(std::nullopt);
    QCOMPARE(settings.selectedDossier(), settings.dossiers().at(0));

    settings.addTemplate();
    settings.setSelectedTemplateID(unknown);
    QCOMPARE(settings.selectedTemplate(), settings.templates().at(0));
}

void TestAppSettings::printerConfigurationNeedsAnAddress()
{
    TestHome home;
    AppSettings settings;
    settings.addPrinter();
    const Printer printer = settings.printers().at(0);
    settings.updateTemplate(0, [&](LabelTemplate& t) { t.printerID = printer.id; });

    QCOMPARE(settings.printerFor(settings.templates().at(0)), printer);
    QVERIFY(!settings.isPrinterConfigured()); // no address yet
    settings.updatePrinter(0, [](Printer& p) {
        p.ipAddress = u"10.0.0.2"_s;
        p.port = -1; // the port is not looked at
    });
    QVERIFY(settings.isPrinterConfigured());

    LabelTemplate dangling = settings.templates().at(0);
    dangling.printerID = QUuid::createUuid();
    QVERIFY(!settings.printerFor(dangling));
    settings.setTemplates({dangling});
    QVERIFY(!settings.isPrinterConfigured());
}

void TestAppSettings::burstOfChangesIsWrittenOnceAfterTheDelay()
{
    TestHome home;
    AppSettings settings;
    settings.savePendingChanges();
    const QByteArray before = home.readSettingsFile();
    QVERIFY(!before.isEmpty());

    // Changes 0.1 s apart keep postponing the write: the file must not change
    // until 0.5 s after the last of them.
    QElapsedTimer sinceLastChange;
    for (int i = 1; i <= 6; ++i) {
        if (i > 1) {
            QTest::qWait(100);
            if (sinceLastChange.elapsed() >= AppSettings::kSaveDelayMs)
                QSKIP("the machine was too busy to keep the changes 0.1 s apart");
            QCOMPARE(home.readSettingsFile(), before);
        }
        sinceLastChange.start();
        settings.setColumnWidthName(300 + i);
    }
    while (settings.isSavePending() && sinceLastChange.elapsed() < 5000)
        QTest::qWait(5);
    QVERIFY(!settings.isSavePending());
    QVERIFY2(sinceLastChange.elapsed() >= AppSettings::kSaveDelayMs,
             qPrintable(QString::number(sinceLastChange.elapsed())));

    const QByteArray written = home.readSettingsFile();
    const auto data = SettingsData::read(written, nullptr);
    QVERIFY(data);
    QCOMPARE(data->columnWidthName, 306.0);

    // And nothing more follows.
    QTest::qWait(AppSettings::kSaveDelayMs + 100);
    QCOMPARE(home.readSettingsFile(), written);
}

void TestAppSettings::pendingSaveIsWrittenOnRequestAndDroppedWithTheStore()
{
    TestHome home;
    {
        AppSettings settings;
        settings.setBookyear(u"1999"_s);
        settings.savePendingChanges();
        QVERIFY(!settings.isSavePending());
        QCOMPARE(SettingsData::read(home.readSettingsFile(), nullptr)->bookyear, u"1999"_s);

        settings.setBookyear(u"2000"_s);
        QVERIFY(settings.isSavePending());
    }
    QTest::qWait(AppSettings::kSaveDelayMs + 200);
    QCOMPARE(SettingsData::read(home.readSettingsFile(), nullptr)->bookyear, u"1999"_s);
}

QTEST_GUILESS_MAIN(TestAppSettings)
#include "TestAppSettings.moc"
