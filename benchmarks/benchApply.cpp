// Apply of the output setup of a type 2 sensor on a line paced at 4800 baud, with safe writes and
// without, against the time of its bytes on the line and the fixed pauses, the restart included.

#include "RunBenchmarks.h"

#include "pages/OutputSetupPage.h"
#include "platform/core/Pacing.h"
#include "sensor/SafeWriter.h"
#include "support/MainWindowRig.h"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <string_view>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

using Seconds = std::chrono::duration<double>;

constexpr double kSecondsPerByte = 10.0 / 4800;
constexpr double kPause = 0.1;       ///< between the requests of a sequence
constexpr double kStorePause = 2.0;  ///< after the closing command
constexpr double kSupplyPause = 0.5; ///< how long the supply is off
constexpr std::size_t kProgBytes = std::size_t{101} * 5;
constexpr double kRatioLimit = 1.05;
constexpr auto kRest = 50ms; ///< a click right behind the end of a read counts as made meanwhile
constexpr std::string_view kParameters = "DASNK";

const QByteArray kSettings =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"SafeWrites\"=dword:0000000";

/// A read's bytes, its reply's included, or a write's.
std::size_t bytesOf(const SimulatedSensor& sensor, std::string_view ids)
{
    std::size_t bytes = 0;
    for (const char id : ids)
        bytes += 2 + sensor.parameter(id).size() + 1;
    return bytes;
}

double sequenceSeconds(std::size_t bytes, std::size_t pauses)
{
    return static_cast<double>(bytes) * kSecondsPerByte + static_cast<double>(pauses) * kPause;
}

double floorSeconds(const SimulatedSensor& sensor, bool safe)
{
    const std::size_t count = kParameters.size();
    const std::size_t texts = bytesOf(sensor, kParameters);
    const double writes = sequenceSeconds(texts + 3, count - 1); // none before the closing command
    if (!safe)
        return writes;
    const double reads = sequenceSeconds(texts + count, count - 1); // each a CR more than a write
    const double restart =
        kStorePause + kSupplyPause + sequenceSeconds(kProgBytes + bytesOf(sensor, "V") + 1, 0);
    return reads + writes + restart + reads;
}

void apply(benchmark::State& state, bool safe)
{
    test::MainWindowRig rig({.type = 2}, kSettings + (safe ? "1\r\n" : "0\r\n"));
    rig.sensor().setParameter('N', "000000"); // an offset would be asked about
    if (!rig.startConnected() || !rig.choosePage(2))
        std::abort();
    auto& page = rig.page<OutputSetupPage>();
    QTest::keyClick(page.getControl<QComboBox>(1004), Qt::Key_Up);

    Pacing::setSpeeds({});
    const double floor = floorSeconds(rig.sensor(), safe);
    QEventLoop loop;
    std::optional<WriteResult::Kind> kind;
    QObject::connect(rig.window().findChild<SafeWriter*>(), &SafeWriter::ended, &loop,
                     [&](const WriteResult& result) {
                         kind = result.kind;
                         loop.quit();
                     });
    double seconds = 0;
    for (auto _ : state) {
        std::chrono::steady_clock::time_point start;
        QTimer::singleShot(kRest, &loop, [&] {
            start = std::chrono::steady_clock::now();
            QTest::mouseClick(page.getControl<QPushButton>(1028), Qt::LeftButton);
        });
        loop.exec();
        seconds = Seconds(std::chrono::steady_clock::now() - start).count();
        state.SetIterationTime(seconds);
    }
    if (kind != (safe ? WriteResult::Kind::Verified : WriteResult::Kind::NotChecked))
        std::abort();
    Pacing::setSpeeds({100, 200, 1});
    (void)rig.waitIdle();
    state.counters["line_and_pauses_s"] = floor;
    state.counters["ratio"] = seconds / floor;
    state.counters["ratio_limit"] = kRatioLimit;
}

BENCHMARK_CAPTURE(apply, with_safe_writes, true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_CAPTURE(apply, without_safe_writes, false)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QApplication>(argc, argv);
}
