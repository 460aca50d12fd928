#include "link/SensorLink.h"
#include "platform/FaultyCalls.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "sensor/FormatRestore.h"
#include "sensor/Journal.h"
#include "sensor/KeptFormats.h"
#include "sensor/ParameterCodec.h"
#include "sensor/PositionStream.h"
#include "sensor/SafeWriter.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedSensor.h"
#include "support/Languages.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QTest>

#include <map>
#include <random>
#include <set>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// What fails while something is done with the sensor.
struct Fault
{
    QByteArray call{};    ///< of the port, as FaultyCalls names it
    int error = 0;        ///< with which it fails; 0: each write takes one byte only
    int at = 0;           ///< so many of these calls before succeed
    bool lasts = false;   ///< all after it fail, too
    QByteArray unheard{}; ///< instead: commands that do not reach the sensor
};

/// The conversation over a real port with a sensor whose supply follows the port's RTS.
class Bench final : public QObject
{
public:
    Bench()
    {
        faults.raised = 0;
        faults.before = [this](const QByteArray& name) { return errorOf(name); };
        link.setLossTarget(this);
        disarm();
        connect(&stream, &PositionStream::failed, this, [this] { told = true; });
        connect(&stream, &PositionStream::formatKept, this, [this] { told = true; });
        connect(&writer, &SafeWriter::ended, this, [this](const auto& result) { judge(result); });
    }

    void arm(const Fault& next)
    {
        if (!next.unheard.isEmpty())
            sensor->setFault({SimulatedFault::Kind::Deaf}, next.unheard.toStdString());
        Pacing::setSpeeds({100, 200, 50}); // a line that is stuck holds every frame of a Connect
        const std::lock_guard lock(m_mutex);
        m_fault = next;
        m_armed = true;
        made.clear();
    }
    void disarm()
    {
        sensor->clearFaults();
        Pacing::setSpeeds({100, 200, 1});
        const std::lock_guard lock(m_mutex);
        m_armed = false;
    }

    [[nodiscard]] bool open()
    {
        std::optional<bool> opened;
        runner.openPort(7, [&opened](bool result) { opened = result; });
        return isIn(opened) && *opened;
    }
    /// Runs a plan; what it reads must be what the sensor has.
    [[nodiscard]] bool run(Plan plan)
    {
        std::optional<Outcome> outcome;
        const auto compare = [this](const Reply& reply) {
            claim(!reply.wellFormed || isHeld(reply.id, reply.text), "a value that is none");
        };
        const bool begun =
            runner.start(*this, std::move(plan),
                         {.reply = compare, .ended = [&outcome](auto& ended) { outcome = ended; }});
        return begun && isIn(outcome) && outcome->isDone();
    }
    [[nodiscard]] bool connectSensor() { return open() && run(connectPlan()); }
    /// Without a fault: only a loaded machine needs more than one attempt.
    [[nodiscard]] bool getReady()
    {
        int attempts = 0;
        while (!connectSensor() && attempts < 5)
            ++attempts;
        return attempts < 5;
    }
    void write(const QByteArray& order, WriteRequest::By by)
    {
        const SensorValues all{{'D', "4A0519"}, {'A', "00000010"}, {'N', "000122"},
                               {'U', "281300"}, {'S', "001100"},   {'K', "000001"}};
        WriteRequest request{.by = by, .order = order, .closing = 'C'};
        for (const char id : order)
            request.values[id] = all.at(id);
        const int endedBefore = judged;
        claim(writer.write(*this, request, {}), "cannot be written");
        claim(waitFor([&] { return judged > endedBefore; }), "a write without an end");
    }
    void startStream()
    {
        (void)stream.start();
        claim(waitFor([this] { return stream.isStreaming() || !stream.isActive(); }),
              "a start without an end");
    }
    void stopStream()
    {
        std::optional<bool> restored;
        (void)runner.endStream(*this, [&restored](bool result) { restored = result; });
        (void)isIn(restored);
    }

    /// The sensor is connected again without a fault: everything is as it was told to be.
    void recover()
    {
        disarm();
        stopStream(); // one that runs all the same
        const auto kept = formats.all();
        const bool hasOwn = held('D') == before.at('D') || m_written.contains('D');
        claim(hasOwn || told, "a streaming format that nobody is told of");
        claim(hasOwn || (kept.size() == 1 && kept[0].own == before.at('D')), "a format is lost");
        claim(getReady(), "the port is of no use any more");
        std::optional<int> done;
        restore.begin(*this, [&done](auto) { done = 1; });
        (void)isIn(done);
        claim(held('D') == before.at('D') || m_written.contains('D'), "a format is not put back");
        bool compared = false;
        writer.compareAfterConnect(true, [&compared] { compared = true; });
        claim(waitFor([&compared] { return compared; }), "a comparison without an end");
    }

