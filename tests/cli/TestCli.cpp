#include "cli/CliBench.h"
#include "support/PseudoTerminal.h"

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

/// Runs the built program, as scripts do. What it does with a sensor is tested where that lives.
class TestCli : public CliBench
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QByteArray text = prepare();
        QCOMPARE(text.count('\n'), 13);
        QVERIFY(text.contains("\r\n44:4A0519\r\n"));
        text.replace("44:4A0519", "44:4A051X").replace("41:00000005\r\n", "");
        QVERIFY(m_folder.put(u"odd.dat"_s, text.replace("4B:000001", "4B:000301")));
        QVERIFY(
            m_folder.put(u"none.reg"_s, "Windows Registry Editor Version 5.00\r\n" + kInstalled));
        QVERIFY(m_folder.put(u"damaged.reg"_s, "Windows\r\n"));
        QVERIFY(m_folder.put(u"table.dat"_s, m_table));
    }

    void everyCommandEndsWithItsExitCodeAndOneObject()
    {
        const QString sensor = u" --port "_s + kSensor;
        const auto faulty = [](const char* fault) {
            return u" --port simulator:sensor?fault="_s + QLatin1String(fault);
        };
        keepFormat(u"simulator:sensor?fault=deaf@DN"_s);
        keepFormat(u"simulator:sensor?fault=silent@D"_s);
        keepFormat(u"simulator:sensor?moving=0"_s);
        const QString code = u"error/code"_s;
        const std::vector<CliRow> rows = {
            {"all of a sensor", u"info"_s + sensor, 0, u"values/7/value"_s, u"1250"_s},
            {"by COM number", u"info --port COM9"_s, 0, u"sensor/type"_s, u"1"_s},
            {"by a number alone", u"read A --port 9"_s, 0, u"port/device"_s,
             u"simulator:sensor?type=1"_s},
            {"silent", u"info"_s + faulty("silent"), 4, code, u"no-answer"_s},
            {"silent midway", u"info"_s + faulty("silent@UA"), 6, u"error/parameter"_s, u"U"_s},
            {"lost while connecting", u"info"_s + faulty("vanish@prog"), 6, code, u"lost"_s},
            {"lost midway", u"info"_s + faulty("vanish@LA"), 6, code, u"lost"_s},
            {"no such device", u"info --port %none"_s, 3, code, u"port"_s},
            {"a number of no device", u"info --port COM500"_s, 3, code, u"port"_s},
            {"not identified", u"info --settings %none.reg"_s + sensor, 5, u"values/6/value"_s,
             u"0.005"_s},
            {"identified by hand", u"info --type 2 --settings %none.reg"_s + sensor, 0,
             u"sensor/byHand"_s, u"true"_s},
            {"of another type", u"info --type 1"_s + sensor, 8, code, u"other-type"_s},
            {"texts", u"read D l"_s + sensor, 0, u"values/1/raw"_s, u"0A1250"_s},
            {"texts without a type", u"read V --settings %none.reg"_s + sensor, 0,
             u"values/0/raw"_s, u"3A0102"_s},
            {"the information page's texts", u"read --port COM9"_s, 0, u"values/10/id"_s, u"M"_s},
            {"no parameter", u"read D X"_s + sensor, 2, code, u"usage"_s},
            {"over a file", u"backup %garbage.dat"_s + sensor, 8, code, u"file-exists"_s},
            {"where no file can be", u"backup %garbage.dat/x"_s + sensor, 7, code, u"file"_s},
            {"of a silent sensor", u"backup %never.dat"_s + faulty("silent"), 4, code,
             u"no-answer"_s},
            {"over a device", u"backup /dev/null --yes"_s + sensor, 0, u"values/0/value"_s,
             u"25"_s},
            {"saved for nothing", u"backup %never3.dat --dry-run"_s + sensor, 0,
             u"values/0/value"_s, u"25"_s},
            {"equal", u"compare %good.dat"_s + sensor, 0, u"differences"_s},
            {"other data bits", u"compare %other.dat"_s + sensor, 1, u"differences/0/written"_s,
             u"4A0518"_s},
            {"not all saved", u"compare %few.dat"_s + sensor, 1, u"differences/0/id"_s, u"A"_s},
            {"equal files", u"compare %good.dat %good.dat"_s, 0, u"differences"_s},
            {"other files", u"compare %few.dat %good.dat"_s, 1, u"differences/0/found"_s,
             u"00000005"_s},
            {"no backup", u"compare %good.dat %garbage.dat"_s, 7, code, u"no-backup"_s},
            {"one file", u"compare %good.dat"_s, 2, code, u"usage"_s},
            {"a backup", u"convert %other.dat"_s, 0, u"values/0/value"_s, u"24"_s},
            {"a text without a meaning", u"convert %odd.dat"_s, 0, u"values/0/value"_s},
            {"a length without a resolution", u"convert %odd.dat"_s, 0, u"values/7/unit"_s,
             u"counts"_s},
            {"a number without a word", u"convert %odd.dat"_s, 0, u"values/10/value"_s, u"3"_s},
            {"a table", u"convert %table.dat"_s, 0, u"table/1/point"_s, u"-1.5"_s},
            {"neither", u"convert %garbage.dat"_s, 7, code, u"unknown-file"_s},
            {"no file", u"convert %absent.dat"_s, 7, code, u"file"_s},
            {"ports", u"ports"_s, 0, u"schema"_s, u"1"_s},
            {"a log", u"read D --log %log.txt"_s + sensor, 0, u"values/0/raw"_s, u"4A0519"_s},
            {"a log that cannot be", u"read D --log %garbage.dat/x"_s + sensor, 7,
             u"port/device"_s},
            {"format written back", u"read D --port simulator:sensor?moving=0"_s, 0,
             u"values/0/raw"_s, u"4A0518"_s},
            {"format not read", u"read V"_s + faulty("silent@D"), 6, code,
             u"format-not-restored"_s},
            {"format not written back", u"info"_s + faulty("deaf@DN"), 6, code,
             u"format-not-restored"_s},
            {"streaming format", u"backup %never2.dat"_s + faulty("deaf@DN"), 8, code,
             u"streaming-format"_s},
            {"no command", {}, 2, code, u"usage"_s},
            {"unknown command", u"burn"_s, 2, code, u"usage"_s},
            {"unknown option", u"info --fast"_s, 2, code, u"usage"_s},
            {"no port", u"info"_s, 2, code, u"usage"_s},
            {"surplus", u"info surplus"_s + sensor, 2, code, u"usage"_s},
            {"no type", u"info --type 3"_s + sensor, 2, code, u"usage"_s},
            {"no language", u"ports --language 3"_s, 2, code, u"usage"_s},
            {"nobody at the supply", u"info --manual-power"_s + sensor, 2, code, u"usage"_s},
            {"no settings", u"ports --settings %none"_s, 2, code, u"settings"_s},
            {"damaged settings", u"ports --settings %damaged.reg"_s, 2, code, u"settings"_s}};

        const PtySensor terminal(m_folder.path(u"pty"_s));
        QVERIFY(terminal.started);
        checkRows(rows, m_folder.path(u"."_s), kFast);
        checkRows({{"over a terminal", u"info --port %pty"_s, 0, u"sensor/version"_s, u"3A0102"_s}},
                  m_folder.path(u"."_s));
        QVERIFY(!m_folder.names().contains(u"never"_s));
        QVERIFY(m_folder.content(u"log.txt"_s).contains("\r\nTX: [44][Get][TERM]\r\n"));
        QCOMPARE(m_folder.content(u"garbage.dat"_s), QByteArray("garbage\r\n"));
    }

    void wordsAreInTheLanguageAndResultsOnStandardOutput()
    {
        CliRun info({u"info"_s, u"--port"_s, kSensor, u"--language"_s, u"2"_s});
        QCOMPARE(info.end(), 0);
        QCOMPARE(info.errors, QString());
        const QStringList lines = QString::fromUtf8(info.output).split(u'\n');
        QCOMPARE(lines.size(), 16); // the sensor, 14 parameters, nothing
        QCOMPARE(lines[0], u"Sensor vom Typ 2, Versionsantwort 3A0102"_s);
        QCOMPARE(lines[2], u"Auflösung (A): 0.005 mm"_s);
        CliRun files({u"compare"_s, m_folder.path(u"good.dat"_s), m_folder.path(u"few.dat"_s)});
        QCOMPARE(files.end(), 1);
        QVERIFY(files.output.startsWith("Resolution (A)\n  " +
                                        m_folder.path(u"good.dat: 0.005 mm\n"_s).toUtf8()));
        CliRun ports({u"ports"_s});
        QCOMPARE(ports.end(), 0);
        QVERIFY(ports.output.contains("COM9\tsimulator:sensor?type=1\tsimulated\n"));
        CliRun help({u"--help"_s, u"read"_s});
        QCOMPARE(help.end(), 0);
        QVERIFY(help.output.startsWith("pelorin-cli read "));
        QVERIFY(!help.output.contains("pelorin-cli info "));
        CliRun full({u"ports"_s, u"--json"_s});
        files.setStandardOutputFile(u"/dev/full"_s);
        full.setStandardOutputFile(u"/dev/full"_s);
        files.begin();
        QCOMPARE(files.end(), 1);
        QCOMPARE(full.end(), 7);
        QVERIFY(!full.errors.isEmpty() && full.errors == files.errors);
    }

    void aSensorIsWaitedForAndASignalEndsTheWaiting()
    {
        const QString link = m_folder.path(u"late"_s);
        const PtySensor terminal(link);
        QVERIFY(terminal.started);
        const auto& sensor = terminal.sensor;
        sensor->setFault({.kind = SimulatedFault::Kind::Silent});
        const QStringList arguments{u"read"_s, u"V"_s, u"--port"_s, link, u"--wait"_s, u"600"_s};
        CliRun given(arguments);
        given.begin();
        QVERIFY(waitFor([&] { return sensor->progFrames() > 0; }));
        interrupt(given, {SIGINT});
        QCOMPARE(given.end(), 130);
        CliRun waiting(arguments);
        waiting.begin();
        const int frames = sensor->progFrames();
        QVERIFY(waitFor([&] { return sensor->progFrames() > frames + 4 * 101; }));
        QCOMPARE(waiting.state(), QProcess::Running);
        sensor->setFault({});
        QCOMPARE(waiting.end(), 0);
        QCOMPARE(waiting.output, QByteArray("V 3A0102\n"));
    }

    void whoeverSitsAtTheTerminalIsAsked()
    {
        const QString file = m_folder.path(u"asked.dat"_s);
        struct Row
        {
            const char* name;
            QStringList arguments;
            std::vector<std::pair<std::string, std::string>> answers; ///< what is asked, and said
            int exit;
        };
        const QStringList backup{u"backup"_s, u"--port"_s, kSensor, file};
        const QStringList byHand{u"read"_s, u"V"_s, u"--manual-power"_s, u"--port"_s,
                                 u"simulator:sensor?power=manual"_s};
        const std::vector<Row> rows = {
            {"no", backup, {{"[y/N]", "\n"}}, 8},
            {"yes", backup, {{"[y/N]", "y\n"}}, 0},
            {"supply", byHand, {{"supply off", "\n"}, {"supply on", "\n"}}, 0},
            {"ready", byHand, {{"supply off", "n\n"}}, 4},
            {"a signal", backup, {{"[y/N]", {}}}, 130},
            {"positions",
             {u"watch"_s, u"--seconds"_s, u"1"_s, u"--manual-power"_s, u"--port"_s,
              u"simulator:sensor?power=manual"_s},
             {{"supply off", "\n"}, {"supply on", "\n"}},
             0},
            {"a write", // which offset, the extension, all of it
             {u"set"_s, u"extension=parity"_s, u"--port"_s, kSensor},
             {{"multiplied]", "keep-length\n"}, {"[y/N]", "y\n"}, {"[y/N]", "y\n"}},
             0},
            {"a write that is not wanted",
             {u"set"_s, u"offset=1"_s, u"--port"_s, kSensor},
             {{"[y/N]", "n\n"}},
             8},
        };
        forEachRow(rows, [&](const Row& row) {
            QVERIFY(m_folder.put(u"asked.dat"_s, "old"));
            PseudoTerminal terminal;
            const QString path = QString::fromStdString(terminal.path());
            CliRun run(row.arguments, kFast);
            run.setStandardInputFile(path);
            run.setStandardErrorFile(path);
            QVERIFY(terminal.send("y\n")); // before anything is asked
            run.begin();
            for (const auto& [question, answer] : row.answers) {
                std::string said;
                while (said.find(question) == std::string::npos) {
                    const std::string more = terminal.receive(1);
                    QVERIFY2(!more.empty(), said.c_str());
                    said += more;
                }
                if (answer.empty())
                    interrupt(run, {SIGINT});
                QVERIFY(terminal.send(answer));
            }
            QCOMPARE(run.end(), row.exit);
            QCOMPARE(m_folder.content(u"asked.dat"_s) == "old",
                     row.arguments != backup || row.exit != 0);
        });
    }

private:
    const QByteArray m_table = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~\r\n"
                               "0014,00000010\r\nFFFD,FFFFFFFF\r\n";
};

QTEST_GUILESS_MAIN(TestCli)
#include "TestCli.moc"
