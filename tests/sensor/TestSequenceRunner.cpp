#include "sensor/SequenceRunner.h"

#include "platform/core/MessageNumbers.h"
#include "sensor/RunnerBench.h"

#include <QElapsedTimer>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

using Step::Kind::Connect;
using Fault = SimulatedFault::Kind;

namespace {

const SensorValues kValues{{'A', "00000010"}, {'D', "020018"}, {'N', "000001"}};
const char* const kAllWritten = "DN020018 AN00000010 NN000001 CN";

QString inWords(const Outcome& outcome)
{
    static const char* const kinds[] = {"done", "failed", "lost", "abandoned", "stream not ended"};
    QString words = QString::fromLatin1(kinds[static_cast<int>(outcome.kind)]);
    if (outcome.parameter != 0)
        words += QStringLiteral(" %1").arg(QLatin1Char(outcome.parameter));
    return outcome.written.isEmpty()
               ? words
               : words + QStringLiteral(" after ") + QString::fromLatin1(outcome.written);
}

/// Somebody who has plans and notes what is told of them.
class Party final : public QObject
{
public:
    Party(SequenceRunner& runner, QStringList& told) : m_runner(runner), m_told(told) {}

    bool start(const Plan& plan)
    {
        const auto reply = [this](const Reply& got) {
            tell(QStringLiteral("reply"), QLatin1Char(got.id) +
                                              QLatin1String(got.wellFormed ? "=" : "?") +
                                              QString::fromLatin1(got.text.toPercentEncoding()));
        };
        const auto progress = [this](int done) {
            tell(QStringLiteral("progress"), QString::number(done));
        };
        const auto ended = [this](const Outcome& outcome) {
            tell(QStringLiteral("ended"), inWords(outcome));
        };
        const bool begun =
            m_runner.start(*this, plan, {.reply = reply, .progress = progress, .ended = ended});
        tell(QStringLiteral("started"), begun ? QString() : QStringLiteral("refused"));
        return begun;
    }

    /// Becomes the owner of a stream, which ends with the read of a parameter.
    void stream(bool restored = true)
    {
        hook = {};
        const auto stop = [this, restored] {
            m_told << QStringLiteral("stop");
            hook = [this, restored](const QString& moment) {
                if (moment.startsWith(QLatin1String("ended")))
                    m_runner.streamEnded(restored);
            };
            start(readPlan("V"));
        };
        const auto lost = [this] { m_told << QStringLiteral("stream lost"); };
        m_runner.beginStream(*this, {.stop = stop, .lost = lost, .position = {}});
    }

    /// Called after it was told something: "reply 2" is the second one.
    std::function<void(const QString& moment)> hook;

private:
    void tell(const QString& event, const QString& text)
    {
        m_told << text;
        const QString moment = QStringLiteral("%1 %2").arg(event).arg(++m_counts[event]);
        if (const auto call = hook) // it may end this
            call(moment);
    }

    SequenceRunner& m_runner;
    QStringList& m_told;
    std::map<QString, int> m_counts;
};

/// A plan, and what happens at a moment: before it starts, or after its owner was told something.
struct Row
{
    const char* name;
    Plan plan;
    const char* moment;
    std::function<void()> action;
    const char* told;
    const char* frames;
};

} // namespace

/// A sensor of type 2, connected.
class TestSequenceRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void planEndsAsItMust_data();
    void planEndsAsItMust();
    void wantedConnectComesNext();
    void pausesAreNeverShort();
    void supplyStaysUntilTheSensorHasStored();
    void streamIsEndedBeforeAnotherPlan();
    void whatWasReadIsForgottenWithWhatMayHaveChangedIt();

private:
    [[nodiscard]] SequenceRunner& runner() { return m_bench->runner; }
    [[nodiscard]] bool waitIdle()
    {
        return QTest::qWaitFor([this] { return !runner().isBusy() || m_isDown; });
    }
    [[nodiscard]] QString told()
    {
        auto told = std::exchange(m_told, {});
        told.removeAll(QString());
        return told.join(QLatin1Char(' '));
    }
    void windDown();

    std::unique_ptr<RunnerBench> m_bench;
    QStringList m_told;
    bool m_isDown = false;
    std::unique_ptr<Party> m_party;
    std::unique_ptr<Party> m_other;
};

