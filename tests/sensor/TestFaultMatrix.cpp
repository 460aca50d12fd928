#include "platform/FaultyCalls.h"
#include "platform/core/TermiosComPort.h"
#include "sensor/FormatRestore.h"
#include "sensor/ParameterCodec.h"
#include "sensor/PositionStream.h"
#include "sensor/RunnerBench.h"
#include "sensor/SafeWriter.h"
#include "sensor/SensorTypes.h"
#include "simulator/PtyServer.h"
#include "support/Languages.h"
#include "support/TestFolder.h"

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

/// The calls of a port whose RTS switches a sensor's supply. A table keeps it: a worker that is
/// slow to end may outlive everything else.
class Line final : public std::enable_shared_from_this<Line>
{
public:
    explicit Line(std::shared_ptr<SimulatedSensor> sensor) : m_sensor(std::move(sensor))
    {
        m_faults.raised = 0;
        m_faults.before = [this](const QByteArray& name) { return errorOf(name); };
        m_faults.sizeOfWrite = [this](std::size_t size) {
            const std::lock_guard lock(m_mutex);
            return m_fault && m_fault->call == "write" && m_fault->error == 0 ? 1 : size;
        };
    }
    [[nodiscard]] PosixCalls table()
    {
        PosixCalls calls = m_faults.table();
        calls.ioctl = [line = shared_from_this(),
                       inner = calls.ioctl](int fd, unsigned long request, int* argument) {
            const int result = inner(fd, request, argument);
            if (result == 0 && (request == TIOCMBIS || request == TIOCMBIC))
                line->m_sensor->setRts(request == TIOCMBIS, SimulatedSensor::Clock::now());
            return result;
        };
        return calls;
    }
    /// @return the calls while the fault was armed that was there before
    std::map<QByteArray, int> arm(const std::optional<Fault>& fault)
    {
        const std::lock_guard lock(m_mutex);
        m_fault = fault;
        return std::exchange(m_made, {});
    }

private:
    /// With which the next call fails; 0 if it does not.
    [[nodiscard]] int errorOf(const QByteArray& name)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_fault)
            return 0;
        const int number = m_made[name]++;
        const bool strikes = m_fault->lasts ? number >= m_fault->at : number == m_fault->at;
        return name == m_fault->call && strikes ? m_fault->error : 0;
    }

    const std::shared_ptr<SimulatedSensor> m_sensor;
    FaultyCalls m_faults;
    std::mutex m_mutex; ///< guards the next
    std::optional<Fault> m_fault;
    std::map<QByteArray, int> m_made;
};

/// The conversation over a real port with a sensor whose supply follows the port's RTS, and all
/// that is told which does not hold.
class Rig final : public QObject
{
public:
    RunnerBench bench;

    Rig()
    {
        bench.makePort = [this] {
            return std::make_unique<TermiosComPort>(m_server.path(), m_line->table());
        };
        disarm();
        claim(m_server.start() == 0, "no terminal");
        connect(&stream, &PositionStream::failed, this, [this] { m_told = true; });
        connect(&stream, &PositionStream::formatKept, this, [this] { m_told = true; });
        connect(&m_writer, &SafeWriter::ended, this, [this](const auto& end) { judge(end); });
    }

    void arm(const Fault& next)
    {
        if (!next.unheard.isEmpty())
            bench.sensor->setFault({SimulatedFault::Kind::Deaf}, next.unheard.toStdString());
        Pacing::setSpeeds({100, 200, 50}); // a line that is stuck holds every frame of a Connect
        m_line->arm(next);
    }
    /// @return the calls since arm
    std::map<QByteArray, int> disarm()
    {
        bench.sensor->clearFaults();
        Pacing::setSpeeds({100, 200, 1});
        return m_line->arm({});
    }

    void read(std::string_view ids, bool confirmed)
    {
        (void)bench.run(readPlan(ids, confirmed), [this](const Reply& reply) {
            claim(!reply.wellFormed || isHeld(reply.id, reply.text), "read, and not held");
        });
    }
    void write(const QByteArray& order, WriteRequest::By by)
    {
        const SensorValues all{{'D', "4A0519"}, {'A', "00000010"}, {'N', "000122"},
                               {'U', "281300"}, {'S', "001100"},   {'K', "000001"}};
        WriteRequest request{.by = by, .order = order, .closing = 'C'};
        for (const char id : order)
            request.values[id] = all.at(id);
        bool ended = false;
        claim(m_writer.write(*this, request, {.ended = [&ended](auto&) { ended = true; }}) &&
                  waitFor([&ended] { return ended; }),
              "a write without an end");
    }
    void startStream()
    {
        (void)stream.start();
        claim(waitFor([this] { return stream.isStreaming() || !stream.isActive(); }),
              "a start without an end");
    }
    void stopStream()
    {
        bool ended = false;
        claim(bench.runner.endStream(*this, [&ended](bool) { ended = true; }) &&
                  waitFor([&ended] { return ended; }),
              "a stop without an end");
    }
    /// Without a fault: only a loaded machine needs more than one attempt.
    [[nodiscard]] bool getReady()
    {
        int attempts = 0;
        while (!bench.connectSensor() && attempts < 5)
            ++attempts;
        return attempts < 5;
    }

