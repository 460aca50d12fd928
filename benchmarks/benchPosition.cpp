// How many polls of the position stream give a position, on a line of real speed, the frames in
// random phase to the poll: a poll discards what has arrived, and a frame whose beginning is
// discarded is none.

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/MessageCollector.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <random>
#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

constexpr int kPolls = 400;
constexpr int kFrameBytes = 9;
constexpr double kSecondsPerByte = 10.0 / 38400;

int await(const MessageCollector& window, RequestId request)
{
    while (window.resultOf(request) < 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return window.resultOf(request);
}

void positionPoll(benchmark::State& state)
{
    const auto framesPerSecond = static_cast<int>(state.range(0));
    const auto sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.moving = true, .framesPerSecond = framesPerSecond});
    sensor->setParameter('D', "4E0519"); // asks for the stream
    const ComPortFactory factory(
        [&sensor](const QString&) { return std::make_unique<SimulatedComPort>(sensor); });
    MessageCollector window;
    SensorLink link(factory);
    link.setReplyTarget(&window, WM_LINK_REPLY);
    if (await(window, link.open(1)) != 1 ||
        await(window, link.requestStreamMode(1, 0x19, 5)) != 1 ||
        await(window, link.requestSupply(true)) != 1)
        std::abort();
    while (await(window, link.requestPosition()) != 1) {
    }

    std::mt19937 random(1);
    std::uniform_int_distribution<int> phase(0, 20'000);
    int positions = 0;
    for (auto _ : state) {
        std::this_thread::sleep_for(std::chrono::microseconds(phase(random)));
        const auto start = std::chrono::steady_clock::now();
        positions += await(window, link.requestPosition());
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    // A poll that falls behind the first byte of a frame fails.
    const double expected = 1.0 - (kFrameBytes - 1) * kSecondsPerByte * framesPerSecond;
    state.counters["polls"] = kPolls;
    state.counters["positions"] = positions;
    state.counters["positions_percent"] = 100.0 * positions / kPolls;
    state.counters["expected_percent"] = 100.0 * expected;
}

BENCHMARK(positionPoll)
    ->ArgName("frames_per_second")
    ->Arg(100)
    ->Arg(400)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kPolls);

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
