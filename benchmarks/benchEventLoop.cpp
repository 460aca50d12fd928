// How long the user-interface thread keeps its event loop waiting while the program is used: the
// longest time between two passes of the loop during each thing that a user does, on a simulated
// sensor of real speed. Left out is what is not the program's own work: painting and its
// preparation by the toolkit, the waits for the disk of files that are saved, the toolkit's file
// dialog from its opening to its end, and the time for which other processes had the cores.

#include "RunBenchmarks.h"

#include "app/Commands.h"
#include "pages/FactoryParamsPage.h"
#include "pages/OutputSetupPage.h"
#include "platform/core/Pacing.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

using std::chrono::nanoseconds;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Clock = std::chrono::steady_clock;

constexpr double kLimit = 20; ///< ms
constexpr auto kTimeLimit = 120s;

const QByteArray kSettings = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
                             "\"EnableTempComp\"=dword:00000001\r\n";

/// What the user-interface thread has spent so far on what is left out.
nanoseconds leftOut{};

/// Adds its life to what is left out; once where several live at a time.
class LeftOut
{
public:
    LeftOut()
    {
        if (count++ == 0)
            start = Clock::now();
    }
    LeftOut(const LeftOut&) = delete;
    LeftOut& operator=(const LeftOut&) = delete;
    ~LeftOut()
    {
        if (--count == 0)
            leftOut += Clock::now() - start;
    }

private:
    static inline int count = 0;
    static inline Clock::time_point start;
};

/// How long this thread was ready to run while others had the cores, in its whole life: a loaded
/// machine must not count as a slow program.
class CoreWait
{
public:
    CoreWait() : m_file(::open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC)) {}
    CoreWait(const CoreWait&) = delete;
    CoreWait& operator=(const CoreWait&) = delete;
    ~CoreWait() { (void)::close(m_file); }

    [[nodiscard]] nanoseconds total() const
    {
        std::array<char, 80> text{};
        if (::pread(m_file, text.data(), text.size() - 1, 0) <= 0)
            return {};
        char* next = nullptr;
        (void)std::strtoull(text.data(), &next, 10); // the time on a core
        return nanoseconds(std::strtoll(next, nullptr, 10));
    }

private:
    const int m_file;
};

bool isFileDialogOpen()
{
    return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr;
}

/// Measures the stretches from one pass of the event loop to the next, or to its sleep. Nested
/// loops are passes, too: they take what the user does.
class LoopWatch final : public QObject
{
public:
    /// Once there is an application.
    void begin()
    {
        auto* loop = QAbstractEventDispatcher::instance();
        connect(loop, &QAbstractEventDispatcher::awake, this, [this] { pass(true); });
        connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, [this] { pass(false); });
    }

    void restart()
    {
        m_running = false;
        m_longest = {};
        m_cause.clear();
    }
    [[nodiscard]] Milliseconds longest() const { return m_longest; }
    /// The event that took most of it, and who got it.
    [[nodiscard]] const std::string& cause() const { return m_cause; }
    [[nodiscard]] int passes() const { return m_passes; }

    /// An event was taken, since the last pass.
    void note(nanoseconds time, QEvent::Type type, const std::string& receiver)
    {
        if (time < m_slowest)
            return;
        m_slowest = time;
        m_slowestEvent = receiver + ", event " + std::to_string(type);
    }

private:
    struct Time
    {
        Clock::time_point now = Clock::now();
        nanoseconds leftOut = ::leftOut;
        nanoseconds coreWait{};
    };

    void pass(bool begins)
    {
        Time time;
        time.coreWait = m_coreWait.total();
        if (m_running) {
            const nanoseconds taken = time.now - m_start.now - (time.leftOut - m_start.leftOut) -
                                      (time.coreWait - m_start.coreWait);
            if (taken > m_longest && !isFileDialogOpen()) {
                m_longest = taken;
                m_cause = m_slowestEvent;
            }
        }
        ++m_passes;
        m_slowest = {};
        m_slowestEvent.clear();
        m_running = begins;
        m_start = time;
        m_start.now = Clock::now();
    }

    const CoreWait m_coreWait;
    bool m_running = false;
    Time m_start;
    nanoseconds m_longest{};
    std::string m_cause;
    nanoseconds m_slowest{};
    std::string m_slowestEvent;
    int m_passes = 0;
};

