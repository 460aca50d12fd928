#include "sensor/SafeWriter.h"

#include "sensor/RunnerBench.h"
#include "support/Languages.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;
using Phase = SafeWriter::Phase;
using Fault = SimulatedFault::Kind;

/// A writer on a connected type 2 sensor, and what it tells.
struct Writer final : QObject
{
    explicit Writer(SafeWriter::Settings settings = {}) : writer(bench.runner, journal, settings)
    {
        connect(&writer, &SafeWriter::ended, this, [this](auto& ended) { told = ended; });
    }

    void fail(Fault kind, const char* command, int times = 0) const
    {
        bench.sensor->setFault({kind, kind == Fault::Late ? 150 : 3, times}, command);
    }
    void during(Phase wanted, Fault kind, const char* command, int times = 0)
    {
        at = [=, this](Phase phase) {
            if (phase == wanted)
                fail(kind, command, times);
        };
    }

    /// Begins to write another resolution and offset, as a page does that has read both.
    [[nodiscard]] bool begin(const QByteArray& seenOffset = "00000A")
    {
        WriteRequest request;
        request.order = "DAN";
        request.values = {{'D', "4A0519"}, {'A', "00000010"}, {'N', "000122"}};
        request.closing = 'C';
        request.base = {{'N', seenOffset}, {'A', "00000005"}};
        return writer.write(*this, request,
                            {.phase = at, .ended = [this](auto& ended) { result = ended; }});
    }
    [[nodiscard]] bool end()
    {
        return waitFor([this] { return result.has_value(); });
    }
    void comeBack()
    {
        bench.last.clear();
        bench.sensor->clearFaults();
        bench.sensor->comeBack();
    }
    /// Connects, and has what was lost compared. @return whether it ends and tells something
    [[nodiscard]] bool compared(bool untouched)
    {
        told.reset();
        if (!bench.connectSensor(port))
            return false;
        bool done = false;
        writer.compareAfterConnect(untouched, [&done] { done = true; });
        return waitFor([&done] { return done; }) && told;
    }
    [[nodiscard]] QByteArray held(char id) const
    {
        return QByteArray::fromStdString(bench.sensor->parameter(id));
    }

    const Languages languages{1};
    RunnerBench bench;
    TestFolder folder;
    Journal journal{folder.path(QStringLiteral("journal"))};
    SafeWriter writer;
    int port = 7; ///< at which it is connected anew
    std::function<void(Phase)> at;
    std::optional<WriteResult> result;
    std::optional<WriteResult> told; ///< to everybody
};

} // namespace

class TestSafeWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsCalledVerifiedThatTheSensorDoesNotHave()
    {
        struct Row
        {
            const char* name;
            std::function<void(Writer&)> before; ///< the sensor is connected
            Kind kind;
            Reason reason = Reason::None;
            QByteArray differing{};
            bool offsetHeld = true; ///< the sensor has the new offset afterwards
            SafeWriter::Settings settings{};
        };
        forEachRow(
            std::vector<Row>{
                {"all taken", [](Writer&) {}, Kind::Verified},
                {"one write not heard", [](Writer& w) { w.fail(Fault::Deaf, "NN"); }, Kind::Differs,
                 Reason::None, "N", false},
                {"closing command not heard", [](Writer& w) { w.fail(Fault::Deaf, "CN"); },
                 Kind::Differs, Reason::None, "AN", false},
                {"one answer disturbed",
                 [](Writer& w) { w.during(Phase::Comparing, Fault::WrongByte, "NA", 1); },
                 Kind::Verified},
                {"one parameter never answers",
                 [](Writer& w) { w.during(Phase::Comparing, Fault::Silent, "AA"); },
                 Kind::NotChecked, Reason::NoAnswer},
                {"silent after the restart",
                 [](Writer& w) { w.during(Phase::Restarting, Fault::Silent, ""); },
                 Kind::NotChecked, Reason::NoAnswer},
                {"late after the restart",
                 [](Writer& w) { w.during(Phase::Comparing, Fault::Late, "DA", 1); },
                 Kind::Verified},
                {"another sensor after the restart",
                 [](Writer& w) {
                     w.at = [&w](Phase phase) {
                         if (phase == Phase::Restarting)
                             w.bench.sensor->setParameter('V', "3A0199");
                     };
                 },
                 Kind::NotChecked, Reason::AnotherSensor},
                {"offset divided by the sensor",
                 [](Writer& w) {
                     w.at = [&w](Phase phase) {
                         if (phase == Phase::Comparing)
                             w.bench.sensor->setParameter('N', "000091");
                     };
                 },
                 Kind::NotChecked, Reason::Undivided, "N", false},
                {"supply switched by hand",
                 [](Writer&) {},
                 Kind::NotChecked,
                 Reason::NotRestarted,
                 {},
                 true,
                 {.manualPower = true}},
                {"switched off",
                 [](Writer&) {},
                 Kind::NotChecked,
                 Reason::SwitchedOff,
                 {},
                 true,
                 {.enabled = false}},
            },
            [](const Row& row) {
                Writer w(row.settings);
                QVERIFY(w.bench.connectSensor());
                row.before(w);
                QVERIFY(w.begin() && w.end());
                QCOMPARE(int(w.result->kind), int(row.kind));
                QCOMPARE(int(w.result->reason), int(row.reason));
                QByteArray differing;
                for (const Difference& difference : w.result->differences)
                    differing += difference.id;
                QCOMPARE(differing, row.differing);
                QCOMPARE(w.held('N') == "000122", row.offsetHeld);
                QCOMPARE(w.journal.unfinished().size(), 0);
            });
    }

    void nothingIsWrittenToASensorThatIsNotAsItWasSeen()
    {
        struct Row
        {
            const char* name;
            std::function<void(Writer&)> before;
            const char* problem; ///< a part of what the user is told
        };
        forEachRow(
            std::vector<Row>{
                {"changed", [](Writer& w) { w.bench.sensor->setParameter('N', "000111"); }, "(N)"},
                {"silent", [](Writer& w) { w.fail(Fault::Silent, "AA"); }, "65"},
                {"an answer always disturbed", [](Writer& w) { w.fail(Fault::WrongByte, "AA"); },
                 "65"},
                {"no journal and nobody to ask",
                 [](Writer& w) { QVERIFY(w.folder.put(QStringLiteral("journal"), "")); },
                 "journal"},
                {"no journal and the user does not want to",
                 [](Writer& w) {
                     QVERIFY(w.folder.put(QStringLiteral("journal"), ""));
                     w.writer.setQuestion([](auto&, const auto& answer) { answer(false); });
                 },
                 ""},
                {"a parameter for the journal alone silent",
                 [](Writer& w) { w.fail(Fault::Silent, "JA"); }, "(J)"},
            },
            [](const Row& row) {
                Writer w;
                QVERIFY(w.bench.connectSensor());
                const QByteArray before = w.held('N');
                row.before(w);
                QVERIFY(w.begin() && w.end());
                QCOMPARE(int(w.result->kind), int(Kind::NotWritten));
                QVERIFY2(w.result->problem.contains(QLatin1String(row.problem)),
                         qPrintable(w.result->problem));
                QVERIFY(!w.bench.frames().contains(QStringLiteral("NN")));
                QCOMPARE(w.journal.entries().size(), 0);
            });
    }

    void stateIsKeptBeforeTheFirstWriteWithEverythingTheSensorHas()
    {
        Writer w;
        QVERIFY(w.bench.connectSensor());
        w.fail(Fault::WrongByte, "MA", 1);
        QVERIFY(w.bench.run(readPlan("M"))); // disturbed: it is not what the sensor has
        QList<JournalEntry> unfinished;
        qsizetype entries = 0;
        w.at = [&](Phase phase) {
            if (phase == Phase::Writing) {
                entries = w.journal.entries().size();
                unfinished = w.journal.unfinished(); // somebody works on it
            }
        };
        QVERIFY(w.begin() && w.end());
        QCOMPARE(entries, 1);
        QCOMPARE(unfinished.size(), 0);
        const JournalEntry entry = w.journal.entries().constFirst();
        QCOMPARE(entry.values.at('N'), QByteArray("00000A"));
        QCOMPARE(entry.values.at('F'), QByteArray("SN012345"));
        QCOMPARE(entry.values.at('M'), QByteArray("081F20"));
        QCOMPARE(entry.written.at('N'), QByteArray("000122"));
        QVERIFY((entry.end == JournalEntry::End{Kind::Verified, Reason::None, true}));
    }

    void whatWasWrittenWhenTheLinkWasLostIsComparedAfterTheNextConnect()
    {
        struct Row
        {
            const char* name;
            bool closed;                       ///< the sensor has heard the closing command
            std::function<void(Writer&)> back; ///< it comes back
            bool untouched;
            Kind kind;
            Reason reason = Reason::None;
            bool nothingChanged = false;
        };
        const auto alone = [](Writer&) {};
        const auto change = [](char id, const char* text) {
            return [=](Writer& w) { w.bench.sensor->setParameter(id, text); };
        };
        forEachRow(
            std::vector<Row>{
                {"heard", true, alone, true, Kind::Verified},
                {"not heard", false, alone, true, Kind::Differs, Reason::None, true},
                {"heard, and written to since", true, alone, false, Kind::NotChecked,
                 Reason::NotRestarted},
                {"not heard, and written to since", false, alone, false, Kind::Differs},
                {"another version", true, change('V', "3A0199"), true, Kind::NotChecked,
                 Reason::AnotherSensor},
                {"another factory text", false, change('F', "SN099999"), true, Kind::NotChecked,
                 Reason::AnotherSensor},
                {"another port", true, [](Writer& w) { w.port = 8; }, true, Kind::NotChecked,
                 Reason::AnotherPort},
                {"lost again after a difference", false,
                 [](Writer& w) {
                     w.bench.last = "DA\r"; // when it is asked once more
                     w.bench.skipped = 1;
                     w.fail(Fault::Silent, "DA", 1);
                     QVERIFY(w.compared(true));
                     QCOMPARE(int(w.told->reason), int(Reason::LinkLost));
                     w.comeBack();
                     w.bench.sensor->setParameter('A', "00000010");
                     w.bench.sensor->setParameter('N', "000122");
                 },
                 true, Kind::Verified},
            },
            [](const Row& row) {
                Writer w;
                QVERIFY(w.bench.connectSensor());
                if (!row.closed)
                    w.fail(Fault::Deaf, "CN");
                w.bench.last = "CN\r";
                QVERIFY(w.begin() && w.end());
                QCOMPARE(int(w.result->reason), int(Reason::LinkLost));
                QVERIFY(!w.journal.entries().constFirst().end->told);
                QCOMPARE(w.journal.untold().size(), 0); // somebody still works on it
                w.comeBack();
                row.back(w);
                QVERIFY(w.compared(row.untouched));
                QCOMPARE(int(w.told->kind), int(row.kind));
                QCOMPARE(int(w.told->reason), int(row.reason));
                QCOMPARE(w.told->nothingChanged, row.nothingChanged);
                QVERIFY((w.journal.entries().constFirst().end ==
                         JournalEntry::End{row.kind, row.reason, true}));
            });
    }

    void switchedOffOnlyTheWritesGoOverTheLine()
    {
        Writer w({.enabled = false});
        QVERIFY(w.bench.connectSensor());
        QVERIFY(w.begin() && w.end());
        QCOMPARE(w.bench.frames(), QStringLiteral("DN4A0519 AN00000010 NN000122 CN"));
        QCOMPARE(w.journal.entries().size(), 0);
    }
};

QTEST_GUILESS_MAIN(TestSafeWriter)
#include "TestSafeWriter.moc"
