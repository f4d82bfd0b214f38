// Start-up: from process start to the product window showing 1,000 products
// loaded from a local product service, against the floor for any such window:
// the plainest Qt Widgets window with a 1,000-row table and an idle HTTP
// client. Both are timed as whole processes; the peak memory of each child
// comes from the kernel when it is reaped.

#include "BenchCatalogue.h"
#include "ChildRun.h"
#include "ProductServiceThread.h"
#include "model/SettingsData.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds kShowLimit{60};
constexpr qsizetype kProducts = 1'000;

// A home whose settings open one dossier with a key, as after a first set-up.
void writeSettings(const QString& home)
{
    Dossier dossier;
    dossier.name = u"Bench"_s;
    dossier.apiKey = u"bench-key"_s;
    SettingsData data;
    data.bookyear = SettingsData::currentYear();
    data.dossiers = {dossier};
    data.selectedDossierID = dossier.id;
    data.templates = {LabelTemplate::defaultTemplate()};
    data.selectedTemplateID = data.templates.first().id;
    QDir(home).mkpath(u".stampix"_s);
    QFile file(home + u"/.stampix/settings.json"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(data.write()) < 0)
        throw std::runtime_error("the settings of the start-up home could not be written");
}

void measure(benchmark::State& state, const QString& program, const QStringList& arguments,
             const QString& home)
{
    double peakKiB = 0;
    for (auto _ : state) {
        const ChildRun::Result result = ChildRun::run(program, arguments, home, kShowLimit);
        state.SetIterationTime(result.untilShown.count());
        peakKiB += double(result.peakResidentKiB);
    }
    state.counters["peak_rss_kib"] =
        benchmark::Counter(peakKiB, benchmark::Counter::kAvgIterations);
}

void startupProject(benchmark::State& state)
{
    ProductServiceThread service(BenchCatalogue::envelope(kProducts));
    QTemporaryDir home;
    writeSettings(home.path());
    measure(state, QStringLiteral(STAMPIX_STARTUP_PROBE),
            {service.baseUrl(), QString::number(kProducts)}, home.path());
}

void startupBaseline(benchmark::State& state)
{
    QTemporaryDir home;
    measure(state, QStringLiteral(STAMPIX_PLAIN_TABLE_WINDOW), {}, home.path());
}

} // namespace

BENCHMARK(startupProject)->Name("startup/project")->Arg(kProducts)->Iterations(3)->UseManualTime();
BENCHMARK(startupBaseline)
    ->Name("startup/baseline")
    ->Arg(kProducts)
    ->Iterations(3)
    ->UseManualTime();
