#include "platform/core/MessageNumbers.h"
#include "sensor/RunnerBench.h"

#include <QElapsedTimer>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

using Step::Kind::Connect;
using Fault = SimulatedFault::Kind;

namespace {

QByteArray inWords(const Outcome& outcome)
{
    static const char* const kinds[] = {"done", "failed", "lost", "abandoned", "stream not ended"};
    QByteArray words = kinds[static_cast<int>(outcome.kind)];
    if (outcome.parameter != 0)
        words.append(' ').append(outcome.parameter);
    return outcome.written.isEmpty() ? words : words + " after " + outcome.written;
}

/// Somebody who has plans, and writes down what reaches the sensor and what is told of them.
struct Party final : QObject
{
    Party(RunnerBench& itsBench, QByteArrayList& itsNotes) : bench(itsBench), notes(itsNotes) {}

    void start(const Plan& plan)
    {
        const auto reply = [this](const Reply& got) {
            note(got.id + QByteArray(got.wellFormed ? "=" : "?") + got.text);
        };
        const auto progress = [this](int done) { note(QByteArray::number(done)); };
        const auto ended = [this](const Outcome& outcome) { note(inWords(outcome)); };
        if (bench.runner.start(*this, plan, {reply, progress, ended})) {
            reach("begun"); // its first frame is on its way
        } else {
            notes << "refused";
        }
    }

    /// Becomes the owner of a stream, which ends with the read of a parameter.
    void stream(bool restored)
    {
        const auto stop = [this, restored] {
            notes << "stop";
            at("done", [this, restored] { bench.runner.streamEnded(restored); });
            start(readPlan("V"));
        };
        bench.runner.beginStream(*this, {stop, [this] { notes << "stream lost"; }, {}});
    }

    /// Has something happen once, when a plan has begun or a note was written.
    void at(const QByteArray& when, const std::function<void()>& what)
    {
        moment = when;
        action = what;
    }

    void note(const QByteArray& text)
    {
        notes << bench.frames().toLatin1() << text;
        reach(text);
    }

    void reach(const QByteArray& reached)
    {
        if (reached == moment && action)
            std::exchange(action, {})(); // may end this
    }

    RunnerBench& bench;
    QByteArrayList& notes;
    QByteArray moment;
    std::function<void()> action;
};

} // namespace

