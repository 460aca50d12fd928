// From the start of the process to the shown window, the memory that it then holds, and how often
// it wakes up while nothing happens. The measured program is this one, started again as what
// main() of the product does.

#include "RunBenchmarks.h"

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "simulator/PortFactory.h"
#include "simulator/SimulatedPorts.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTimer>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>

using namespace pelorin;

namespace {

constexpr double kStartLimit = 0.15; ///< seconds
constexpr double kMemoryLimit = 60;  ///< MB
constexpr double kWaitLimit = 30;    ///< seconds
constexpr int kIdleTime = 3000;      ///< ms

const QByteArray kSettings =
    kProductKey + "\"Path\"=\"C:\\\\Pelorin\"\r\n" + kSimulatedBounds +
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Help Files]\r\n"
    "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
    "\"simulator:sensor?type=2\"=\"COM9\"\r\n";

double now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// A number of a line "Name:   123 kB" of the process's or a thread's status.
long statusValue(const QString& file, const QByteArray& name)
{
    QFile status(file);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').front().toLong();
    }
    return 0;
}

/// How often all threads have gone to sleep and woken again.
long wakeUps()
{
    long sum = 0;
    for (const QString& thread :
         QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += statusValue(QStringLiteral("/proc/self/task/%1/status").arg(thread),
                           "voluntary_ctxt_switches");
    return sum;
}

/// Runs the event loop until a condition holds, which is asked whenever the loop has done
/// something. @return whether it holds in time
template <class Condition>
bool runUntil(Condition condition)
{
    const double limit = now() + kWaitLimit;
    while (!condition() && now() < limit)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

/// The measured process: prints when its window was shown, its memory, and its idle wake-ups.
int runMeasured(int argc, char* argv[])
{
    QApplication application(argc, argv);
    SimulatedPorts simulators;
    const ComPortFactory factory = realAndSimulatedPorts(simulators);
    PelorinApp pelorin(factory);
    QObject::connect(&pelorin, &PelorinApp::closed, &application, &QApplication::quit);
    // The window comes when the port has been opened.
    if (!pelorin.initInstance(QStringLiteral("/CP:9")) || !runUntil([&pelorin] {
            return pelorin.mainWindow() && pelorin.mainWindow()->windowHandle()->isExposed();
        }))
        return EXIT_FAILURE;
    const double shown = now();
    const long memory = statusValue(QStringLiteral("/proc/self/status"), "VmRSS");

    if (!runUntil([&pelorin] {
            return pelorin.mainWindow()->currentPage() == 0 && !pelorin.mainWindow()->isBusy();
        }))
        return EXIT_FAILURE;
    QEventLoop loop;
    QTimer::singleShot(kIdleTime, &loop, &QEventLoop::quit);
    const long before = wakeUps();
    loop.exec();
    // One wake-up is the measurement's own timer.
    std::printf("%.6f %ld %ld\n", shown, memory, wakeUps() - before - 1);
    pelorin.requestClose();
    return QApplication::exec();
}

void start(benchmark::State& state)
{
    const TestRegistry settings(kSettings);
    double memory = 0;
    double idle = 0;
    for (auto _ : state) {
        QProcess program;
        const double begin = now();
        program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--measured")});
        if (!program.waitForFinished(60'000) || program.exitCode() != EXIT_SUCCESS)
            std::abort();
        const auto values = program.readAllStandardOutput().split(' ');
        state.SetIterationTime(values[0].toDouble() - begin);
        memory = std::max(memory, values[1].toDouble() / 1024);
        idle = std::max(idle, values[2].toDouble() * 1000 / kIdleTime);
    }
    state.counters["limit_s"] = kStartLimit;
    state.counters["memory_MB"] = memory;
    state.counters["memory_limit_MB"] = kMemoryLimit;
    state.counters["idle_wakeups_per_s"] = idle;
}

BENCHMARK(start)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char* argv[])
{
    if (argc > 1 && std::string_view(argv[1]) == "--measured")
        return runMeasured(argc, argv);
    return runBenchmarks<QCoreApplication>(argc, argv);
}
