// Typing a query one keystroke at a time in the search field, as the model
// filters, against a plain scan over texts that are already lower-cased.

#include "BenchCatalogue.h"
#include "LoadedModel.h"

#include <QString>
#include <QStringView>
#include <benchmark/benchmark.h>
#include <chrono>
#include <optional>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

const QString kQuery = QString::fromUtf16(BenchCatalogue::kQuery);

void filterProject(benchmark::State& state)
{
    LoadedModel loaded(state.range(0));
    ProductListViewModel& model = loaded.model();
    for (auto _ : state) {
        model.setSearchText(QString());
        const auto start = Clock::now();
        for (qsizetype length = 1; length <= kQuery.size(); ++length)
            model.setSearchText(kQuery.left(length));
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["matches"] = double(model.filteredCount());
}

struct LowerTexts
{
    QString sku;
    QString displayName;
    QString barcode;
    std::optional<QString> description;
};

void filterBaseline(benchmark::State& state)
{
    const QList<Product>& products = BenchCatalogue::products(state.range(0));
    std::vector<LowerTexts> texts;
    texts.reserve(products.size());
    for (const Product& product : products) {
        texts.push_back(
            {product.sku().toLower(), product.displayName().toLower(), product.barcode().toLower(),
             product.Description ? std::optional(product.Description->toLower()) : std::nullopt});
    }
    std::vector<qsizetype> matches;
    for (auto _ : state) {
        const auto start = Clock::now();
        for (qsizetype length = 1; length <= kQuery.size(); ++length) {
            const QString query = kQuery.left(length).toLower();
            matches.clear();
            for (size_t index = 0; index < texts.size(); ++index) {
                const LowerTexts& t = texts[index];
                if (QStringView(t.sku).contains(query) ||
                    QStringView(t.displayName).contains(query) ||
                    QStringView(t.barcode).contains(query) ||
                    (t.description && QStringView(*t.description).contains(query)))
                    matches.push_back(qsizetype(index));
            }
            benchmark::DoNotOptimize(matches.data());
        }
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["matches"] = double(matches.size());
}

} // namespace

BENCHMARK(filterProject)->Name("filter/project")->Arg(1'000)->UseManualTime();
BENCHMARK(filterBaseline)->Name("filter/baseline")->Arg(1'000)->UseManualTime();
