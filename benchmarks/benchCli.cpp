// The command line: a command that needs no sensor, from the start of the process to its end, and
// its memory; and the information of a type 2 sensor on a line paced at 4800 baud, the process
// included, against the time of its bytes on the line and the fixed pauses.

#include "RunBenchmarks.h"

#include "simulator/SimulatedSensor.h"
#include "support/TestRegistry.h"

#include <QCoreApplication>
#include <QProcess>

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <string_view>

using namespace pelorin;

namespace {

constexpr double kStartLimit = 0.03; ///< seconds
constexpr double kMemoryLimit = 20;  ///< MB
constexpr double kRatioLimit = 1.05;

constexpr double kSecondsPerByte = 10.0 / 4800;
constexpr double kPause = 0.1;       ///< between the requests of a sequence
constexpr double kSupplyPause = 0.5; ///< how long the supply is off
constexpr std::size_t kProgBytes = std::size_t{101} * 5;
constexpr std::string_view kParameters = "DALFVUSPZNMJKO";

const QByteArray kSettings = kProductKey + "\"Path\"=\"C:\\\\Pelorin\"\r\n" + kSimulatedBounds;

/// Runs the program to its end. @return seconds
double run(const QStringList& arguments)
{
    QProcess program;
    const auto begin = std::chrono::steady_clock::now();
    program.start(QStringLiteral(PELORIN_CLI), arguments);
    if (!program.waitForFinished(60'000) || program.exitCode() != EXIT_SUCCESS)
        std::abort();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The largest of all processes that have ended, in MB.
double memory()
{
    rusage usage{};
    (void)getrusage(RUSAGE_CHILDREN, &usage); // cannot fail for this
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void start(benchmark::State& state)
{
    const TestRegistry settings(kSettings);
    (void)run({QStringLiteral("ports")}); // from here on it is warm
    for (auto _ : state)
        state.SetIterationTime(run({QStringLiteral("ports")}));
    state.counters["limit_s"] = kStartLimit;
    state.counters["memory_MB"] = memory();
    state.counters["memory_limit_MB"] = kMemoryLimit;
}

double floorSeconds()
{
    const SimulatedSensor sensor({.type = 2});
    const auto bytesOf = [&sensor](char id) { return 3 + sensor.parameter(id).size() + 1; };
    std::size_t bytes = kProgBytes + bytesOf('V');
    for (const char id : kParameters)
        bytes += bytesOf(id);
    return static_cast<double>(bytes) * kSecondsPerByte + kSupplyPause +
           static_cast<double>(kParameters.size() - 1) * kPause;
}

void info(benchmark::State& state)
{
    const TestRegistry settings(kSettings);
    const double floor = floorSeconds();
    double seconds = 0;
    for (auto _ : state) {
        seconds = run({QStringLiteral("info"), QStringLiteral("--port"),
                       QStringLiteral("simulator:sensor?type=2")});
        state.SetIterationTime(seconds);
    }
    state.counters["line_and_pauses_s"] = floor;
    state.counters["ratio"] = seconds / floor;
    state.counters["ratio_limit"] = kRatioLimit;
}

BENCHMARK(start)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(info)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