    [[nodiscard]] QByteArray held(char id) const
    {
        return QByteArray::fromStdString(sensor->parameter(id));
    }
    void claim(bool holds, const char* what)
    {
        if (!holds)
            wrong << QLatin1String(what);
    }

    QStringList wrong;
    bool told = false;                ///< that the sensor may have another format
    int judged = 0;                   ///< writes that have ended
    std::map<QByteArray, int> made{}; ///< calls since arm; not to be read while it is armed

    const TestRegistry settings{kSimulatedBounds};
    const std::shared_ptr<SimulatedSensor> sensor =
        std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    PtyServer server{sensor};
    const bool serves = server.start() == 0;
    FaultyCalls faults;

private:
    [[nodiscard]] int errorOf(const QByteArray& name)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_armed)
            return 0;
        const int number = made[name]++;
        const bool strikes = m_fault.lasts ? number >= m_fault.at : number == m_fault.at;
        return name == m_fault.call && strikes ? m_fault.error : 0;
    }
    template <class Result>
    [[nodiscard]] bool isIn(const std::optional<Result>& result)
    {
        const bool in = waitFor([&result] { return result.has_value(); });
        claim(in, "no end");
        return in;
    }
    [[nodiscard]] bool isHeld(char id, const QByteArray& text) const
    {
        return isSameValue(id, held(id), text);
    }

    void judge(const WriteResult& result)
    {
        ++judged;
        using Kind = WriteResult::Kind;
        SensorValues now;
        for (const auto& [id, text] : before)
            now[id] = held(id);
        bool isWritten = true;
        for (const auto& [id, text] : result.request.values)
            isWritten = isWritten && isHeld(id, text);
        claim(result.kind != Kind::Verified || isWritten, "verified, and not so");
        claim(result.kind != Kind::NotWritten || now == before, "not written, and changed");
        claim(result.kind != Kind::Differs || !result.differences.isEmpty(), "differs in nothing");
        for (const Difference& difference : result.differences)
            claim(!isHeld(difference.id, difference.written), "differs, and does not");
        if (now == before)
            return;
        m_written = result.request.order;
        const auto entries = journal.entries();
        claim(entries.size() == 1, "written without an entry");
        for (const JournalEntry& entry : entries) {
            for (const auto& [id, text] : entry.values)
                claim(before.at(id) == text, "another state in the journal");
        }
    }

    void customEvent(QEvent* /*lost*/) override { runner.linkLost(); }

    [[nodiscard]] PosixCalls table()
    {
        PosixCalls calls = faults.table();
        calls.ioctl = [this, inner = calls.ioctl](int fd, unsigned long request, int* argument) {
            const int result = inner(fd, request, argument);
            if (result == 0 && (request == TIOCMBIS || request == TIOCMBIC))
                sensor->setRts(request == TIOCMBIS, SimulatedSensor::Clock::now());
            return result;
        };
        faults.sizeOfWrite = [this](std::size_t size) {
            const std::lock_guard lock(m_mutex);
            return m_armed && m_fault.call == "write" && m_fault.error == 0 ? 1 : size;
        };
        return calls;
    }

    std::mutex m_mutex; ///< guards what of the fault the port sees
    Fault m_fault;
    bool m_armed = false;
    QByteArray m_written; ///< parameters that the sensor was changed in

public:
    const SensorValues before = [this] {
        SensorValues values;
        for (const char id : sensorType(2).information)
            values[id] = held(id);
        return values;
    }();
    const ComPortFactory factory{[this](const QString& /*device*/) {
        return std::make_unique<TermiosComPort>(server.path(), table());
    }};
    SensorLink link{factory};
    SequenceRunner runner{link};
    const TestFolder folder;
    const Journal journal{folder.path(u"journal"_s)};
    SafeWriter writer{runner, journal, {}};
    KeptFormats formats{folder.path(u"formats"_s), folder.path(u"former"_s)};
    FormatRestore restore{runner, formats};
    PositionStream stream{runner, formats, restore, false};
};

struct Task
{
    const char* name;
    std::function<bool(Bench&)> before;
    std::function<void(Bench&)> act;
    bool writes = false;
};

const std::vector<Task>& tasks()
{
    const auto connected = [](Bench& bench) { return bench.getReady(); };
    const auto streaming = [](Bench& bench) {
        bool ready = bench.getReady();
        for (int attempts = 0; ready && !bench.stream.isStreaming(); ++attempts) {
            ready = attempts < 5;
            bench.startStream();
        }
        return ready;
    };
    static const std::vector<Task> kTasks{
        {"open and connect", [](Bench&) { return true; },
         [](Bench& b) { (void)b.connectSensor(); }},
        {"page", connected, [](Bench& b) { (void)b.run(readPlan(sensorType(2).information)); }},
        {"backup", connected, [](Bench& b) { (void)b.run(readPlan(sensorType(2).backup, true)); }},
        {"apply", connected, [](Bench& b) { b.write("DAN", WriteRequest::By::OutputSetup); }, true},
        {"restore", connected, [](Bench& b) { b.write("DAUSNK", WriteRequest::By::Restore); },
         true},
        {"position start", connected, [](Bench& b) { b.startStream(); }, true},
        {"position stop", streaming, [](Bench& b) { b.stopStream(); }, true},
    };
    return kTasks;
}