void TestSequenceRunner::init()
{
    m_bench = std::make_unique<RunnerBench>();
    QVERIFY(m_bench->connectSensor());
    m_told.clear();
    m_isDown = false;
    m_party = std::make_unique<Party>(runner(), m_told);
    m_other = std::make_unique<Party>(runner(), m_told);
}

void TestSequenceRunner::cleanup()
{
    m_bench.reset();
    m_party.reset();
    m_other.reset();
}

void TestSequenceRunner::windDown()
{
    runner().windDown([this] {
        m_isDown = true;
        m_told << QStringLiteral("down");
        m_other->start(readPlan("N"));
    });
}

void TestSequenceRunner::planEndsAsItMust_data()
{
    Plan read = readPlan("DA");
    read.back().pauseAfter = 100ms;
    const Plan checked = readPlan("DA", true);
    const Plan writes = writePlan("DAN", kValues, 'C');
    Plan mixed = writes; // reads in between
    mixed[1] = read[0];
    const Plan readFirst{read[0], writes[0]};
    const Plan none;
    const Plan one{read[0]};
    const Plan connects{{.kind = Connect}, read[0]};
    Plan longPause = read;
    longPause[0].pauseAfter = 20s;

    const auto fault = [this](const char* rule) {
        return [this, rule] {
            auto parsed = *SimulatedFaultRule::parse(rule);
            if (parsed.fault.kind == Fault::Vanish)
                parsed.fault.amount = 0; // for good
            m_bench->sensor->setFault(parsed.fault, parsed.command);
        };
    };
    const auto breakOnce = [this] {
        for (const char* const command : {"DA", "AA"})
            m_bench->sensor->setFault({Fault::WrongByte, 1, 1}, command);
    };
    const auto store = [this](char id, const char* text) {
        return [this, id, text] { m_bench->sensor->setParameter(id, text); };
    };
    const auto lose = [this] { m_bench->loseLink(); };
    const auto destroy = [this] { m_party.reset(); };
    const auto abandon = [this] { runner().abandon(*m_party); };
    const auto end = [this] { windDown(); };
    const auto nothing = [] {};

    const Row rows[] = {
        {"answered", read, "", nothing, "D=4A0519 1 A=00000005 2 done", "DA AA"},
        {"silent", read, "before", fault("silent@AA"), "D=4A0519 1 failed A", "DA AA"},
        {"another form", read, "before", store('D', "4A051X"), "D?4A051X 1 A=00000005 2 done",
         "DA AA"},
        {"disturbed once each", checked, "before", breakOnce, "D=4A0519 1 A=00000005 2 done",
         "DA DA AA AA"},
        {"disturbed twice", checked, "before", fault("wrong-byte:1@DA"), "failed D", "DA DA"},
        {"other form twice", checked, "before", store('A', "X"), "D=4A0519 1 failed A", "DA AA"},
        {"same other form twice", checked, "before", store('A', "0000000X"),
         "D=4A0519 1 A?0000000X 2 done", "DA AA AA"},
        {"two other forms", checked, "before", [=] { store('D', "4A051X")(), breakOnce(); },
         "failed D", "DA DA"},

        {"link closed", read, "before",
         [this] {
             m_bench->link.close();
             QTRY_VERIFY(!m_bench->link.isOpen());
         },
         "lost D", ""},
        {"lost in a pause", read, "progress 1", lose, "D=4A0519 1 lost A", "DA"},
        {"lost in a request", read, "before", fault("vanish@AA"), "D=4A0519 1 lost A", "DA"},
        {"lost between request and answer", read, "before", [this] { m_bench->last = "AA"; },
         "D=4A0519 1 lost A", "DA AA"},
        {"lost after the last answer", read, "reply 2", lose, "D=4A0519 1 A=00000005 2 lost A",
         "DA AA"},
        {"lost and back at once", longPause, "progress 1",
         [this] {
             m_bench->deaf = true;
             m_bench->loseLink();
             m_bench->sensor->comeBack();
             runner().reopenPort([this](bool) { m_bench->sensor->setSupply(true); });
         },
         "D=4A0519 1 lost A", "DA"},
        {"frame cut", writes, "before", [this] { m_bench->swallowed = "AN", m_bench->cut = true; },
         "1 failed A after D", "DN020018"},
        {"lost in the first write", writes, "before", fault("vanish@DN"), "lost D", ""},
        {"lost in a write", writes, "before", fault("vanish@AN"), "1 lost A after D", "DN020018"},
        {"lost in the last write", writes, "before", fault("vanish@NN"), "1 2 lost N after DA",
         "DN020018 AN00000010"},
        {"lost in the closing command", writes, "before", fault("vanish@CN"),
         "1 2 3 lost C after DAN", "DN020018 AN00000010 NN000001"},

        {"owner ends outstanding", read, "started 1", destroy, "", "DA"},
        {"owner ends in a reply", read, "reply 1", destroy, "D=4A0519", "DA"},
        {"owner ends at its end", read, "ended 1", destroy, "D=4A0519 1 A=00000005 2 done",
         "DA AA"},
        {"owner ends after a write", writes, "progress 1", destroy, "1", kAllWritten},
        {"abandoned outstanding", readFirst, "started 1", abandon, "D=4A0519 1 abandoned D", "DA"},
        {"abandoned before a write", readFirst, "progress 1", abandon, "D=4A0519 1 abandoned D",
         "DA"},
        {"abandoned in a write", writes, "started 1", abandon, "1 2 3 4 done after DAN",
         kAllWritten},
        {"abandoned after a write", mixed, "progress 1", abandon, "1 3 4 abandoned after DN",
         "DN020018 NN000001 CN"},
        {"Connect cut short", connects, "started 1", abandon, "abandoned", ""},

        {"raw exchange cut short", none, "before",
         [this] {
             Pacing::setSpeeds({100, 200, 0.05}); // else it lasts longer than a test waits
             m_party->start(rawPlan("P"));
             runner().abandon(*m_party);
         },
         "1 abandoned", ""},
        {"abandoned in a reply for another", read, "reply 1",
         [this] { runner().abandon(*m_party), m_party->start(readPlan("N")); },
         "D=4A0519 abandoned D N=00000A 1 done", "DA NA"},
        {"abandoned while waiting", none, "before",
         [this] { m_party->stream(), m_other->start(readPlan("A")), runner().abandon(*m_other); },
         "stop abandoned V=3A0102 1 done", "VA"},
        {"answers to others", read, "started 1",
         [this] {
             for (const RequestId request : {RequestId{0}, RequestId{2}, RequestId{9999}}) {
                 WindowMessage message(WM_LINK_REPLY, 0, 0, request);
                 QCoreApplication::sendEvent(&runner(), &message);
             }
         },
         "D=4A0519 1 A=00000005 2 done", "DA AA"},
        {"second start", read, "started 1", [this] { m_other->start(readPlan("N")); },
         "refused D=4A0519 1 A=00000005 2 done", "DA AA"},
        {"start at its end", one, "ended 1",
         [this] { m_party->start(readPlan("A")), m_other->start(readPlan("N")); },
         "D=4A0519 1 done refused A=00000005 1 done", "DA AA"},

        {"end while idle", none, "before", end, "down refused", ""},
        {"end while reading", read, "started 1", end, "D=4A0519 1 abandoned A down refused", "DA"},
        {"end in a reply", read, "reply 1", end, "D=4A0519 abandoned D down refused", "DA"},
        {"end while writing", writes, "started 1", end, "1 2 3 4 done after DAN down refused",
         kAllWritten},
        {"end and start", read, "started 1",
         [this] {
             windDown();
             m_party->hook = [this](const QString& moment) {
                 if (moment == QLatin1String("ended 1"))
                     m_party->start(readPlan("N"));
             };
         },
         "D=4A0519 1 abandoned A refused down refused", "DA"},
        {"end while streaming", none, "before", [this] { m_party->stream(), windDown(); },
         "stop V=3A0102 1 done down refused", "VA"},
        {"end in a position", none, "before",
         [this] {
             const auto stop = [this] { runner().streamEnded(true); };
             const auto position = [this](bool) { windDown(); };
             runner().beginStream(*m_party, {.stop = stop, .lost = {}, .position = position});
             runner().requestPosition();
             QTRY_VERIFY(m_isDown);
         },
         "down refused", ""},
        {"end while a stream starts", none, "before",
         [=, this] {
             m_party->stream(), m_party->start({writes[0], read[0]}), windDown();
         },
         "1 abandoned after D stop V=3A0102 1 done down refused", "DN020018 VA"},
        {"end while waiting for a stream", none, "before",
         [this] { m_party->stream(), m_other->start(readPlan("A")), windDown(); },
         "stop V=3A0102 1 done stream not ended down refused", "VA"},
        {"end while the port is reopened", none, "before",
         [this] {
             runner().reopenPort([this](bool) { m_told << QStringLiteral("opened"); });
             windDown();
             QTRY_VERIFY(m_told.contains(QStringLiteral("opened")));
             runner().closePort(false, [this] { m_told << QStringLiteral("closed"); });
             QTRY_VERIFY(m_told.contains(QStringLiteral("closed")));
             QVERIFY(!m_bench->link.isOpen());
         },
         "down refused opened closed", ""},
    };
    QTest::addColumn<Row>("row");
    for (const Row& row : rows)
        QTest::newRow(row.name) << row;
}

