// One whole save of the settings store (document, JSON text, owner-only atomic
// write), against writing the same JSON object through QSaveFile.

#include "BenchHome.h"
#include "model/AppSettings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRecords = 100;

void fill(AppSettings& settings)
{
    QList<Dossier> dossiers;
    QList<Printer> printers;
    QList<LabelTemplate> templates;
    for (int i = 0; i < kRecords; ++i) {
        Dossier dossier;
        dossier.name = u"Dossier %1"_s.arg(i);
        dossier.apiKey = u"key-%1-0123456789abcdef0123456789abcdef"_s.arg(i);
        dossiers.append(dossier);
        Printer printer;
        printer.name = u"Printer %1"_s.arg(i);
        printer.ipAddress = u"192.0.2.%1"_s.arg(i % 250 + 1);
        printer.port = 9100 + i;
        printers.append(printer);
        LabelTemplate labelTemplate;
        labelTemplate.name = u"Etiket %1"_s.arg(i);
        labelTemplate.zplContent = LabelTemplate::kDefaultZPL;
        labelTemplate.printerID = printer.id;
        templates.append(labelTemplate);
    }
    settings.setDossiers(dossiers);
    settings.setSelectedDossierID(dossiers.first().id);
    settings.setPrinters(printers);
    settings.setTemplates(templates);
    settings.setSelectedTemplateID(templates.first().id);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the settings file was not written");
    return file.readAll();
}

struct FilledStore
{
    BenchHome home;
    std::unique_ptr<AppSettings> settings = std::make_unique<AppSettings>();
    FilledStore()
    {
        fill(*settings);
        settings->savePendingChanges();
    }
};

void saveProject(benchmark::State& state)
{
    FilledStore store;
    AppSettings& settings = *store.settings;
    for (auto _ : state) {
        // The assignment is what starts every save; the store's delay is skipped.
        settings.setBookyear(settings.bookyear());
        settings.savePendingChanges();
    }
    state.counters["bytes"] = double(readFile(settings.settingsFilePath()).size());
}

void saveBaseline(benchmark::State& state)
{
    FilledStore store;
    const QString storePath = store.settings->settingsFilePath();
    const QByteArray written = readFile(storePath);
    const QJsonObject object = QJsonDocument::fromJson(written).object();
    const QString path = QFileInfo(storePath).dir().filePath(u"baseline.json"_s);
    for (auto _ : state) {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw std::runtime_error("the baseline file could not be opened");
        file.write(QJsonDocument(object).toJson());
        if (!file.commit())
            throw std::runtime_error("the baseline file could not be written");
    }
    if (readFile(path) != written)
        throw std::runtime_error("the baseline wrote other bytes than the store");
    state.counters["bytes"] = double(written.size());
}

} // namespace

BENCHMARK(saveProject)->Name("settings_save/project")->UseRealTime();
BENCHMARK(saveBaseline)->Name("settings_save/baseline")->UseRealTime();