struct Errors
{
    QByteArray call;
    std::vector<int> once;
    std::vector<int> lasting;
};
const std::vector<Errors> kErrors{
    {"open", {ENOENT, EACCES, EMFILE, EINTR}, {ENXIO}},
    {"eventfd", {EMFILE}, {ENFILE}},
    {"tcgetattr", {EIO, EINTR}, {ENOTTY}},
    {"flock", {EWOULDBLOCK, ENOLCK}, {EWOULDBLOCK}},
    {"ioctl", {EIO, EINTR}, {ENOTTY}},
    {"TIOCMBIS", {EIO, EINTR}, {ENOTTY}},
    {"tcsetattr", {EIO, EINTR}, {EINVAL}},
    {"TCIFLUSH", {EIO, EINTR}, {EINVAL}},
    {"TCOFLUSH", {EIO}, {EINVAL}},
    {"TIOCOUTQ", {EIO, EINTR}, {ENOTTY}},
    {"tcdrain", {EIO, EINTR}, {ENOTTY}},
    {"read", {EIO, EAGAIN, EINTR}, {EAGAIN, ENODEV}},
    {"write", {EIO, EAGAIN, EINTR, ENOSPC}, {EAGAIN, ENODEV}},
    {"poll", {EINTR, ENOMEM}, {EIO}},
};

/// A task and what fails in it.
using Case = std::pair<const Task*, Fault>;

[[nodiscard]] QStringList run(const Task& task, const Fault& fault)
{
    Bench bench;
    bench.claim(bench.serves && task.before(bench), "not ready");
    bench.arm(fault);
    task.act(bench);
    bench.recover();
    return bench.wrong;
}

/// Every fault at several places of a task, of which it makes so many calls without one.
void addCases(const Task& task, std::vector<Case>& cases)
{
    Bench bench;
    (void)task.before(bench);
    bench.arm({});
    task.act(bench);
    bench.disarm();
    for (const auto& [call, once, lasting] : kErrors) {
        const int calls = bench.made[call];
        for (const int at : std::set{0, 1, calls / 3, 2 * calls / 3, calls - 1}) {
            if (at < 0 || at >= calls)
                continue;
            for (const int error : once)
                cases.emplace_back(&task, Fault{call, error, at});
            for (const int error : lasting)
                cases.emplace_back(&task, Fault{call, error, at, true});
        }
    }
    cases.emplace_back(&task, Fault{"write", 0});
    if (task.writes) {
        for (const char id : std::string_view("DAUSNKC"))
            cases.emplace_back(&task, Fault{.unheard = QByteArray(1, id) + 'N'});
    }
}

} // namespace

/// Every call of the port fails, at several steps of everything that is done with the sensor, and
/// the sensor misses writes. Whatever happens: everything ends, nothing is told that the sensor
/// does not hold, nothing is lost, and the port works again afterwards.
class TestFaultMatrix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// PELORIN_FAULT_SECONDS says how long faults are tried, in a fixed mixture of all; 20
    /// seconds without it.
    void nothingIsToldThatTheSensorDoesNotHold()
    {
        bool isNumber = false;
        const int seconds = qEnvironmentVariableIntValue("PELORIN_FAULT_SECONDS", &isNumber);
        const QDeadlineTimer limit(std::chrono::seconds(isNumber ? seconds : 20));
        const Languages languages(1);
        std::vector<Case> cases;
        for (const Task& task : tasks())
            addCases(task, cases);
        std::shuffle(cases.begin(), cases.end(), std::minstd_rand(1));
        std::size_t runs = 0;
        for (; runs < cases.size() && !limit.hasExpired(); ++runs) {
            const auto& [task, fault] = cases[runs];
            const QStringList wrong = ::run(*task, fault);
            QVERIFY2(wrong.isEmpty(),
                     qPrintable(u"%1, %2 %3 at %4%5: %6"_s.arg(
                         QLatin1String(task->name), QString::fromLatin1(fault.call + fault.unheard),
                         QString::number(fault.error), QString::number(fault.at),
                         fault.lasts ? u" and on"_s : QString(), wrong.join(u"; "_s))));
        }
        qInfo("%zu of %zu faults", runs, cases.size());
        QVERIFY(runs > 0);
    }
};

QTEST_GUILESS_MAIN(TestFaultMatrix)
#include "TestFaultMatrix.moc"
