// A whole read of the information page of a type 2 sensor on a line paced at 4800 baud, against
// the time of its bytes on the line and the fixed pauses between its requests.

#include "RunBenchmarks.h"

#include "pages/SensorInfoPage.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"

#include <QApplication>
#include <QEventLoop>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

using namespace pelorin;

namespace {

constexpr double kSecondsPerByte = 10.0 / 4800;
constexpr double kPause = 0.1;
constexpr double kRatioLimit = 1.05;
constexpr int kTimeLimit = 30'000;
constexpr int kRest = 50; ///< ms; a click right behind the end of a read counts as made meanwhile
const QString kParameters = QStringLiteral("DALFVUSPZNMJKO");

/// The bytes of all requests and replies on the line, and the pauses between them.
double floorSeconds(const SimulatedSensor& sensor)
{
    std::size_t bytes = 0;
    for (const QChar id : kParameters)
        bytes += 3 + sensor.parameter(id.toLatin1()).size() + 1;
    return static_cast<double>(bytes) * kSecondsPerByte +
           static_cast<double>(kParameters.size() - 1) * kPause;
}

void informationPage(benchmark::State& state)
{
    test::MainWindowRig rig;
    rig.start();
    if (!QTest::qWaitFor([&rig] { return rig.window().currentPage() == 0; }, kTimeLimit))
        std::abort();
    (void)rig.waitIdle();

    Pacing::setSpeeds({});
    const auto* list = rig.page<SensorInfoPage>().findChild<QTableWidget*>();
    const double floor = floorSeconds(rig.sensor());
    // The last row is empty again first, and filled by the last reply.
    QEventLoop loop;
    QObject::connect(list, &QTableWidget::itemChanged, &loop,
                     [&loop](const QTableWidgetItem* item) {
                         if (item->row() == 17 && item->column() == 1 && !item->text().isEmpty())
                             loop.quit();
                     });
    double longest = 0;
    for (auto _ : state) {
        std::chrono::steady_clock::time_point start;
        QTimer::singleShot(kRest, &loop, [&] {
            start = std::chrono::steady_clock::now();
            rig.clickRefresh();
        });
        loop.exec();
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        longest = std::max(longest, seconds);
        state.SetIterationTime(seconds);
        (void)rig.waitIdle();
    }
    state.counters["line_and_pauses_s"] = floor;
    state.counters["worst_ratio"] = longest / floor;
    state.counters["ratio_limit"] = kRatioLimit;
}

BENCHMARK(informationPage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QApplication>(argc, argv);
}