/// Leaves out what is to be left out, and takes note of the slowest event.
class Application final : public QApplication
{
public:
    Application(int& argc, char** argv, LoopWatch& watch) : QApplication(argc, argv), m_watch(watch)
    {
    }

    bool notify(QObject* receiver, QEvent* event) override
    {
        if (thread() != QThread::currentThread())
            return QApplication::notify(receiver, event);
        const auto type = event->type();
        if (type == QEvent::Paint || type == QEvent::UpdateRequest || type == QEvent::Expose ||
            isFileDialogOpen()) {
            const LeftOut time;
            return QApplication::notify(receiver, event);
        }
        const int pass = m_watch.passes();
        const std::string name = receiver->metaObject()->className(); // may be gone afterwards
        const auto before = leftOut;
        const auto start = Clock::now();
        const bool taken = QApplication::notify(receiver, event);
        if (m_watch.passes() == pass)
            m_watch.note(Clock::now() - start - (leftOut - before), type, name);
        return taken;
    }

private:
    LoopWatch& m_watch;
};

/// The program, and the one who uses it.
class User
{
public:
    explicit User(LoopWatch& watch) : m_watch(watch)
    {
        checkMeasurement();
        Pacing::setSpeeds({});
        rig.start(); // making the window belongs to the start
        QObject::connect(&rig.window(), &PelorinMainWindow::closed, &rig.window(),
                         [this] { isClosed = true; });
        QObject::connect(&rig.runner(), &SequenceRunner::busyChanged, &rig.window(),
                         [this] { m_quiet.restart(); });
    }

    /// Does one thing from the event loop, and waits there until nothing has happened for a while.
    void take(const std::function<void()>& begin, std::chrono::milliseconds quietTime)
    {
        QEventLoop loop;
        QTimer poll;
        const auto limit = Clock::now() + kTimeLimit;
        QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
            if (Clock::now() > limit)
                fail("waiting");
            if (!isClosed && (rig.window().isBusy() || QApplication::activeModalWidget()))
                m_quiet.restart();
            if (m_quiet.hasExpired(quietTime.count()))
                loop.quit();
        });
        poll.start(20);
        QTimer::singleShot(0, &loop, begin);
        m_quiet.start();
        m_watch.restart();
        loop.exec();
        frames = rig.frames();
    }

    /// Ends the program, which has not done what it should.
    [[noreturn]] void fail(const char* what)
    {
        std::fprintf(stderr, "%s has failed: %s; the sensor has received %s\n", what,
                     qUtf8Printable(rig.statusText()), qUtf8Printable(frames));
        std::exit(EXIT_FAILURE);
    }

    void chooseFile(int command)
    {
        const QString path = m_folder.filePath(QStringLiteral("backup.dat"));
        m_fileUser.emplace(path, [this](QFileDialog& dialog) {
            // Its end waits for a thread that reads the folder, and is over with its last child.
            auto* last = new QObject(&dialog);
            QObject::connect(&dialog, &QDialog::finished, [this] { m_fileDialogEnd.emplace(); });
            QObject::connect(last, &QObject::destroyed, [this] { m_fileDialogEnd.reset(); });
        });
        (void)rig.clickCommand(command);
    }

    /// Whether the file was chosen, and nothing had to be said.
    [[nodiscard]] bool wasFileUsed() const
    {
        return m_fileUser->wasAsked() && m_fileUser->boxes().isEmpty();
    }

    void applyOutput()
    {
        auto& page = rig.page<OutputSetupPage>();
        QTest::keyClick(page.findChild<QComboBox*>(QStringLiteral("dataBitsCombo")), Qt::Key_Home);
        QTest::mouseClick(page.findChild<QPushButton*>(QStringLiteral("applyButton")),
                          Qt::LeftButton);
    }

    void applyFactory()
    {
        constexpr int kMultiplierRow = 4;
        auto& page = rig.page<FactoryParamsPage>();
        auto* list = page.findChild<QTableWidget*>();
        const auto click = [list](int row, int column) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(row, column)).center());
        };
        click(kMultiplierRow, 1);
        QTest::keyClicks(list->indexWidget(list->model()->index(kMultiplierRow, 1)),
                         QStringLiteral("0"));
        click(0, 0); // takes the entry
        QTest::mouseClick(page.findChild<QPushButton*>(), Qt::LeftButton);
    }

    test::MainWindowRig rig{{.type = 2}, kSettings};
    bool isClosed = false;
    QString frames; ///< that the sensor has received during what was done last