void TestSequenceRunner::planEndsAsItMust()
{
    QFETCH(Row, row);
    const auto hook = [=](const QString& moment) {
        if (moment == QLatin1String(row.moment))
            row.action();
    };
    m_party->hook = hook;
    hook(QStringLiteral("before"));
    if (!row.plan.empty())
        QVERIFY(m_party->start(row.plan));
    QVERIFY(waitIdle());
    QCOMPARE(told(), QLatin1String(row.told));
    QCOMPARE(m_bench->frames(), QLatin1String(row.frames));
}

void TestSequenceRunner::wantedConnectComesNext()
{
    Party connector(runner(), m_told);
    const auto reserve = [&](const QString& moment) {
        if (moment.startsWith(QLatin1String("started")))
            runner().reserveConnect(connector);
        if (moment.startsWith(QLatin1String("ended"))) {
            m_party->hook = {};
            m_other->start(readPlan("N"));
            m_party->start(readPlan("A"));
        }
    };
    m_party->hook = reserve;
    m_party->start(readPlan("D"));
    QVERIFY(waitIdle());
    QCOMPARE(told(), QStringLiteral("D=4A0519 1 done refused A=00000005 1 done"));
    m_party->start(readPlan("D"));
    QVERIFY(runner().isConnectWanted());
    connector.start(connectPlan());
    QVERIFY(!runner().isConnectWanted());
    QVERIFY(waitIdle());
    QCOMPARE(told(), QStringLiteral("refused 1 done"));

    m_bench->sensor->setFault({Fault::Vanish}, "D");
    m_party->hook = reserve;
    m_party->start(readPlan("D"));
    QVERIFY(waitIdle());
    QCOMPARE(told(), QStringLiteral("lost D refused refused"));
    runner().cancelConnect();
    QVERIFY(!runner().isConnectWanted());
}

