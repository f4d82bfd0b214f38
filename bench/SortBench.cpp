// Sorting the product table by article number and by name, as the table's
// QSortFilterProxyModel does it after a header click, against std::stable_sort
// over the same precomputed collation keys. The naive comparator, collating
// both texts on every comparison, shows what the precomputed keys save.

#include "BenchCatalogue.h"
#include "LoadedModel.h"
#include "views/main/ProductSortProxy.h"
#include "views/main/ProductTableModel.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <functional>
#include <numeric>
#include <stdexcept>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using TextOf = std::function<QString(const Product&)>;

TextOf textOf(int column)
{
    if (column == ProductTableModel::kSKUColumn)
        return [](const Product& product) {
            return product.sku();
        };
    return [](const Product& product) {
        return product.displayName();
    };
}

// Rows in price order: every sort starts from the order another column left.
std::vector<qsizetype> rowsByPrice(const QList<Product>& products)
{
    std::vector<qsizetype> rows(size_t(products.size()));
    std::iota(rows.begin(), rows.end(), qsizetype(0));
    std::stable_sort(rows.begin(), rows.end(), [&](qsizetype a, qsizetype b) {
        return products[a].sortablePrice() < products[b].sortablePrice();
    });
    return rows;
}

void sortProject(benchmark::State& state, int column)
{
    LoadedModel loaded(state.range(0));
    ProductTableModel table(loaded.model());
    ProductSortProxy proxy(table);
    const ProductSortProxy::SortKey byPrice{ProductTableModel::kPriceColumn, Qt::AscendingOrder};
    const ProductSortProxy::SortKey byColumn{column, Qt::AscendingOrder};
    for (auto _ : state) {
        proxy.setSortOrder({byPrice});
        proxy.rowCount();
        const auto start = Clock::now();
        proxy.setSortOrder({byColumn});
        proxy.rowCount(); // the proxy sorts when its rows are next asked for, as a view does
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    // The proxy must have sorted by the column, or the time means nothing.
    const QCollator collator = ProductSortProxy::textCollator();
    const TextOf text = textOf(column);
    for (int row = 1; row < proxy.rowCount(); ++row) {
        if (collator.compare(text(proxy.productAt(row - 1)), text(proxy.productAt(row))) > 0)
            throw std::runtime_error("the table is not sorted by the column");
    }
}

void sortBaseline(benchmark::State& state, int column)
{
    const QList<Product>& products = BenchCatalogue::products(state.range(0));
    const QCollator collator = ProductSortProxy::textCollator();
    const TextOf text = textOf(column);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(size_t(products.size()));
    for (const Product& product : products)
        keys.push_back(collator.sortKey(text(product)));
    const std::vector<qsizetype> start = rowsByPrice(products);
    std::vector<qsizetype> rows;
    for (auto _ : state) {
        rows = start;
        const auto begin = Clock::now();
        std::stable_sort(rows.begin(), rows.end(),
                         [&](qsizetype a, qsizetype b) { return keys[a].compare(keys[b]) < 0; });
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
        benchmark::DoNotOptimize(rows.data());
    }
}

void sortNaive(benchmark::State& state, int column)
{
    const QList<Product>& products = BenchCatalogue::products(state.range(0));
    const QCollator collator = ProductSortProxy::textCollator();
    const TextOf text = textOf(column);
    const std::vector<qsizetype> start = rowsByPrice(products);
    std::vector<qsizetype> rows;
    for (auto _ : state) {
        rows = start;
        const auto begin = Clock::now();
        std::stable_sort(rows.begin(), rows.end(), [&](qsizetype a, qsizetype b) {
            return collator.compare(text(products[a]), text(products[b])) < 0;
        });
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
        benchmark::DoNotOptimize(rows.data());
    }
}

// Typing in the search field with the table on screen: every keystroke
// refilters the model, resets the table model and makes the proxy sort the
// new rows (for information; the filter's own row times the model alone).
void filterWithTable(benchmark::State& state)
{
    LoadedModel loaded(state.range(0));
    ProductListViewModel& model = loaded.model();
    ProductTableModel table(model);
    ProductSortProxy proxy(table);
    const QString query = QString::fromUtf16(BenchCatalogue::kQuery);
    for (auto _ : state) {
        model.setSearchText(QString());
        proxy.rowCount(); // the empty query's rows are sorted before the typing starts
        const auto start = Clock::now();
        for (qsizetype length = 1; length <= query.size(); ++length)
            model.setSearchText(query.left(length));
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["rows"] = proxy.rowCount();
}

constexpr int kSKU = ProductTableModel::kSKUColumn;
constexpr int kName = ProductTableModel::kNameColumn;

} // namespace

BENCHMARK_CAPTURE(sortProject, sku, kSKU)->Name("sort_sku/project")->Arg(1'000)->UseManualTime();
BENCHMARK_CAPTURE(sortBaseline, sku, kSKU)->Name("sort_sku/baseline")->Arg(1'000)->UseManualTime();
BENCHMARK_CAPTURE(sortNaive, sku, kSKU)->Name("sort_sku/naive")->Arg(1'000)->UseManualTime();
BENCHMARK_CAPTURE(sortProject, name, kName)->Name("sort_name/project")->Arg(1'000)->UseManualTime();
BENCHMARK_CAPTURE(sortBaseline, name, kName)
    ->Name("sort_name/baseline")
    ->Arg(1'000)
    ->UseManualTime();
BENCHMARK_CAPTURE(sortNaive, name, kName)->Name("sort_name/naive")->Arg(1'000)->UseManualTime();
BENCHMARK(filterWithTable)->Name("filter_table/project")->Arg(1'000)->UseManualTime();
