#include "cli/CliRun.h"
#include "sensor/Journal.h"
#include "sensor/KeptFormats.h"
#include "sensor/PositionRecording.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedSensor.h"
#include "support/PseudoTerminal.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"

#include <QFile>

#include <array>
#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

const QByteArray kInstalled =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"Path\"=\"C:\\\\Pelorin\"\r\n";

const QString kFast = QStringLiteral(PELORIN_FAST_CLI); ///< for sensors that live in the program

/// A sensor of type 2 on a line without RTS.
struct PtySensor
{
    explicit PtySensor(const QString& link) : server(sensor, link.toStdString())
    {
        started = server.start() == 0;
    }

    const std::shared_ptr<SimulatedSensor> sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    PtyServer server;
    bool started = false;
};

/// The first shell script of a document.
QString scriptIn(const QString& document)
{
    return document.section(u"```sh\n"_s, 1).section(u"```"_s, 0, 0);
}

} // namespace

/// Runs the built program where it writes to sensors, as scripts do.
class TestCliWrites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_DATA_HOME", m_folder.path(u"data"_s).toUtf8());
        CliRun backup({u"backup"_s, u"--port"_s, u"simulator:sensor"_s, m_folder.path(u"own"_s)},
                      kFast);
        QCOMPARE(backup.end(), 0);
        QByteArray text = m_folder.content(u"own"_s);
        QVERIFY(m_folder.put(u"few"_s, QByteArray(text).replace("4B:000001\r\n", "")));
        QVERIFY(m_folder.put(u"odd"_s, QByteArray(text).replace("44:4A0519", "44:4A051X")));
        QVERIFY(m_folder.put(u"other"_s, text.replace("44:4A0519", "44:4A0518")));
        QVERIFY(m_folder.put(u"off.reg"_s, "Windows Registry Editor Version 5.00\r\n" + kInstalled +
                                               "\"SafeWrites\"=dword:00000000\r\n" +
                                               kSimulatedBounds));
    }

    void everyWriteEndsWithItsExitCodeAndOneObject()
    {
        const QString code = u"error/code"_s;
        const QString on = u" --port simulator:sensor"_s;
        const QString streaming = u"simulator:sensor?fault=deaf@DN"_s;
        QVERIFY(KeptFormats().keep({streaming, "3A0102", "4A0518", "4A0519"}).isDone());
        const std::vector<CliRow> rows = {
            {"restored", u"restore %other --all --yes"_s + on, 0, u"values/0/value"_s, u"24"_s},
            {"output settings", u"restore %other --output-only --yes"_s + on, 0,
             u"values/0/value"_s, u"24"_s},
            {"not taken", u"restore %other --all --yes --port simulator:sensor?fault=deaf@EN"_s, 1,
             u"differences/0/found"_s, u"4A0519"_s},
            {"nothing differs", u"restore %own --all"_s + on, 0, u"plan"_s},
            {"only shown", u"restore %other --all --dry-run"_s + on, 0, u"plan/0/frame"_s,
             u"444e3441303531380d"_s},
            {"nobody agrees", u"restore %other --all"_s + on, 8, code, u"not-confirmed"_s},
            {"neither", u"restore %other"_s + on, 2, code, u"usage"_s},
            {"both", u"restore %other --all --output-only"_s + on, 2, code, u"usage"_s},
            {"not all saved", u"restore %few --all --yes"_s + on, 7, code, u"backup-unfit"_s},
            {"unusual", u"restore %odd --output-only --yes"_s + on, 8, u"error/parameter"_s,
             u"D"_s},
            {"mode not offered", u"restore %other --output-only --port simulator:sensor?type=0"_s,
             8, code, u"refused"_s},
            {"lost", u"restore %other --all --yes --port simulator:sensor?fault=vanish@EN"_s, 6,
             code, u"lost"_s},
            {"unseen", u"restore %other --all --yes --settings %off.reg"_s + on, 9, code,
             u"not-checked"_s},
            {"output settings unseen",
             u"restore %other --output-only --yes --settings %off.reg"_s + on, 8, code,
             u"refused"_s},
            {"streaming format", u"set offset=1 --yes --port "_s + streaming, 8, code,
             u"streaming-format"_s},
            {"set", u"set data-bits=24 offset=-0.5 --yes"_s + on, 0, u"values/0/value"_s, u"24"_s},
            {"offset multiplied", u"set code=binary --yes --offset-count=multiplied"_s + on, 0,
             u"values/15/value"_s, u"0.1"_s},
            {"length kept",
             u"set resolution=0.010 skip-count=7 --password steadynow --yes"
             " --offset-count=keep-length"_s +
                 on,
             0, u"values/15/value"_s, u"0.05"_s},
            {"magnets", u"set output=difference extension=parity offset=0 --yes"_s + on, 0,
             u"values/20/value"_s, u"2"_s},
            {"direction", u"set direction=reverse mode=asynchronous offset=9 --yes"_s + on, 0,
             u"values/0/raw"_s, u"430519"_s},
            {"already so", u"set code=gray offset=0.05"_s + on, 0, u"plan"_s},
            {"no new offset", u"set direction=reverse mode=asynchronous --yes"_s + on, 8,
             u"error/parameter"_s, u"N"_s},
            {"in reverse", u"set direction=reverse offset=9 --yes"_s + on, 8, code, u"refused"_s},
            {"no choice", u"set code=binary --yes"_s + on, 8, u"error/parameter"_s, u"N"_s},
            {"locked", u"set skip-count=7 --yes"_s + on, 8, u"error/parameter"_s, u"D"_s},
            {"wrong password", u"set skip-count=7 --password x --yes"_s + on, 8, code,
             u"refused"_s},
            {"too large", u"set resolution=0.001 offset=99999 --yes"_s + on, 8, code, u"refused"_s},
            {"not of type 1", u"set output=velocity --yes --port simulator:sensor?type=1"_s, 8,
             u"error/parameter"_s, u"K"_s},
            {"parity unasked", u"set extension=parity offset=1"_s + on, 8, code,
             u"not-confirmed"_s},
            {"no name", u"set magnets=2"_s + on, 2, code, u"usage"_s},
            {"no value", u"set resolution=0.003"_s + on, 2, code, u"usage"_s},
            {"no decimal point", u"set offset=0,5"_s + on, 2, code, u"usage"_s},
            {"twice", u"set code=gray code=binary"_s + on, 2, code, u"usage"_s},
            {"no time", u"watch --seconds 0"_s + on, 2, code, u"usage"_s},
            {"nowhere to record", u"watch --csv %own/x"_s + on, 7, u"port/device"_s},
            {"nothing to record", u"watch --csv %none --port simulator:sensor?fault=silent@A"_s, 6,
             code, u"failed"_s},
            {"no stream", u"watch --port simulator:sensor?fault=silent@A"_s, 6,
             u"error/parameter"_s, u"A"_s},
            {"stream only shown", u"watch --dry-run"_s + on, 0, u"plan/0/raw"_s, u"4E0519"_s},
            {"no entry", u"journal show none"_s, 7, code, u"no-entry"_s},
            {"no such use", u"journal burn"_s, 2, code, u"usage"_s}};
        checkRows(rows, m_folder.path(u"."_s), kFast);
        QVERIFY(!m_folder.names().contains(u"none"_s));
    }

    void aStateIsKeptShownAndPutBack()
    {
        const QString line = m_folder.path(u"back"_s);
        const PtySensor terminal(line);
        QVERIFY(terminal.started);
        CliRun change({u"set"_s, u"data-bits=24"_s, u"offset=1"_s, u"--yes"_s, u"--json"_s,
                       u"--port"_s, line});
        QCOMPARE(change.end(), 9);
        QCOMPARE(terminal.sensor->parameter('D'), "4A0518");
        const QString entry = at(objectOf(change.output), u"entry"_s);
        CliRun list({u"journal"_s, u"list"_s});
        QCOMPARE(list.end(), 0);
        QVERIFY(list.output.contains(entry.toUtf8() + '\t'));
        CliRun show({u"journal"_s, u"show"_s, entry, u"--json"_s});
        QCOMPARE(show.end(), 0);
        const QJsonObject shown = objectOf(show.output);
        QCOMPARE(at(shown, u"entries/0/reason"_s), u"not restarted"_s);
        QCOMPARE(at(shown, u"values/0/value"_s), u"25"_s);
        QCOMPARE(at(shown, u"written/0/value"_s), u"24"_s);
        CliRun back(
            {u"journal"_s, u"put-back"_s, entry, u"--all"_s, u"--yes"_s, u"--port"_s, line});
        QCOMPARE(back.end(), 9);
        QCOMPARE(terminal.sensor->parameter('D'), "4A0519");
        QCOMPARE(terminal.sensor->parameter('N'), "00000A");
    }

    void withoutJournalNothingIsWrittenUnlessThatIsWanted()
    {
        QStringList arguments{u"set"_s,    u"offset=1"_s, u"--yes"_s,
                              u"--json"_s, u"--port"_s,   u"simulator:sensor"_s};
        QProcessEnvironment nowhere = QProcessEnvironment::systemEnvironment();
        nowhere.insert(u"XDG_DATA_HOME"_s, m_folder.path(u"own/below"_s));
        for (const int exit : {8, 0}) {
            CliRun run(arguments, kFast);
            run.setProcessEnvironment(nowhere);
            QCOMPARE(run.end(), exit);
            QCOMPARE(at(objectOf(run.output), u"error/code"_s), exit ? u"journal"_s : QString());
            arguments << u"--no-journal"_s;
        }
    }

    void aWriteThatIsInterruptedIsWrittenToItsEnd()
    {
        const QString line = m_folder.path(u"cut"_s);
        const PtySensor terminal(line);
        QVERIFY(terminal.started);
        const auto known = Journal().entries().size();
        CliRun run({u"set"_s, u"output=velocity"_s, u"data-bits=24"_s, u"offset=1"_s, u"--yes"_s,
                    u"--json"_s, u"--port"_s, line});
        run.begin();
        QVERIFY(waitFor([&] { return Journal().entries().size() > known; })); // writing begins
        interrupt(run, {SIGINT, SIGTERM});
        QCOMPARE(run.end(), 130);
        QCOMPARE(at(objectOf(run.output), u"error/code"_s), u"interrupted"_s);
        QCOMPARE(terminal.sensor->parameter('D'), "4A0518");
        QCOMPARE(terminal.sensor->parameter('K'), "000201");
        const auto entry = Journal().find(at(objectOf(run.output), u"entry"_s));
        QVERIFY(entry && entry->end);
        QCOMPARE(entry->end->reason, WriteResult::Reason::Closed);
    }

    void positionsAreShownUntilSomethingEndsThemAndTheFormatIsBack()
    {
        const std::array<PtySensor, 4> sensors{
            PtySensor(m_folder.path(u"1"_s)), PtySensor(m_folder.path(u"2"_s)),
            PtySensor(m_folder.path(u"3"_s)), PtySensor(m_folder.path(u"4"_s))};
        const auto watching = [this](const QString& line) {
            return QStringList{u"watch"_s, u"--json"_s, u"--port"_s, m_folder.path(line)};
        };
        const QString csv = m_folder.path(u"positions.csv"_s);
        CliRun timed(watching(u"1"_s) + QStringList{u"--seconds"_s, u"1"_s, u"--csv"_s, csv});
        CliRun given(watching(u"2"_s));
        CliRun piped({u"-c"_s, u"\"$0\" \"$@\" | head -n 1; exit ${PIPESTATUS[0]}"_s,
                      QStringLiteral(PELORIN_CLI)});
        piped.setArguments(piped.arguments() + watching(u"3"_s));
        piped.setProgram(u"bash"_s);
        CliRun closed({u"-c"_s, u"\"$0\" \"$@\" >&-"_s, QStringLiteral(PELORIN_CLI)}, u"bash"_s);
        closed.setArguments(closed.arguments() + watching(u"4"_s));
        for (CliRun* run : {&timed, &given, &piped, &closed})
            run->begin();

        QVERIFY(waitFor([&] { return given.bytesAvailable() > 0; }));
        QCOMPARE(sensors[1].sensor->parameter('D'), "4E0519");
        interrupt(given, {SIGHUP, SIGINT});
        for (CliRun* run : {&timed, &given, &piped})
            QCOMPARE(run->end(), 0);
        QCOMPARE(closed.end(), 7);
        QVERIFY2(closed.errors.contains(qt_error_string(EBADF)), qPrintable(closed.errors));
        for (const PtySensor& each : sensors)
            QCOMPARE(each.sensor->parameter('D'), "4A0519");
        QCOMPARE(piped.output.count('\n'), 1);
        const QJsonObject last = objectOf(timed.output.trimmed().split('\n').last() + '\n');
        QCOMPARE(faultOf(last), QString());
        const int count = at(last, u"summary/count"_s).toInt();
        QVERIFY(count > 0);
        QCOMPARE(timed.output.count('\n'), count + 1);
        QCOMPARE(readRecording(csv).content.points.size(), std::size_t(count));
    }

    void whoeverSitsAtTheTerminalAgreesToWhatIsWritten()
    {
        PseudoTerminal terminal;
        CliRun run({u"set"_s, u"extension=parity"_s, u"--port"_s, u"simulator:sensor"_s}, kFast);
        run.setStandardInputFile(QString::fromStdString(terminal.path()));
        run.setStandardErrorFile(QString::fromStdString(terminal.path()));
        run.begin();
        std::string said;
        for (const char* answer : {"keep-length\n", "y\n", "y\n"}) { // which, parity, all of it
            while (!said.ends_with("]\r\n") && !said.ends_with("]\n")) {
                const std::string more = terminal.receive(1);
                QVERIFY2(!more.empty(), said.c_str());
                said += more;
            }
            said.clear();
            QVERIFY(terminal.send(answer));
        }
        QCOMPARE(run.end(), 0);
        QVERIFY(run.output.startsWith("Verified: "));
    }

    void theSeriesOfTheManualWritesALineForEachSensor()
    {
        const QString script =
            scriptIn(QString::fromUtf8(contentOf(QStringLiteral(PELORIN_MANUAL))));
        QVERIFY(script.count(u'\n') <= 20);
        CliRun series({u"-c"_s, script, u"series"_s, u"simulator:sensor"_s,
                       m_folder.path(u"other"_s), u"2"_s, m_folder.path(u"series.csv"_s)});
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        QVERIFY(QFile::link(kFast, m_folder.path(u"pelorin-cli"_s)));
        environment.insert(u"PATH"_s, m_folder.path(u"."_s) + u':' + environment.value(u"PATH"_s));
        series.setProcessEnvironment(environment);
        series.setProgram(u"bash"_s);
        series.setStandardInputFile(m_folder.path(u"enter"_s));
        QVERIFY(m_folder.put(u"enter"_s, "\n\n"));
        QCOMPARE(series.end(), 0);
        const auto lines = m_folder.content(u"series.csv"_s).trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        for (const QByteArray& line : lines)
            QVERIFY2(line.endsWith(",SN012345,verified"), line.constData());
    }

private:
    const TestRegistry m_settings{kInstalled + kSimulatedBounds};
    const TestFolder m_folder;
};

QTEST_GUILESS_MAIN(TestCliWrites)
#include "TestCliWrites.moc"
