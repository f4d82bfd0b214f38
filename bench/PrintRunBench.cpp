// A print run of 1,000 labels, one connection each, through the printer
// transport and the event loop, against a blocking POSIX loop doing the same
// connect, send, close. Both deliver to the same kind of sink on loopback.

#include "BenchCatalogue.h"
#include "SinkThread.h"
#include "StallMeter.h"
#include "model/LabelTemplate.h"
#include "services/PrinterService.h"
#include "services/ZPLService.h"

#include <QCoroTask>
#include <algorithm>
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <chrono>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kDrainLimit{30};

// Times this thread gave up the processor while waiting; on a busy machine
// each one may cost a whole time slice of another process.
long voluntarySwitches()
{
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

QString labelText()
{
    return ZPLService()
        .generateZPL(BenchCatalogue::products(1).first(), LabelTemplate::kDefaultZPL)
        .value();
}

struct RunResult
{
    int failures = 0;
    double slowestLabelMs = 0;
};

QCoro::Task<RunResult> sendLabels(const PrinterService& service, QString zpl, quint16 port,
                                  int count)
{
    RunResult result;
    for (int label = 0; label < count; ++label) {
        const auto start = Clock::now();
        const std::optional<PrinterError> error =
            co_await service.sendZPL(zpl, u"127.0.0.1"_s, port);
        result.slowestLabelMs = std::max(result.slowestLabelMs, millisecondsSince(start));
        if (error)
            ++result.failures;
    }
    co_return result;
}

void waitForSink(const SinkThread& sink, int expected)
{
    if (!sink.waitForJobs(expected, kDrainLimit))
        throw std::runtime_error("the sink did not receive every label");
}

void printRunProject(benchmark::State& state)
{
    const int labels = int(state.range(0));
    const QString zpl = labelText();
    SinkThread sink;
    PrinterService service;
    StallMeter stalls;
    double longestStallMs = 0;
    double slowestLabelMs = 0;
    int failures = 0;
    long switches = 0;
    for (auto _ : state) {
        const int before = sink.jobCount();
        const long switchesBefore = voluntarySwitches();
        stalls.start();
        const auto start = Clock::now();
        const RunResult result = QCoro::waitFor(sendLabels(service, zpl, sink.port(), labels));
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        switches += voluntarySwitches() - switchesBefore;
        longestStallMs = std::max(longestStallMs, stalls.stop());
        slowestLabelMs = std::max(slowestLabelMs, result.slowestLabelMs);
        failures += result.failures;
        waitForSink(sink, before + labels - result.failures);
    }
    state.counters["max_stall_ms"] = longestStallMs;
    state.counters["slowest_label_ms"] = slowestLabelMs;
    state.counters["failures"] = failures;
    state.counters["waits_per_label"] = double(switches) / double(state.iterations() * labels);
}

void sendAll(int socket, const QByteArray& bytes)
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n =
            ::send(socket, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (n <= 0)
            throw std::runtime_error("the baseline could not send");
        sent += n;
    }
}

void printRunBaseline(benchmark::State& state)
{
    const int labels = int(state.range(0));
    const QByteArray bytes = labelText().toUtf8();
    SinkThread sink;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(sink.port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    double slowestLabelMs = 0;
    long switches = 0;
    for (auto _ : state) {
        const int before = sink.jobCount();
        const long switchesBefore = voluntarySwitches();
        const auto start = Clock::now();
        for (int label = 0; label < labels; ++label) {
            const auto labelStart = Clock::now();
            const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
            if (socket < 0 ||
                ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
                throw std::runtime_error("the baseline could not connect");
            sendAll(socket, bytes);
            ::close(socket);
            slowestLabelMs = std::max(slowestLabelMs, millisecondsSince(labelStart));
        }
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        switches += voluntarySwitches() - switchesBefore;
        waitForSink(sink, before + labels);
    }
    state.counters["slowest_label_ms"] = slowestLabelMs;
    state.counters["waits_per_label"] = double(switches) / double(state.iterations() * labels);
}

} // namespace

BENCHMARK(printRunProject)->Name("print_run/project")->Arg(1'000)->UseManualTime();
BENCHMARK(printRunBaseline)->Name("print_run/baseline")->Arg(1'000)->UseManualTime();