private:
    /// A thread that sleeps must be noticed.
    void checkMeasurement()
    {
        constexpr auto kSleep = 25ms;
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&loop, kSleep] {
            std::this_thread::sleep_for(kSleep);
            QTimer::singleShot(0, &loop, &QEventLoop::quit);
        });
        m_watch.restart();
        loop.exec();
        if (m_watch.longest() < kSleep)
            std::abort();
    }

    LoopWatch& m_watch;
    QTemporaryDir m_folder;
    std::optional<test::FileDialogUser> m_fileUser;
    std::optional<LeftOut> m_fileDialogEnd;
    QElapsedTimer m_quiet;
};

enum Page : int { kInformation, kPosition, kOutput, kLog, kFactory, kCompensation };

template <Page page>
void choose(User& user)
{
    user.rig.clickPage(page);
}

template <Page page>
bool isShown(User& user)
{
    return user.rig.window().currentPage() == page;
}

/// One thing that a user does, the next after those before it.
struct Action
{
    const char* name;
    void (*begin)(User&);
    bool (*hasWorked)(User&);
    std::chrono::milliseconds quietTime = 500ms;
};

constexpr Action kActions[] = {
    {"first connect", [](User&) {}, isShown<kInformation>},
    {"connect", [](User& user) { (void)user.rig.clickCommand(kConnectCommand); },
     isShown<kInformation>},
    {"information page", [](User& user) { user.rig.clickRefresh(); }, isShown<kInformation>},
    {"output page", choose<kOutput>, isShown<kOutput>},
    {"output Apply", [](User& user) { user.applyOutput(); },
     [](User& user) { return user.frames.endsWith(QLatin1String("CN")); }},
    {"log page", choose<kLog>, isShown<kLog>},
    {"factory page", choose<kFactory>, isShown<kFactory>},
    {"factory Apply", [](User& user) { user.applyFactory(); },
     [](User& user) { return user.frames.contains(QLatin1String(" NN")); }},
    {"compensation page", choose<kCompensation>, isShown<kCompensation>},
    {"backup", [](User& user) { user.chooseFile(kSaveBackupCommand); },
     [](User& user) { return user.wasFileUsed(); }},
    {"restore", [](User& user) { user.chooseFile(kRestoreBackupCommand); },
     [](User& user) { return user.wasFileUsed() && isShown<kInformation>(user); }},
    {"other language", [](User& user) { (void)user.rig.clickCommand(kFirstLanguageCommand + 1); },
     [](User& user) { return user.rig.languages().getCurrentLanguage() == 2; }},
    {"position page entered", choose<kPosition>,
     [](User& user) { return user.rig.link().position() != 0.0; }, 3s},
    {"position page left", choose<kOutput>, isShown<kOutput>},
    {"position page again", choose<kPosition>, isShown<kPosition>, 3s},
    {"close while positions come", [](User& user) { (void)user.rig.window().close(); },
     [](User& user) { return user.isClosed; }},
};

/// Does an action, and those before it that were not done yet: none is possible without them.
void use(benchmark::State& state, LoopWatch& watch, std::optional<User>& user, std::size_t index)
{
    static std::size_t next = 0;
    if (!user) {
        std::puts("Uses the program at real speed, which takes about a minute");
        user.emplace(watch);
    }
    for ([[maybe_unused]] auto round : state) {
        for (; next <= index; ++next) {
            const Action& action = kActions[next];
            user->take([&] { action.begin(*user); }, action.quietTime);
            if (!action.hasWorked(*user))
                user->fail(action.name);
        }
        state.SetIterationTime(watch.longest().count() / 1000);
    }
    state.counters["limit_ms"] = kLimit;
    state.SetLabel(watch.cause());
}

} // namespace

/// In place of the library's: its wait is the disk's.
extern "C" int fsync(int descriptor)
{
    const LeftOut saving;
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

int main(int argc, char* argv[])
{
    const OwnFolders folders;
    qputenv("QT_NO_GLIB", "1"); // the other dispatcher does not tell where a pass begins
    LoopWatch watch;
    Application application(argc, argv, watch);
    watch.begin();
    std::optional<User> user;
    for (std::size_t index = 0; index < std::size(kActions); ++index)
        benchmark::RegisterBenchmark(
            kActions[index].name,
            [&, index](benchmark::State& state) { use(state, watch, user, index); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    return runBenchmarks(argc, argv);
}