    /// The sensor is connected again without a fault: everything is as it was told to be.
    void recover()
    {
        disarm();
        stopStream(); // one that runs all the same
        const auto kept = m_formats.all();
        const bool isKept = kept.size() == 1 && kept[0].own == m_before.at('D');
        claim(hasOwnFormat() || isKept, "a format is lost");
        // One that was read back may yet not be stored; the next restart shows that.
        claim(hasOwnFormat() || m_told || (isKept && kept[0].readBack), "a format not told of");
        claim(getReady(), "the port is of no use any more");
        int done = 0;
        m_restore.begin(*this, [&done](auto) { ++done; });
        claim(waitFor([&done] { return done == 1; }) && hasOwnFormat(), "a format not put back");
        m_writer.compareAfterConnect(true, [&done] { ++done; });
        claim(waitFor([&done] { return done == 2; }), "a comparison without an end");
    }

    void claim(bool holds, const char* otherwise)
    {
        if (!holds)
            wrong << QLatin1String(otherwise);
    }

    QStringList wrong;

private:
    [[nodiscard]] SensorValues held() const
    {
        SensorValues values;
        for (const char id : sensorType(2).information)
            values[id] = QByteArray::fromStdString(bench.sensor->parameter(id));
        return values;
    }
    [[nodiscard]] bool isHeld(char id, const QByteArray& text) const
    {
        return isSameValue(id, held().at(id), text);
    }
    [[nodiscard]] bool hasOwnFormat() const
    {
        return isHeld('D', m_before.at('D')) || m_written.contains('D');
    }

    void judge(const WriteResult& result)
    {
        using Kind = WriteResult::Kind;
        const bool isChanged = held() != m_before;
        bool isWritten = true;
        for (const auto& [id, text] : result.request.values)
            isWritten = isWritten && isHeld(id, text);
        claim(result.kind != Kind::Verified || isWritten, "verified, and not so");
        claim(result.kind != Kind::NotWritten || !isChanged, "not written, and changed");
        claim(result.kind != Kind::Differs || !result.differences.isEmpty(), "differs in nothing");
        for (const Difference& difference : result.differences)
            claim(!isHeld(difference.id, difference.written), "differs, and does not");
        if (!isChanged)
            return;
        m_written = result.request.order;
        const auto entries = m_journal.entries();
        claim(entries.size() == 1 && entries[0].values == m_before, "the state before is lost");
    }

    const std::shared_ptr<Line> m_line = std::make_shared<Line>(bench.sensor);
    PtyServer m_server{bench.sensor};
    QByteArray m_written; ///< the parameters with which the sensor was changed
    bool m_told = false;  ///< that the sensor may have another format
    const SensorValues m_before = held();

    const TestFolder m_folder;
    const Journal m_journal{m_folder.path(u"journal"_s)};
    SafeWriter m_writer{bench.runner, m_journal, {}};
    KeptFormats m_formats{m_folder.path(u"formats"_s), m_folder.path(u"former"_s)};
    FormatRestore m_restore{bench.runner, m_formats};

public:
    PositionStream stream{bench.runner, m_formats, m_restore, false};
};

struct Task
{
    const char* name;
    std::function<bool(Rig&)> before;
    std::function<void(Rig&)> act;
    bool writes = false;
};

bool getReady(Rig& rig)
{
    return rig.getReady();
}

bool getStreaming(Rig& rig)
{
    bool ready = rig.getReady();
    for (int attempts = 0; ready && !rig.stream.isStreaming(); ++attempts) {
        ready = attempts < 5;
        rig.startStream();
    }
    return ready;
}

const std::vector<Task> kTasks{
    {"open and connect", [](Rig&) { return true; }, [](Rig& r) { (void)r.bench.connectSensor(); }},
    {"page", getReady, [](Rig& r) { r.read(sensorType(2).information, false); }},
    {"backup", getReady, [](Rig& r) { r.read(sensorType(2).backup, true); }},
    {"apply", getReady, [](Rig& r) { r.write("DAN", WriteRequest::By::OutputSetup); }, true},
    {"restore", getReady, [](Rig& r) { r.write("DAUSNK", WriteRequest::By::Restore); }, true},
    {"position start", getReady, [](Rig& r) { r.startStream(); }, true},
    {"position stop", getStreaming, [](Rig& r) { r.stopStream(); }, true},
};

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
    Rig rig;
    rig.claim(task.before(rig), "not ready");
    rig.arm(fault);
    task.act(rig);
    rig.recover();
    return rig.wrong;
}

/// Every fault at several places of a task, of which it makes so many calls without one.
void addCases(const Task& task, std::vector<Case>& cases)
{
    Rig rig;
    (void)task.before(rig);
    rig.arm({});
    task.act(rig);
    auto made = rig.disarm();
    for (const auto& [call, once, lasting] : kErrors) {
        const int calls = made[call];
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
        for (const Task& task : kTasks)
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
