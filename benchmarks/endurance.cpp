// Unplugs the port and the whole window's port time and again, and takes a position stream that the
// line brings in a day: what the program holds of descriptors and memory must stay as it was after
// the first cycles.
//   endurance [<unplugs of the port> [<of the window> [<seconds of streaming>]]]
// Prints both at each tenth. Ends with 1 if either has grown from the second tenth on.

#include "OwnFolders.h"

#include "app/Commands.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "sensor/FormatRestore.h"
#include "sensor/PositionStream.h"
#include "sensor/RunnerBench.h"
#include "simulator/PtyServer.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PseudoTerminal.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPushButton>

#include <malloc.h>

#include <cstdio>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr qint64 kMostGrowth = 2048; // KiB; allocators keep some

struct Held
{
    qint64 descriptors =
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
    qint64 kibibytes = [] {
        malloc_trim(0);
        const auto heap = mallinfo2();
        return static_cast<qint64>((heap.uordblks + heap.hblkhd) / 1024);
    }();
};

/// Does something many times. @return whether it leaves nothing behind; false at the first failure
template <class Cycle>
bool repeat(const char* what, int times, Cycle cycle)
{
    QElapsedTimer clock;
    clock.start();
    Held first;
    Held last;
    for (int number = 1; number <= times; ++number) {
        if (!cycle()) {
            std::printf("%s: cycle %d has failed\n", what, number);
            return false;
        }
        if (number % std::max(times / 10, 1) != 0)
            continue;
        last = Held();
        if (number <= times / 5)
            first = last;
        std::printf("%s: %d of %d, %lld descriptors, %lld KiB in use, %lld s\n", what, number,
                    times, last.descriptors, last.kibibytes, clock.elapsed() / 1000);
        (void)std::fflush(stdout);
    }
    return last.descriptors <= first.descriptors && last.kibibytes <= first.kibibytes + kMostGrowth;
}

/// A port that is opened, used, unplugged and closed.
bool unplugPort()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    if (port.open() != 0 || port.write("DA\r").error != 0)
        return false;
    terminal.unplug();
    return port.read().error == ENODEV && !port.isOpen();
}

/// The window whose sensor goes while a page is read, and comes back.
class UnpluggedWindow
{
public:
    UnpluggedWindow()
    {
        m_rig.wrapPorts([this](std::unique_ptr<ComPort> /*other*/) {
            return std::make_unique<TermiosComPort>(m_server.path());
        });
        Pacing::setSpeeds({20, 200, 0.2}); // a loaded machine must not miss a time limit
        m_works = m_server.start() == 0 && m_rig.startConnected();
    }

    bool cycle()
    {
        const int losses = m_rig.link().lossCount();
        m_rig.link().commLog().clear(); // it grows, as it should
        (void)m_rig.frames();           // the simulated sensor keeps them
        m_rig.clickRefresh();
        m_rig.sensor().vanish();
        if (!m_works || !waitFor([&] { return m_rig.link().lossCount() > losses; }))
            return failed("the loss is not noticed");
        m_rig.sensor().comeBack();
        const auto isConnected = [this] {
            return m_rig.link().isIdentified() && m_rig.statusText() == QLatin1String("Ready.");
        };
        // On a loaded machine an answer may come too late all the same.
        for (int attempts = 0; attempts < 3; ++attempts) {
            if (waitFor(isConnected))
                return m_rig.waitIdle() || failed("it stays busy");
            std::printf("window: %s\n", qPrintable(m_rig.statusText()));
            (void)m_rig.clickCommand(kConnectCommand);
        }
        return failed("it does not connect");
    }

private:
    /// Tells what the window shows and what went over the line last.
    bool failed(const char* what)
    {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        const QString state =
            QStringLiteral("%1 | %2 | %3")
                .arg(m_rig.statusText(), m_rig.noticeText(), box ? box->text() : QString());
        std::printf("window: %s: %s, page %d, busy %d, identified %d, port failed %d\n", what,
                    qPrintable(state), m_rig.window().currentPage(), m_rig.window().isBusy(),
                    m_rig.link().isIdentified(), m_rig.link().linkFailed());
        const QStringList lines = m_rig.logged();
        std::puts(qPrintable(lines.mid(std::max<qsizetype>(lines.size() - 60, 0)).join(u'\n')));
        return false;
    }

    MainWindowRig m_rig{{.supply = SimulatedSensor::Supply::ByLineSpeed}};
    PtyServer m_server{m_rig.sharedSensor()};
    /// It may be gone for so long that the user is asked; on a loaded machine a worker may take so
    /// long to end that the user is told.
    const ModalAnswer<QMessageBox> m_answer{
        [](QMessageBox& box) {
            const bool asks = box.button(QMessageBox::Retry);
            box.button(asks ? QMessageBox::Retry : QMessageBox::Ok)->click();
        },
        false};
    bool m_works = false;
};

/// A stream of 20,000 frames a second, 47 times what the line brings. It is taken as the page
/// takes it; the page itself keeps the positions of ten minutes.
bool stream(int seconds)
{
    RunnerBench bench;
    bench.sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.moving = true, .framesPerSecond = 20'000});
    KeptFormats formats;
    FormatRestore restore(bench.runner, formats);
    PositionStream stream(bench.runner, formats, restore, false);
    qint64 frames = 0;
    QObject::connect(&stream, &PositionStream::frames, &stream,
                     [&frames](const auto& samples, int) { frames += samples.size(); });
    if (!bench.connectSensor() || !stream.start() || !waitFor([&] { return stream.isStreaming(); }))
        return false;
    QElapsedTimer clock;
    const bool isFlat = repeat("stream", 10, [&] {
        for (int tenths = 0; tenths < seconds; ++tenths) {
            clock.start();
            stream.requestPosition(); // which writes a line to the log
            (void)waitFor([&] { return clock.elapsed() >= 100; });
        }
        bench.link.commLog().clear(); // it grows, as it should
        return stream.isStreaming();
    });
    std::printf("stream: %lld frames, which the line brings in %.1f h\n", frames,
                static_cast<double>(frames) * 9 * 10 / 38400 / 3600);
    return isFlat;
}

} // namespace

int main(int argc, char* argv[])
{
    const OwnFolders folders;
    QApplication application(argc, argv);
    QPixmapCache::setCacheLimit(0); // else it grows up to its own bound of 10 MiB
    const QStringList arguments = QCoreApplication::arguments();
    bool isFlat = repeat("port", arguments.value(1, QStringLiteral("10000")).toInt(), unplugPort);
    {
        UnpluggedWindow window;
        isFlat = repeat("window", arguments.value(2, QStringLiteral("1000")).toInt(),
                        [&window] { return window.cycle(); }) &&
                 isFlat;
    }
    isFlat = stream(arguments.value(3, QStringLiteral("1850")).toInt()) && isFlat;
    std::puts(isFlat ? "Nothing has grown." : "Something has grown.");
    return isFlat ? 0 : 1;
}
