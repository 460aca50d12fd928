#include "cli/CliBench.h"
#include "sensor/BackupFile.h"
#include "sensor/Journal.h"
#include "sensor/PositionRecording.h"
#include "support/PseudoTerminal.h"

#include <QFile>

#include <cerrno>
#include <list>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The first shell script of a document.
QString scriptIn(const QString& document)
{
    return document.section(u"```sh\n"_s, 1).section(u"```"_s, 0, 0);
}

/// The positions of a sensor of its own, shown by a call of the program.
struct Watch
{
    /// @param shell how a shell makes the call, if one does
    explicit Watch(const TestFolder& folder, const QString& name, const QString& shell = {},
                   const QStringList& more = {})
        : terminal(folder.path(name)),
          run(QStringList{u"watch"_s, u"--json"_s, u"--port"_s, folder.path(name)} + more)
    {
        if (!shell.isEmpty()) {
            run.setArguments(QStringList{u"-c"_s, shell, run.program()} + run.arguments());
            run.setProgram(u"bash"_s);
        }
        run.begin();
    }

    [[nodiscard]] std::string format() const { return terminal.sensor->parameter('D'); }

    const PtySensor terminal;
    CliRun run;
};

QByteArray lastLineOf(const Watch& watch)
{
    return watch.run.output.trimmed().split('\n').last() + '\n';
}

} // namespace