void TestSequenceRunner::pausesAreNeverShort()
{
    Pacing::setSpeeds({1, 200, 5});
    Plan plan;
    for (const auto pause : {1ms, 7ms, 20ms, 33ms, 0ms})
        plan.push_back({.kind = Step::Kind::Read, .id = 'D', .pauseAfter = pause});
    QElapsedTimer clock;
    std::size_t step = 0;
    bool isShort = false;
    m_party->hook = [&](const QString& moment) {
        if (moment.startsWith(QLatin1String("reply")) && step++ > 0)
            isShort = isShort ||
                      std::chrono::nanoseconds(clock.nsecsElapsed()) < plan[step - 2].pauseAfter;
        clock.start();
    };
    m_party->start(plan);
    QVERIFY(waitIdle());
    QVERIFY(!isShort);
}

void TestSequenceRunner::supplyStaysUntilTheSensorHasStored()
{
    Pacing::setSpeeds({20, 200, 5});
    const auto isKept = [this](const Plan& plan, const std::function<bool()>& next) {
        m_bench->supplyKept = RunnerBench::Clock::duration::max();
        const bool done = m_bench->run(plan) && next();
        const auto kept = m_bench->supplyKept.load();
        return done && kept >= 100ms && kept < 1h; // of the clock that runs faster
    };
    const auto done = [] { return true; };
    const Step command = commandPlan('E', {}).front();
    QVERIFY(isKept({command, {.kind = Connect}}, done));
    QVERIFY(isKept({rawPlan("CN\r").front(), {.kind = Step::Kind::SupplyOff}}, done));
    QVERIFY(isKept({command}, [this] { return m_bench->openPort(8); }));
    QVERIFY(m_bench->run({command}));
    Pacing::setSpeeds({0.1, 200, 5});
    m_bench->loseLink();
    m_bench->sensor->comeBack();
    QVERIFY(m_bench->openPort()); // it had lost its supply: that is not waited for

    Pacing::setSpeeds({20, 0.1, 5}); // the frame takes a while
    QVERIFY(isKept({command}, [this] {
        bool closed = false;
        runner().closePort(true, [&closed] { closed = true; });
        return QTest::qWaitFor([&closed] { return closed; });
    }));
    QCOMPARE(m_bench->sensor->mode(), SimulatedSensor::Mode::Off);
}

