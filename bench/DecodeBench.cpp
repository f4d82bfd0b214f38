// Decoding a product response into products, against parsing the same bytes
// into a JSON document and nothing more.

#include "BenchCatalogue.h"
#include "services/ProductAPIResponse.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>
#include <stdexcept>

namespace {

void decodeProject(benchmark::State& state)
{
    const QByteArray& body = BenchCatalogue::envelope(state.range(0));
    for (auto _ : state) {
        QString error;
        std::optional<ProductAPIResponse> response = ProductAPIResponse::decode(body, &error);
        if (!response || !response->data || response->data->size() != state.range(0))
            throw std::runtime_error("the catalogue did not decode");
        benchmark::DoNotOptimize(response);
    }
}

void decodeBaseline(benchmark::State& state)
{
    const QByteArray& body = BenchCatalogue::envelope(state.range(0));
    for (auto _ : state) {
        QJsonDocument document = QJsonDocument::fromJson(body);
        if (!document.isObject())
            throw std::runtime_error("the catalogue is not a JSON object");
        benchmark::DoNotOptimize(document);
    }
}

} // namespace

BENCHMARK(decodeProject)->Name("decode/project")->Arg(1'000)->Arg(100'000)->UseRealTime();
BENCHMARK(decodeBaseline)->Name("decode/baseline")->Arg(1'000)->Arg(100'000)->UseRealTime();