/// A sensor of type 2, connected.
class TestSequenceRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench.reset(); // before the next one's settings
        m_bench = std::make_unique<RunnerBench>();
        m_party = std::make_unique<Party>(*m_bench, m_notes);
        m_other = std::make_unique<Party>(*m_bench, m_notes);
        m_notes.clear();
        QVERIFY(m_bench->connectSensor());
    }

    void planEndsAsItMust()
    {
        const Plan none, read = readPlan("DA"), one{read[1]}, checked = readPlan("DA", true);
        const Plan writes =
            writePlan("DAN", {{'A', "00000010"}, {'D', "020018"}, {'N', "000001"}}, 'C');
        const Plan mixed{writes[0], read[0], writes[2], writes[3]}, readFirst{read[0], writes[0]};
        const Plan slow{{.kind = Step::Kind::Read, .id = 'D', .pauseAfter = 20s}, read[1]};
        const QByteArray readWhole = "DA D=4A0519 1 AA A=00000005 2 done",
                         stopped = "stop VA V=3A0102 1 done",
                         writtenWhole = "DN020018 1 AN00000010 2 NN000001 3 CN 4 done after DAN";

        const auto row = [this](const QByteArray& name, const Plan& plan, const QByteArray& notes,
                                const auto&... actions) {
            if (QTest::currentTestFailed())
                return;
            init();
            (actions(), ...);
            if (!plan.empty())
                m_party->start(plan);
            QVERIFY2(waitFor([this] { return !runner().isBusy() || m_notes.contains("down"); }),
                     name);
            m_notes << m_bench->frames().toLatin1();
            m_notes.removeAll(QByteArray());
            QVERIFY2(m_notes.join(' ') == notes, name + ": " + m_notes.join(' '));
        };
        const auto at = [this](const char* moment, const auto&... actions) {
            return [=, this] { m_party->at(moment, [=] { (actions(), ...); }); };
        };
        const auto fault = [this](const char* rule) {
            const auto parsed = *SimulatedFaultRule::parse(rule);
            return [=, this] { m_bench->sensor->setFault(parsed.fault, parsed.command); };
        };
        const auto disturbOnce = [this] {
            for (const char* const command : {"DA", "AA"})
                m_bench->sensor->setFault({Fault::WrongByte, 1, 1}, command);
        };
        const auto store = [this](char id, const char* text) {
            return [=, this] { m_bench->sensor->setParameter(id, text); };
        };
        const auto own = &TestSequenceRunner::m_party, other = &TestSequenceRunner::m_other;
        const auto starts = [this](auto party, const Plan& plan) {
            return [=, this] { (this->*party)->start(plan); };
        };
        const auto reads = [=](auto party, const char* ids) {
            return starts(party, readPlan(ids));
        };
        const auto streams = [this](bool restored) {
            return [=, this] { m_party->stream(restored); };
        };
        const auto lose = [this] { m_bench->loseLink(); };
        const auto destroy = [this] { m_party.reset(); };
        const auto abandon = [this] { runner().abandon(*m_party); };
        const auto abandonOther = [this] { runner().abandon(*m_other); };
        const auto reserve = [this] { runner().reserveConnect(*this); };
        const auto cancel = [this] { runner().cancelConnect(); };
        const auto end = [this] {
            runner().windDown([this] {
                m_notes << "down";
                m_other->start(readPlan("N"));
            });
        };
        const auto endStream = [this] {
            const auto then = [this](bool restored) { m_notes << (restored ? "ended" : "left"); };
            m_notes << (runner().endStream(*m_other, then) ? "" : "refused");
        };

        row("answered", read, readWhole);
        row("written", writes, writtenWhole);
        row("silent", read, "DA D=4A0519 1 AA failed A", fault("silent@AA"));
        row("another form", read, "DA D?4A051X 1 AA A=00000005 2 done", store('D', "4A051X"));
        row("disturbed once", checked, "DA DA D=4A0519 1 AA AA A=00000005 2 done", disturbOnce);
        row("disturbed twice", checked, "DA DA failed D", fault("wrong-byte:1@DA"));
        row("too short", checked, "DA D=4A0519 1 AA failed A", store('A', "X"));
        row("twice alike", checked, "DA DA D?4A051X 1 AA A=00000005 2 done", store('D', "4A051X"));
        row("two other forms", checked, "DA DA failed D", store('D', "4A051X"), disturbOnce);

        row("link closed", read, "lost D", [this] {
            m_bench->link.close();
            QVERIFY(waitFor([this] { return !m_bench->link.isOpen(); }));
        });
        row("lost in a pause", read, "DA D=4A0519 1 lost A", at("1", lose));
        row("lost in a request", read, "DA D=4A0519 1 lost A", fault("vanish:0@AA"));
        row("lost after it", read, "DA D=4A0519 1 AA lost A", [this] { m_bench->last = "AA\r"; });
        row("lost at last", read, "DA D=4A0519 1 AA A=00000005 2 lost A", at("A=00000005", lose));
        row("lost and back at once", slow, "DA D=4A0519 1 lost A", at("1", [this] {
                m_bench->deaf = true;
                m_bench->loseLink();
                m_bench->sensor->comeBack();
                runner().reopenPort([this](bool) { m_bench->sensor->restart(); });
            }));
        row("frame cut", writes, "DN020018 1 AN00000010 failed A after D",
            [this] { m_bench->cut = "AN00000010\r"; });
        row("PROG frames cut", {{.kind = Connect}, read[0]}, "VA 1 DA D=4A0519 2 done",
            [this] { m_bench->cut = "PROG\r"; });
        row("lost in the first write", writes, "lost D", fault("vanish:0@DN"));
        row("lost in a write", writes, "DN020018 1 lost A after D", fault("vanish:0@AN"));
        row("lost in the closing command", writes,
            "DN020018 1 AN00000010 2 NN000001 3 lost C after DAN", fault("vanish:0@CN"));

        row("owner ends outstanding", read, "DA", at("begun", destroy));
        row("owner ends in a reply", read, "DA D=4A0519", at("D=4A0519", destroy));
        row("owner ends at its end", read, readWhole, at("done", destroy));
        row("owner ends in writes", writes, "DN020018 1 AN00000010 NN000001 CN", at("1", destroy));
        row("abandoned outstanding", readFirst, "DA D=4A0519 1 abandoned D", at("begun", abandon));
        row("abandoned before a write", readFirst, "DA D=4A0519 1 abandoned D", at("1", abandon));
        row("abandoned in a write", writes, writtenWhole, at("begun", abandon));
        row("abandoned after a write", mixed, "DN020018 1 NN000001 3 CN 4 abandoned after DN",
            at("1", abandon));
        row("Connect cut short", {{.kind = Connect}, read[0]}, "abandoned", at("begun", abandon));
        row("raw exchange cut short", rawPlan("P"), "1 abandoned", at("begun", abandon), [] {
            Pacing::setSpeeds({100, 200, 0.005});
        }); // else it ends soon
        row("abandoned for another", read, "DA D=4A0519 abandoned D NA N=00000A 1 done",
            at("D=4A0519", abandon, reads(own, "N")));
        row("abandoned while waiting", none, "stop abandoned VA V=3A0102 1 done", streams(true),
            reads(other, "A"), abandonOther);
        row("answers to others", read, readWhole, at("begun", [this] {
                for (const RequestId request : {RequestId{0}, RequestId{2}, RequestId{9999}}) {
                    WindowMessage message(WM_LINK_REPLY, 0, 0, request);
                    QCoreApplication::sendEvent(&runner(), &message);
                }
            }));
        row("second start", read, "refused " + readWhole, at("begun", reads(other, "N")));
        row("start at its end", one, "AA A=00000005 1 done refused NA N=00000A 1 done",
            at("done", reads(own, "N"), reads(other, "D")));

        row("plan before wanted Connect", one, "AA A=00000005 1 done refused NA N=00000A 1 done",
            at("begun", reserve, at("done", reads(other, "D"), reads(own, "N"))));
        row("lost before wanted Connect", one, "lost A refused", fault("vanish:0@AA"),
            at("begun", reserve, at("lost A", reads(own, "N"))));
        row("wanted Connect", none, "refused VA", reserve, reads(own, "A"), [this] {
            QVERIFY(runner().isConnectWanted());
            QVERIFY(runner().start(*this, connectPlan(), {}));
            QVERIFY(!runner().isConnectWanted());
        });
        row("unwanted Connect", none, "AA A=00000005 1 done", reserve, cancel, reads(own, "A"));

        row("stream ends for another", none, "stop refused VA V=3A0102 1 done AA A=00000005 1 done",
            streams(true), reads(other, "A"), reads(other, "N"),
            [this] { QVERIFY(runner().isRunning(*m_other)); });
        row("stream is left", none, stopped + " stream not ended", streams(false),
            reads(other, "A"));
        row("stream is ended", none, "stop refused VA V=3A0102 1 done left", streams(false),
            endStream, endStream);
        row("no stream is ended", none, "ended", endStream);
        row("owner of a stream ends", none, "NA N=00000A 1 done", streams(true), destroy,
            reads(other, "N"));
        row("stream is lost", none, "stream lost", streams(true), lose,
            [this] { QVERIFY(waitFor([this] { return !m_notes.isEmpty(); })); });

        row("end while idle", none, "down refused", end);
        row("end while reading", read, "DA D=4A0519 1 abandoned A down refused", at("begun", end));
        row("end in a reply", read, "DA D=4A0519 abandoned D down refused", at("D=4A0519", end));
        row("end while writing", writes, writtenWhole + " down refused", at("begun", end));
        row("end and start", read, "DA D=4A0519 1 abandoned A refused down refused",
            at("begun", end, at("abandoned A", reads(own, "N"))));
        row("end while streaming", none, stopped + " down refused", streams(true), end);
        row("end in a position", none, "down refused", [this, end] {
            const auto stop = [this] { runner().streamEnded(true); };
            const auto position = [end](bool) { end(); };
            runner().beginStream(*m_party, {.stop = stop, .lost = {}, .position = position});
            runner().requestPosition();
            QVERIFY(waitFor([this] { return m_notes.contains("down"); }));
        });
        row("end while a stream starts", none,
            "DN020018 1 abandoned after D " + stopped + " down refused", streams(true),
            starts(own, {writes[0], read[0]}), end);
        row("end while waiting for a stream", none, stopped + " stream not ended down refused",
            streams(true), reads(other, "A"), end);
        row("end while the port is opened", none, "failed down refused opened closed", [this, end] {
            const auto reopened = [this](bool opened) {
                m_notes << (opened ? "opened" : "failed");
            };
            runner().reopenPort(reopened);
            runner().reopenPort(reopened);
            end();
            QVERIFY(waitFor([this] { return m_notes.contains("opened"); }));
            runner().closePort(false, [this] { m_notes << "closed"; });
            QVERIFY(waitFor([this] { return m_notes.contains("closed"); }));
            QVERIFY(!m_bench->link.isOpen());
        });
    }

    void pausesAreNeverShort()
    {
        Pacing::setSpeeds({1, 200, 5});
        Plan plan = readPlan("DDDDDDDDDDDDDDDD"); // with the usual pause
        for (std::size_t step = 1; step < plan.size(); ++step)
            plan[step].pauseAfter = step * step % 40 * 1ms;
        QElapsedTimer clock;
        std::chrono::nanoseconds pause = 100ms;
        const auto reply = [&](const Reply&) {
            if (clock.isValid())
                QVERIFY(std::chrono::nanoseconds(clock.nsecsElapsed()) >= pause);
        };
        const auto progress = [&](int done) {
            if (done > 1)
                pause = plan[static_cast<std::size_t>(done) - 1].pauseAfter;
            clock.start();
        };
        QVERIFY(runner().start(*this, plan, {.reply = reply, .progress = progress}));
        QVERIFY(waitFor([this] { return !runner().isBusy(); }));
    }

    void supplyStaysUntilTheSensorHasStored()
    {
        const Step command = commandPlan('E', {}).front(), raw = rawPlan("CN\r").front();
        const auto isKept = [this](const Plan& plan, const std::function<bool()>& next) {
            m_bench->supplyKept = RunnerBench::Clock::duration::max();
            const bool done = m_bench->run(plan) && (!next || next());
            const auto kept = m_bench->supplyKept;
            return done && kept >= 100ms && kept < 1h; // of the clock that runs faster
        };
        Pacing::setSpeeds({20, 200, 500}); // a raw exchange ends at once
        QVERIFY(isKept({raw, {.kind = Step::Kind::SupplyOff}}, {}));
        Pacing::setSpeeds({20, 200, 5});
        QVERIFY(isKept({command, {.kind = Connect}}, {}));
        QVERIFY(isKept({command}, [this] { return m_bench->openPort(8); }));
        QVERIFY(m_bench->run({command}));
        Pacing::setSpeeds({0.01, 200, 5});
        m_bench->loseLink();
        m_bench->sensor->comeBack();
        QVERIFY(m_bench->openPort()); // it had lost its supply: that is not waited for

        Pacing::setSpeeds({20, 0.1, 5}); // the frame takes a while
        QVERIFY(isKept({command}, [this] {
            runner().closePort(true, [] {});
            return waitFor([this] { return !m_bench->link.isOpen(); });
        }));
        QCOMPARE(m_bench->sensor->mode(), SimulatedSensor::Mode::Off);
    }

    void whatWasReadIsForgottenWithWhatMayHaveChangedIt()
    {
        const auto isForgotten = [this](const std::function<bool()>& change) {
            const bool begun = m_bench->connectSensor() && m_bench->run(readPlan("DA"));
            const int changes = runner().changes();
            const bool kept = m_bench->run(readPlan("D")) && runner().changes() == changes &&
                              runner().known() == SensorValues{{'A', "00000005"}, {'D', "4A0519"}};
            return begun && kept && change() && !runner().known().contains('D') &&
                   runner().changes() != changes;
        };
        const auto isForgottenAfter = [&](const Plan& plan) {
            return isForgotten([&] { return m_bench->run(plan); });
        };
        QVERIFY(isForgottenAfter(connectPlan()));
        QVERIFY(isForgottenAfter(commandPlan('N', {})));
        QVERIFY(isForgottenAfter(rawPlan("DA\r")));
        QVERIFY(isForgottenAfter({{.kind = Step::Kind::SupplyOff}}));
        QVERIFY(isForgotten([this] { return m_bench->openPort(); }));
        QVERIFY(isForgotten([this] { // a Connect by hand
            runner().reserveConnect(*m_bench);
            return m_bench->run(readPlan("V"));
        }));
        QVERIFY(isForgotten([this] {
            m_bench->loseLink();
            return waitFor([this] { return runner().known().empty(); });
        }));
    }

private:
    [[nodiscard]] SequenceRunner& runner() { return m_bench->runner; }

    std::unique_ptr<RunnerBench> m_bench;
    QByteArrayList m_notes;
    std::unique_ptr<Party> m_party;
    std::unique_ptr<Party> m_other;
};

QTEST_GUILESS_MAIN(TestSequenceRunner)
#include "TestSequenceRunner.moc"
