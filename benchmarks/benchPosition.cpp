// What comes of a position stream on a line of real speed. A request for a position that begins
// anywhere in a frame: alone, which discards what has arrived and reads on to a whole frame, and of
// the followed stream, whose newest frame it gets. And a stream that is followed for a minute: how
// many of its frames arrive, and what that costs.

#include "RunBenchmarks.h"

#include "link/SensorLink.h"
#include "link/SensorProtocol.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/MessageCollector.h"

#include <QCoreApplication>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <sys/resource.h>

#include <random>
#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPolls = 400;
constexpr int kLineLimit = 426; ///< frames of nine bytes a second at 38400 baud

int await(const MessageCollector& window, RequestId request)
{
    while (window.resultOf(request) < 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return window.resultOf(request);
}

std::shared_ptr<SimulatedSensor>
streamingSensor(int framesPerSecond,
                SimulatedSensor::Supply supply = SimulatedSensor::Supply::ByRts)
{
    const auto sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{
        .supply = supply, .moving = true, .framesPerSecond = framesPerSecond});
    sensor->setParameter('D', "4E0519"); // asks for the stream
    return sensor;
}

void waitForPhase(std::mt19937& random)
{
    std::uniform_int_distribution<int> phase(0, 20'000);
    std::this_thread::sleep_for(std::chrono::microseconds(phase(random)));
}

/// Asks for positions in random phase to the frames.
void askForPositions(benchmark::State& state, const std::function<bool()>& ask)
{
    std::mt19937 random(1);
    int positions = 0;
    for (auto _ : state) {
        waitForPhase(random);
        const auto start = Clock::now();
        positions += ask() ? 1 : 0;
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
    state.counters["polls"] = kPolls;
    state.counters["positions_percent"] = 100.0 * positions / kPolls;
}

void singlePosition(benchmark::State& state)
{
    SimulatedComPort port(streamingSensor(static_cast<int>(state.range(0))));
    if (port.open() != 0 || port.setLine({38400}) != 0 || port.setRts(false) != 0)
        std::abort();
    CommLog log;
    SensorProtocol protocol(port, log, {[] {}, [] {}, [](auto) { return true; }});
    while (!protocol.readPositionFrame()) {
    }
    askForPositions(state, [&protocol] { return protocol.readPositionFrame().has_value(); });
}

/// Takes what is handed over when it is told of it.
class Taker final : public QObject
{
public:
    explicit Taker(SensorLink& link) : m_link(link) {}

    qint64 taken = 0;
    int malformed = 0;

protected:
    void customEvent(QEvent* /*event*/) override
    {
        const PositionBatch batch = m_link.takeFrames();
        taken += batch.samples.size();
        malformed += batch.malformed;
    }

private:
    SensorLink& m_link;
};

/// The link on a stream that it follows: in this process, or over a terminal of the system.
struct FollowedStream
{
    explicit FollowedStream(int framesPerSecond, bool terminal = false)
        : sensor(streamingSensor(framesPerSecond, terminal ? SimulatedSensor::Supply::ByLineSpeed
                                                           : SimulatedSensor::Supply::ByRts))
    {
        if (terminal && server.start() != 0)
            std::abort();
        link.setReplyTarget(&window, WM_LINK_REPLY);
        link.setFramesTarget(&taker);
        if (await(window, link.open(1)) != 1 ||
            await(window, link.requestStreamMode(1, 0x19, 5)) != 1 ||
            await(window, link.requestSupply(true)) != 1)
            std::abort();
        while (await(window, link.requestPosition()) != 1) {
        }
    }

    [[nodiscard]] std::unique_ptr<ComPort> makePort() const
    {
        if (const std::string path = server.path(); !path.empty())
            return std::make_unique<TermiosComPort>(path);
        return std::make_unique<SimulatedComPort>(sensor);
    }

    const std::shared_ptr<SimulatedSensor> sensor;
    PtyServer server{sensor};
    const ComPortFactory factory{[this](const QString&) { return makePort(); }};
    MessageCollector window;
    SensorLink link{factory};
    Taker taker{link};
};

void followedPosition(benchmark::State& state)
{
    FollowedStream stream(static_cast<int>(state.range(0)));
    askForPositions(state,
                    [&stream] { return await(stream.window, stream.link.requestPosition()) == 1; });
}

double cpuSeconds()
{
    rusage usage{};
    (void)getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void processEventsFor(Clock::duration time)
{
    QTimer end;
    for (const auto limit = Clock::now() + time; Clock::now() < limit;) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(limit - Clock::now());
        end.start(rest);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

/// @param state range 0: frames a second, range 1: how many times as fast all goes, range 2:
/// seconds, range 3: over a terminal
void followedStream(benchmark::State& state)
{
    const auto speed = static_cast<int>(state.range(1));
    Pacing::setSpeeds({1, static_cast<double>(speed), 1});
    FollowedStream stream(static_cast<int>(state.range(0)) * speed, state.range(3) != 0);
    for (auto _ : state) {
        const double cpu = cpuSeconds();
        const auto memory = mallinfo2().uordblks;
        const auto start = Clock::now();
        processEventsFor(std::chrono::seconds(state.range(2)));
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        const double used = cpuSeconds() - cpu;
        const auto grown = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(memory);
        // One frame may begin in between.
        const int sent = stream.sensor->positionFrames();
        stream.sensor->setFault({SimulatedFault::Kind::Silent}, "stream");
        processEventsFor(100ms);
        state.SetIterationTime(seconds);
        state.counters["sent"] = sent;
        state.counters["taken"] = static_cast<double>(stream.taker.taken);
        state.counters["lost"] =
            std::max(0.0, static_cast<double>(sent) - static_cast<double>(stream.taker.taken));
        state.counters["malformed"] = stream.taker.malformed;
        state.counters["cpu_percent"] = 100.0 * used / seconds;
        state.counters["memory_growth_kb"] = grown / 1024;
    }
    Pacing::setSpeeds({});
}

#define POSITIONS(function)                                                                        \
    BENCHMARK(function)                                                                            \
        ->ArgName("frames_per_second")                                                             \
        ->Arg(50)                                                                                  \
        ->Arg(100)                                                                                 \
        ->Arg(400)                                                                                 \
        ->Arg(kLineLimit)                                                                          \
        ->UseManualTime()                                                                          \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Iterations(kPolls)

POSITIONS(singlePosition);
POSITIONS(followedPosition);
BENCHMARK(followedStream)
    ->ArgNames({"frames_per_second", "speed", "seconds", "terminal"})
    ->Args({kLineLimit, 1, 60, 0})
    ->Args({kLineLimit, 1, 60, 1})
    ->Args({kLineLimit, 4, 60, 0})
    ->UseManualTime()
    ->Iterations(1);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
