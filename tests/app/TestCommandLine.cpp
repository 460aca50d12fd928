#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"
#include "system/Program.h"

#include <csignal>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

/// The program on a machine without a display, of which the toolkit knows only by its own option.
class TestCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("QT_QPA_PLATFORM", "missing"); }

    void programAnswersOrRefusesBeforeItRuns()
    {
        struct Row
        {
            const char* name;
            QStringList arguments;
            int exitCode;
            QString printed;
            QString refused = {};
        };
        const QStringList offscreen{u"-platform"_s, u"offscreen"_s};
        QVERIFY(m_folder.put(u"damaged.reg"_s, "Windows Registry Editor Version 5.00\n[\n"));
        const QString damaged = m_folder.path(u"damaged.reg"_s);
        const QString missing = m_folder.path(u"missing.reg"_s);
        forEachRow(
            std::vector<Row>{
                {"help", {u"--help"_s}, 0, u"--settings <FILE>"_s},
                {"version", {u"/CP:9"_s, u"--version"_s}, 0, u"pelorin 1.06."_s},
                {"unknown", offscreen + QStringList{u"--help-me"_s}, 2, {}, u"'help-me'."_s},
                {"short", offscreen + QStringList{u"/CP:1"_s, u"-h"_s}, 2, {}, u"option 'h'."_s},
                {"dash", offscreen + QStringList{u"-"_s}, 2, {}, u"option '-'."_s},
                {"no file", offscreen + QStringList{u"--settings"_s}, 2, {}, u"'--settings'."_s},
                {"missing file",
                 offscreen + QStringList{u"--settings"_s, missing},
                 2,
                 {},
                 missing + u": No such file"_s},
                {"damaged file",
                 offscreen + QStringList{u"--settings="_s + damaged},
                 2,
                 {},
                 damaged + u": damaged in line 2"_s}},
            [](const Row& row) {
                QProcess pelorin;
                pelorin.start(QStringLiteral(PELORIN_PROGRAM), row.arguments);
                QVERIFY(pelorin.waitForFinished());
                const QString refused = QString::fromUtf8(pelorin.readAllStandardError());
                QCOMPARE(pelorin.exitStatus(), QProcess::NormalExit);
                QCOMPARE(pelorin.exitCode(), row.exitCode);
                QVERIFY(QString::fromUtf8(pelorin.readAllStandardOutput()).contains(row.printed));
                QVERIFY2(refused.contains(row.refused), qPrintable(refused));
                QCOMPARE(refused.contains(u"Usage: "), row.exitCode == 2);
            });
    }

    /// Without a path in its settings the program ends as one that could not start.
    void settingsOptionWinsOverTheEnvironment()
    {
        const TestRegistry environment{QByteArray()};
        QVERIFY(m_folder.put(u"own.reg"_s,
                             "Windows Registry Editor Version 5.00\n"
                             "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\n"
                             "\"Path\"=\"C:\\\\Pelorin\"\n"));
        const QStringList arguments{u"-platform"_s, u"offscreen"_s, u"/CP:0"_s};
        Program without(QStringLiteral(PELORIN_PROGRAM), arguments);
        QCOMPARE(without.endBy(SIGTERM), 1);
        const QStringList own{u"--settings"_s, m_folder.path(u"own.reg"_s)};
        Program with(QStringLiteral(PELORIN_PROGRAM), own + arguments);
        QCOMPARE(with.endBy(SIGTERM), 0);
    }

private:
    const TestFolder m_folder;
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "TestCommandLine.moc"