void TestSequenceRunner::streamIsEndedBeforeAnotherPlan()
{
    for (const bool restored : {true, false}) {
        m_party->stream(restored);
        m_party->start(readPlan("D")); // its own
        QVERIFY(waitIdle());
        QCOMPARE(told(), QStringLiteral("D=4A0519 1 done"));
        m_other->start(readPlan("A"));
        QVERIFY(runner().isRunning(*m_other));
        m_other->start(readPlan("N")); // one may wait
        QVERIFY(waitIdle());
        QCOMPARE(told(), QStringLiteral("stop refused V=3A0102 1 done ") +
                             QLatin1String(restored ? "A=00000005 1 done" : "stream not ended"));
    }
    const auto then = [this](bool restored) {
        m_told << (restored ? QStringLiteral("ended") : QStringLiteral("left"));
    };
    QVERIFY(runner().endStream(*m_other, then));
    QCOMPARE(told(), QStringLiteral("ended")); // there is none
    m_party->stream(false);
    QVERIFY(runner().endStream(*m_other, then));
    QVERIFY(!runner().endStream(*m_other, then));
    QVERIFY(waitIdle());
    QCOMPARE(told(), QStringLiteral("stop V=3A0102 1 done left"));

    m_party->stream();
    m_party.reset();
    m_other->start(readPlan("A"));
    QVERIFY(waitIdle());
    m_other->stream();
    m_bench->loseLink();
    QTRY_COMPARE(m_told.back(), QStringLiteral("stream lost"));
    QCOMPARE(told(), QStringLiteral("A=00000005 1 done stream lost"));
}

void TestSequenceRunner::whatWasReadIsForgottenWithWhatMayHaveChangedIt()
{
    const auto change = [this](const char* name, const std::function<void()>& action) {
        QVERIFY2(m_bench->connectSensor() && m_bench->run(readPlan("DA")), name);
        const SensorValues read{{'A', "00000005"}, {'D', "4A0519"}};
        QCOMPARE(runner().known(), read);
        const int changes = runner().changes();
        QVERIFY(m_bench->run(readPlan("D")));
        QCOMPARE(runner().changes(), changes);
        action();
        QVERIFY2(!runner().known().contains('D') && runner().changes() != changes, name);
    };
    change("Connect", [this] { QVERIFY(m_bench->run(connectPlan())); });
    change("Connect by hand", [this] {
        runner().reserveConnect(*m_bench);
        QVERIFY(m_bench->run(readPlan("V")));
    });
    change("write", [this] { QVERIFY(m_bench->run(commandPlan('N', {}))); });
    change("raw", [this] { QVERIFY(m_bench->run(rawPlan("DA\r"))); });
    change("supply", [this] { QVERIFY(m_bench->run({{.kind = Step::Kind::SupplyOff}})); });
    change("port", [this] { QVERIFY(m_bench->openPort()); });
    change("loss", [this] {
        m_bench->loseLink();
        QTRY_VERIFY(runner().known().empty());
        m_bench->sensor->comeBack();
    });
}

QTEST_GUILESS_MAIN(TestSequenceRunner)
#include "TestSequenceRunner.moc"
