// How fast the communications log is shown, how long the worker's appends wait meanwhile, and what
// a line takes of memory.

#include "RunBenchmarks.h"

#include "link/SensorLink.h"
#include "pages/CommLogPage.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "sensor/SequenceRunner.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFontDatabase>
#include <QListView>
#include <QListWidget>
#include <QPushButton>

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <vector>

using namespace pelorin;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLines = 1'000'000;
constexpr int kLogList = 1032;
constexpr int kClearButton = 1033;
constexpr QSize kWindowSize(1920, 1080);

/// A line as exchanges make them.
QString lineOf(int number)
{
    return number % 2 == 0
               ? QString::asprintf("TX: [%02X][Get][TERM]", 0x41U + number % 26U)
               : QString::asprintf("RX: [30][30][31][32][33][%02X][TERM]", 0x30U + number % 10U);
}

void fill(CommLog& log)
{
    for (int number = log.snapshot().size(); number < kLines; ++number)
        log.append(lineOf(number));
}

/// Notices when a widget has been painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }

    /// Processes events until the widget has been painted.
    void waitForPaint()
    {
        m_painted = false;
        while (!m_painted)
            QCoreApplication::processEvents();
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

/// The page in a window, on a link that has no port.
class PageRig
{
public:
    PageRig()
    {
        m_window.resize(kWindowSize);
        m_page->makeDialog(&m_window, m_runner);
        m_page->setGeometry(QRect(QPoint(), kWindowSize));
        m_page->show();
        m_watch = new PaintWatch(m_page->getControl<QListView>(kLogList)->viewport());
        m_window.show();
        m_watch->waitForPaint();
    }

    [[nodiscard]] CommLog& log() { return m_link.commLog(); }

    /// With one line more than before: what is shown already is not shown anew.
    void showLog()
    {
        log().append(lineOf(0));
        m_page->getCurrentValues();
        m_watch->waitForPaint();
    }

    void clearLog()
    {
        m_page->getControl<QPushButton>(kClearButton)->click();
        m_watch->waitForPaint();
    }

private:
    ComPortFactory m_factory{[](const QString&) { return std::unique_ptr<ComPort>(); }};
    SensorLink m_link{m_factory};
    SequenceRunner m_runner{m_link};
    QWidget m_window;
    CommLogPage* m_page = new CommLogPage; ///< owned by the window
    PaintWatch* m_watch = nullptr;
};

/// From the call to the painted list; at most 60 ms are wanted.
void pageShowsAMillionLines(benchmark::State& state)
{
    PageRig rig;
    fill(rig.log());
    for ([[maybe_unused]] auto round : state)
        rig.showLog();
}

/// The same with a list widget that gets an item for each line.
void listWidgetShowsAMillionLines(benchmark::State& state)
{
    CommLog log;
    fill(log);
    QListWidget list;
    list.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list.resize(kWindowSize);
    PaintWatch watch(list.viewport());
    list.show();
    watch.waitForPaint();
    for ([[maybe_unused]] auto round : state) {
        list.clear();
        const auto lines = log.snapshot();
        for (int index = 0; index < lines.size(); ++index)
            list.addItem(lines.line(index));
        watch.waitForPaint();
    }
}

/// What the log takes of the heap for each of a million lines.
void memoryPerLine(benchmark::State& state)
{
    for ([[maybe_unused]] auto round : state) {
        malloc_trim(0);
        const auto before = mallinfo2();
        CommLog log;
        fill(log);
        const auto after = mallinfo2();
        const auto taken = after.uordblks + after.hblkhd - before.uordblks - before.hblkhd;
        state.counters["bytes_per_line"] = static_cast<double>(taken) / kLines;
    }
}

/// Appends from a thread of its own all the time and keeps how long the appends took.
class Appender
{
public:
    explicit Appender(CommLog& log) : m_thread([this, &log] { run(log); }) {}
    Appender(const Appender&) = delete;
    Appender& operator=(const Appender&) = delete;
    ~Appender() { (void)longest(); }

    /// Ends the thread. @return the longest append, in milliseconds
    double longest()
    {
        m_stopped = true;
        if (m_thread.joinable())
            m_thread.join();
        return std::chrono::duration<double, std::milli>(m_longest).count();
    }

private:
    void run(CommLog& log)
    {
        const QString line = lineOf(1);
        while (!m_stopped) {
            const auto start = Clock::now();
            log.append(line);
            m_longest = std::max(m_longest, Clock::now() - start);
            std::this_thread::sleep_for(std::chrono::microseconds(20));
        }
    }

    Clock::duration m_longest{};
    std::atomic<bool> m_stopped = false;
    std::thread m_thread;
};

/// The longest append while nobody, or somebody, does something with a log of a million lines; at
/// most 1 ms is wanted. What an append takes while nobody does anything is the machine's share.
template <class Operation>
void appendBeside(benchmark::State& state, Operation operation)
{
    PageRig rig;
    std::vector<double> longest;
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        fill(rig.log());
        Appender appender(rig.log());
        state.ResumeTiming();
        operation(rig);
        state.PauseTiming();
        longest.push_back(appender.longest());
        state.ResumeTiming();
    }
    std::sort(longest.begin(), longest.end());
    state.counters["longest_append_ms"] = longest.back();
    state.counters["median_of_longest_ms"] = longest[longest.size() / 2];
}

void appendBesideNothing(benchmark::State& state)
{
    appendBeside(state, [](PageRig&) {
        std::this_thread::sleep_for(std::chrono::milliseconds(30)); // as long as a refill
    });
}

/// Many, so that some meet an append; not one right after the other, as no page takes them.
void appendBesideSnapshots(benchmark::State& state)
{
    appendBeside(state, [](PageRig& rig) {
        for (int count = 0; count < 100; ++count) {
            benchmark::DoNotOptimize(rig.log().snapshot());
            std::this_thread::sleep_for(std::chrono::microseconds(20));
        }
    });
}

void appendBesideARefill(benchmark::State& state)
{
    appendBeside(state, [](PageRig& rig) { rig.showLog(); });
}

void appendBesideClear(benchmark::State& state)
{
    appendBeside(state, [](PageRig& rig) { rig.clearLog(); });
}

BENCHMARK(pageShowsAMillionLines)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(listWidgetShowsAMillionLines)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);
BENCHMARK(memoryPerLine)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(appendBesideNothing)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(appendBesideSnapshots)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(appendBesideARefill)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(appendBesideClear)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

} // namespace

int main(int argc, char* argv[])
{
    return runBenchmarks<QApplication>(argc, argv);
}