/// Runs the built program where it writes to sensors, as scripts do.
class TestCliWrites : public CliBench
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QByteArray text = prepare();
        QVERIFY(text.contains("44:4A0519"));
        const QByteArray foreign = QByteArray(text).replace("44:4A", "44:4E");
        QVERIFY(m_folder.put(u"foreign.dat"_s, QByteArray(foreign).replace("55:28", "55:29")));
        QVERIFY(m_folder.put(u"odd.dat"_s, text.replace("44:4A0519", "44:4A051X")));
        QVERIFY(m_folder.put(u"off.reg"_s, "Windows Registry Editor Version 5.00\r\n" + kInstalled +
                                               "\"SafeWrites\"=dword:00000000\r\n" +
                                               kSimulatedBounds));
    }

    void everyWriteEndsWithItsExitCodeAndOneObject()
    {
        const QString code = u"error/code"_s;
        const QString on = u" --port "_s + kSensor;
        const QString streaming = u"simulator:sensor?fault=deaf@DN"_s;
        keepFormat(streaming);
        const std::vector<CliRow> rows = {
            {"restored", u"restore %other.dat --all --yes"_s + on, 0, u"values/0/value"_s, u"24"_s},
            {"output settings", u"restore %other.dat --output-only --yes"_s + on, 0,
             u"values/0/value"_s, u"24"_s},
            {"not taken", u"restore %other.dat --all --yes --port simulator:sensor?fault=deaf@EN"_s,
             1, u"differences/0/found"_s, u"4A0519"_s},
            {"nothing differs", u"restore %good.dat --all"_s + on, 0, u"plan"_s},
            {"only shown", u"restore %other.dat --all --dry-run"_s + on, 0, u"plan/0/frame"_s,
             u"444e3441303531380d"_s},
            {"only shown, unseen", u"restore %other.dat --all --dry-run --settings %off.reg"_s + on,
             0, u"plan/13/restart"_s},
            {"nobody agrees", u"restore %other.dat --all"_s + on, 8, code, u"not-confirmed"_s},
            {"neither", u"restore %other.dat"_s + on, 2, code, u"usage"_s},
            {"both", u"restore %other.dat --all --output-only"_s + on, 2, code, u"usage"_s},
            {"not all saved", u"restore %few.dat --all --yes"_s + on, 7, code, u"backup-unfit"_s},
            {"unusual", u"restore %odd.dat --output-only --yes"_s + on, 8, u"error/parameter"_s,
             u"D"_s},
            {"mode not offered",
             u"restore %other.dat --output-only --port simulator:sensor?type=0"_s, 8, code,
             u"refused"_s},
            {"lost", u"restore %other.dat --all --yes --port simulator:sensor?fault=vanish@EN"_s, 6,
             code, u"lost"_s},
            {"unseen", u"restore %other.dat --all --yes --settings %off.reg"_s + on, 9, code,
             u"not-checked"_s},
            {"output settings unseen",
             u"restore %other.dat --output-only --yes --settings %off.reg"_s + on, 8, code,
             u"refused"_s},
            {"streaming format unseen",
             u"restore %other.dat --all --yes --settings %off.reg --port "_s + streaming, 8, code,
             u"streaming-format"_s},
            {"silent midway", u"set offset=1 --yes --port simulator:sensor?fault=silent@A"_s, 6,
             u"error/parameter"_s, u"A"_s},
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
            {"already so, no offset", u"set code=gray"_s + on, 0, u"plan"_s},
            {"no multiplier", u"set data-bits=25 --yes --port simulator:sensor?type=0"_s, 0,
             u"error"_s},
            {"no new offset", u"set direction=reverse mode=asynchronous --yes"_s + on, 8,
             u"error/parameter"_s, u"N"_s},
            {"in reverse", u"set direction=reverse offset=9 --yes"_s + on, 8, code, u"refused"_s},
            {"no such choice", u"set code=binary --yes --offset-count=half"_s + on, 2, code,
             u"usage"_s},
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
            {"no word", u"set code=grey"_s + on, 2, code, u"usage"_s},
            {"no such count", u"set skip-count=256"_s + on, 2, code, u"usage"_s},
            {"no decimal point", u"set offset=0,5"_s + on, 2, code, u"usage"_s},
            {"twice", u"set code=gray code=binary"_s + on, 2, code, u"usage"_s},
            {"no time", u"watch --seconds 0"_s + on, 2, code, u"usage"_s},
            {"nowhere to record", u"watch --csv %good.dat/x"_s + on, 7, u"port/device"_s},
            {"recorded by a device", u"watch --csv /dev/null --yes"_s + on, 7, code, u"file"_s},
            {"nothing to record", u"watch --csv %none --port simulator:sensor?fault=silent@A"_s, 6,
             code, u"failed"_s},
            {"no positions", u"watch --seconds 1 --port simulator:sensor?fault=silent@stream"_s, 4,
             code, u"no-positions"_s},
            {"format of another time", u"watch --port "_s + streaming, 8, code,
             u"streaming-format"_s},
            {"no stream", u"watch --port simulator:sensor?fault=silent@A"_s, 6,
             u"error/parameter"_s, u"A"_s},
            {"stream only shown", u"watch --dry-run"_s + on, 0, u"plan/0/raw"_s, u"4E0519"_s},
            {"no entry", u"journal show none"_s, 7, code, u"no-entry"_s},
            {"no such use", u"journal burn"_s, 2, code, u"usage"_s}};
        checkRows(rows, m_folder.path(u"."_s), kFast);
        CliRun foreign({u"restore"_s, m_folder.path(u"foreign.dat"_s), u"--all"_s, u"--dry-run"_s,
                        u"--port"_s, kSensor},
                       kFast);
        QCOMPARE(foreign.end(), 0);
        QCOMPARE(foreign.errors.count(u'\n'), 2); // of another sensor, and its stream
        QVERIFY(foreign.errors.contains(u"(U)"_s));
        struct Odd
        {
            char id;
            const char* text;
            const char* command;
            const char* parameter; ///< that the refusal is about
        };
        std::vector<CliRow> oddRows;
        std::list<PtySensor> sensors;
        for (const auto& [id, text, command, parameter] :
             std::initializer_list<Odd>{{'D', "4A051X", "set offset=1 --yes", "D"},
                                        {'D', "4A051X", "watch", "D"},
                                        {'A', "00000000", "set code=binary --yes", "A"},
                                        {'S', "000001", "set code=gray --yes", "N"},
                                        {'U', "28?000", "backup %doubtful.dat", ""}}) {
            const QString name = u"odd%1"_s.arg(sensors.size());
            sensors.emplace_back(m_folder.path(name)).sensor->setParameter(id, text);
            oddRows.push_back({command, QLatin1String(command) + u" --port %"_s + name,
                               *parameter == '\0' ? 0 : 8, u"error/parameter"_s,
                               QLatin1String(parameter)});
        }
        checkRows(oddRows, m_folder.path(u"."_s));
        QVERIFY(m_folder.content(u"doubtful.dat"_s).contains("55:28?000"));
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
                              u"--json"_s, u"--port"_s,   kSensor};
        QProcessEnvironment nowhere = QProcessEnvironment::systemEnvironment();
        nowhere.insert(u"XDG_DATA_HOME"_s, m_folder.path(u"good.dat/below"_s));
        for (const int exit : {8, 0}) {
            CliRun run(arguments, kFast);
            run.setProcessEnvironment(nowhere);
            QCOMPARE(run.end(), exit);
            QCOMPARE(at(objectOf(run.output), u"error/code"_s), exit ? u"journal"_s : QString());
            arguments << u"--no-journal"_s;
        }
        nowhere.insert(u"XDG_CONFIG_HOME"_s, m_folder.path(u"good.dat/below"_s));
        CliRun watch({u"watch"_s, u"--json"_s, u"--port"_s, kSensor}, kFast);
        watch.setProcessEnvironment(nowhere);
        QCOMPARE(watch.end(), 7); // its data format could not be kept
        QCOMPARE(at(objectOf(watch.output), u"error/code"_s), u"file"_s);
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
        const QString csv = m_folder.path(u"positions.csv"_s);
        const QString full = fullPipe();
        Watch timed(m_folder, u"1"_s, {}, {u"--seconds"_s, u"1"_s, u"--csv"_s, csv});
        Watch given(m_folder, u"2"_s);
        Watch piped(m_folder, u"3"_s, u"\"$0\" \"$@\" | head -n 1; exit ${PIPESTATUS[0]}"_s);
        Watch closed(m_folder, u"4"_s, u"\"$0\" \"$@\" >&-"_s);
        Watch unread(m_folder, u"5"_s, u"trap '' HUP; exec \"$0\" \"$@\" > "_s + full);
        const PseudoTerminal stalled; // nobody reads it, and much was said before
        const QByteArray said(100, '-');
        for (int line = 0; line < 150; ++line)
            QCOMPARE(::write(stalled.slave(), said.constData(), said.size()), said.size());
        Watch stuck(m_folder, u"8"_s,
                    u"exec \"$0\" \"$@\" > "_s + QString::fromStdString(stalled.path()),
                    {u"--seconds"_s, u"5"_s});
        Watch lost(m_folder, u"6"_s);
        Watch early(m_folder, u"7"_s);
        Watch silent(m_folder, u"9"_s);
        silent.terminal.sensor->setFault({SimulatedFault::Kind::Silent}, "stream");

        QVERIFY(waitFor([&] { return early.format() == "4E0519"; }));
        interrupt(early.run, {SIGINT});
        QVERIFY(waitFor([&] {
            return stuck.format() == "4E0519" && given.run.bytesAvailable() > 0 &&
                   lost.run.bytesAvailable() > 0 &&
                   unread.terminal.sensor->positionFrames() > 400 && // it shows them by now
                   silent.terminal.sensor->positionFrames() > 400;
        }));
        QCOMPARE(given.format(), "4E0519");
        interrupt(silent.run, {SIGTERM});
        interrupt(unread.run, {SIGHUP});
        interrupt(given.run, {SIGHUP, SIGINT});
        lost.terminal.sensor->vanish();
        QCOMPARE(lost.run.end(), 6);
        QVERIFY(waitFor([&] { return stuck.format() == "4A0519"; })); // its time is over
        interrupt(stuck.run, {SIGTERM});
        QCOMPARE(stuck.run.end(), 7);
        for (Watch* watch : {&timed, &given, &piped})
            QCOMPARE(watch->run.end(), 0);
        for (Watch* watch : {&early, &silent})
            QCOMPARE(watch->run.end(), 130);
        QCOMPARE(closed.run.end(), 7);
        QVERIFY2(closed.run.errors.contains(qt_error_string(EBADF)), qPrintable(closed.run.errors));
        QCOMPARE(unread.format(), "4E0519");
        interrupt(unread.run, {SIGTERM});
        QCOMPARE(unread.run.end(), 7);
        for (const Watch* watch :
             {&timed, &given, &piped, &closed, &unread, &stuck, &early, &silent})
            QCOMPARE(watch->format(), "4A0519");
        QCOMPARE(at(objectOf(lastLineOf(lost)), u"error/code"_s), u"format-not-restored"_s);
        QCOMPARE(piped.run.output.count('\n'), 1);
        const QJsonObject last = objectOf(lastLineOf(timed));
        QCOMPARE(faultOf(last), QString());
        const int count = at(last, u"summary/count"_s).toInt();
        QVERIFY(count > 0);
        QCOMPARE(timed.run.output.count('\n'), count + 1);
        QCOMPARE(readRecording(csv).content.points.size(), std::size_t(count));
    }

    void anUnfinishedWriteIsToldUntilTheStateIsPutBack()
    {
        JournalEntry state{.time = QDateTime::currentDateTimeUtc(), .device = kSensor};
        state.version = "3A0102";
        state.ssiType = 2;
        state.written = {{'N', "000001"}};
        const auto leaveUnfinished = [&](const QString& values, const char* text = "SN012345") {
            state.values = *BackupFile::valuesOf(m_folder.content(values));
            state.values['F'] = text;
            return Journal().begin(state).writing->entry().id;
        };
        const QString sameId = leaveUnfinished(u"good.dat"_s), id = leaveUnfinished(u"other.dat"_s);
        const QString othersId = leaveUnfinished(u"other.dat"_s, "SN999999");
        state.values['K'] = "1";
        state.device = u"elsewhere"_s;
        const QString oddId = Journal().begin(state).writing->entry().id;
        QVERIFY(m_folder.put(u"data/pelorin/journal/damaged.json"_s, "{}"));

        const auto errorsOf = [](const QStringList& arguments) {
            CliRun run(arguments, kFast);
            return run.end() == 0 ? run.errors : u"failed"_s;
        };
        const QStringList read{u"read"_s, u"V"_s, u"--port"_s, kSensor};
        QCOMPARE(errorsOf(read).count(u'\n'), 3);
        QVERIFY(errorsOf(read).contains(u"journal show "_s + id));
        QVERIFY(errorsOf({u"journal"_s, u"list"_s}).contains(Journal().folder()));
        const QString back = u"journal put-back "_s + id;
        const QString code = u"error/code"_s;
        checkRows(
            {{"what of it", back, 2, code, u"usage"_s},
             {"nowhere", back + u" --all"_s, 2, code, u"usage"_s},
             {"a silent one", back + u" --all --port simulator:sensor?fault=silent"_s, 4, code,
              u"no-answer"_s},
             {"another type", back + u" --all --yes --port simulator:sensor?type=1"_s, 8, code,
              u"refused"_s},
             {"no value", u"journal put-back "_s + oddId + u" --all --yes --port "_s + kSensor, 8,
              u"error/parameter"_s, u"K"_s},
             {"a part", back + u" --output-only --yes --port "_s + kSensor, 0, u"values/0/raw"_s,
              u"4A0518"_s},
             {"another sensor's",
              u"journal put-back "_s + othersId + u" --all --yes --port "_s + kSensor, 0,
              u"values/0/raw"_s, u"4A0518"_s}},
            m_folder.path(u"."_s), kFast);
        QCOMPARE(errorsOf(read).count(u'\n'), 3); // all are still to be told
        checkRows({{"nothing differs",
                    u"journal put-back "_s + sameId + u" --all --port "_s + kSensor, 0, u"plan"_s},
                   {"put back", back + u" --all --yes --port "_s + kSensor, 0, u"values/0/raw"_s,
                    u"4A0518"_s}},
                  m_folder.path(u"."_s), kFast);
        QCOMPARE(errorsOf(read).count(u'\n'), 1);
        QVERIFY(errorsOf(read).contains(othersId));
    }

    void theSeriesOfTheManualWritesALineForEachSensor()
    {
        const QString script =
            scriptIn(QString::fromUtf8(contentOf(QStringLiteral(PELORIN_MANUAL))));
        QVERIFY(script.count(u'\n') <= 20);
        CliRun series({u"-c"_s, script, u"series"_s, kSensor, m_folder.path(u"other.dat"_s), u"2"_s,
                       m_folder.path(u"series.csv"_s)});
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
    /// A pipe that takes nothing, and that nobody closes before the test ends.
    [[nodiscard]] QString fullPipe() const
    {
        QString path = m_folder.path(u"full"_s);
        const QByteArray name = QFile::encodeName(path);
        (void)::mkfifo(name.constData(), S_IRUSR | S_IWUSR); // seen by the next
        const int pipe = ::open(name.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        while (::write(pipe, "", 1) == 1) {
        }
        return path;
    }
};

QTEST_GUILESS_MAIN(TestCliWrites)
#include "TestCliWrites.moc"
