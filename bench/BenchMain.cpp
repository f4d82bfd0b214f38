// The benchmark program: Google Benchmark inside a Qt application, so the
// event loop, sockets and timers behave as they do in the app.

#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
