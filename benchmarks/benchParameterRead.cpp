// One parameter read over a pseudo-terminal whose other end answers at once: from requestRead to
// the posted completion, against a bare loop in one thread that moves the same bytes in the same
// time on the line.

#include "RunBenchmarks.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/TermiosComPort.h"
#include "support/MessageCollector.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <string>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kByteTime = std::chrono::nanoseconds(std::chrono::seconds(10)) / 4800;
constexpr int kRequestBytes = 3;
constexpr double kRatioLimit = 1.1;

/// A sensor at a pseudo-terminal that answers every read at once.
class InstantSensor
{
public:
    InstantSensor()
    {
        char name[64] = {};
        termios raw = {};
        cfmakeraw(&raw);
        if (openpty(&m_master, &m_slave, name, &raw, nullptr) != 0)
            std::abort();
        m_path = name;
        m_thread = std::thread([this] { run(); });
    }
    ~InstantSensor()
    {
        m_stop = true;
        m_thread.join();
        ::close(m_master);
        ::close(m_slave);
    }

    [[nodiscard]] const std::string& path() const { return m_path; }

private:
    void run()
    {
        std::string request;
        while (!m_stop) {
            pollfd ready{m_master, POLLIN, 0};
            char byte = 0;
            if (::poll(&ready, 1, 50) != 1 || ::read(m_master, &byte, 1) != 1)
                continue;
            request += byte;
            if (byte != '\r')
                continue;
            request.clear();
            if (::write(m_master, "4A0519\r", 7) != 7)
                std::abort();
        }
    }

    int m_master = -1;
    int m_slave = -1; ///< keeps the terminal while no port is open
    std::string m_path;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

double medianMs(std::vector<double> seconds)
{
    std::nth_element(seconds.begin(), seconds.begin() + std::ssize(seconds) / 2, seconds.end());
    return seconds[seconds.size() / 2] * 1e3;
}

/// Processes events until a request is answered. @return its result
int await(const MessageCollector& window, RequestId request)
{
    while (window.messages().empty() || window.messages().back().request != request)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return window.messages().back().wParam;
}

double bareMedianMs = 0; ///< of bareLoop, which runs first

/// Reports what each read took, and its median beyond the time of the request's bytes.
void report(benchmark::State& state, const std::vector<double>& seconds)
{
    const double median = medianMs(seconds);
    state.counters["median_ms"] = median;
    state.counters["beyond_line_us"] =
        median * 1e3 - std::chrono::duration<double, std::micro>(kRequestBytes * kByteTime).count();
}

void bareLoop(benchmark::State& state)
{
    const InstantSensor sensor;
    const int port = ::open(sensor.path().c_str(), O_RDWR | O_NOCTTY);
    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        (void)tcflush(port, TCIFLUSH);
        if (::write(port, "DA\r", kRequestBytes) != kRequestBytes || tcdrain(port) != 0)
            std::abort();
        std::this_thread::sleep_until(start + kRequestBytes * kByteTime);
        char byte = 0;
        while (byte != '\r' && ::read(port, &byte, 1) == 1) {
        }
        seconds.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        state.SetIterationTime(seconds.back());
    }
    ::close(port);
    report(state, seconds);
    bareMedianMs = medianMs(seconds);
}

void parameterRead(benchmark::State& state)
{
    const InstantSensor sensor;
    const ComPortFactory factory(
        [&sensor](const QString&) { return std::make_unique<TermiosComPort>(sensor.path()); });
    SensorLink link(factory);
    MessageCollector window;
    link.setReplyTarget(&window, WM_LINK_REPLY);
    if (await(window, link.open(1)) != 1)
        std::abort();

    std::vector<double> seconds;
    for (auto _ : state) {
        const auto start = Clock::now();
        if (await(window, link.requestRead('D')) != 1)
            std::abort();
        seconds.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        state.SetIterationTime(seconds.back());
    }
    report(state, seconds);
    state.counters["ratio_to_bare"] = medianMs(seconds) / bareMedianMs;
    state.counters["ratio_limit"] = kRatioLimit;
}

BENCHMARK(bareLoop)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(400);
BENCHMARK(parameterRead)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(400);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QCoreApplication>(argc, argv);
}
