#include "sensor/PositionRecording.h"

#include "platform/core/AppendedFile.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QTest>
#include <QTimeZone>

#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const RecordingHead kHead{QStringLiteral("02.08"), 2, QStringLiteral("COM99"), 0.005,
                          QDateTime({2026, 3, 1}, {7, 8, 9, 10}, Qt::UTC)};
const QByteArray kHeadText = "Pelorin position recording,1\r\nSensor version,02.08\r\n"
                             "Sensor type,2\r\nPort,COM99\r\nResolution (mm),0.005\r\n"
                             "Start (UTC),2026-03-01T07:08:09.010Z\r\nTime (s),Position (mm)\r\n";
const QList<PositionPoint> kPoints{{0, 12.345}, {0.0025, -0.005}, {3600.5, 1000}};
const QByteArray kLines = "0.0000,12.345\r\n0.0025,-0.005\r\n3600.5000,1000.000\r\n";
const QString kName = QStringLiteral("recording.csv");
int syncError = 0;

} // namespace

/// In the place of the system's.
extern "C" int fsync(int /*descriptor*/)
{
    errno = syncError;
    return errno == 0 ? 0 : -1;
}

class TestPositionRecording : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { syncError = 0; }

    void whatIsRecordedIsReadAgain()
    {
        QCOMPARE(recordingHeadText(kHead), kHeadText);
        QCOMPARE(recordingLines(kPoints, 3), kLines);
        const RecordingContent content = recordingOf(kHeadText + kLines);
        QVERIFY(content.isRecording && content.head == kHead && content.points == kPoints);
        QCOMPARE(content.badLines, 0);
    }

    void damagedFilesNameTheLineAndKeepTheRest()
    {
        struct Row
        {
            const char* name;
            QByteArray text;
            qsizetype points;
            int firstBadLine, badLines;
        };
        forEachRow<Row>(
            {{"empty", "", 0, 1, 1},
             {"foreign", "0.0000,12.345\r\n", 0, 1, 1},
             {"of a later version", QByteArray(kHeadText).replace("ing,1", "ing,2"), 0, 1, 1},
             {"without positions", kHeadText, 0, 0, 0},
             {"line feeds alone", QByteArray(kHeadText + kLines).replace("\r", ""), 3, 0, 0},
             {"cut in a line", kHeadText + kLines.chopped(10) + "x", 2, 10, 1},
             {"head damaged", QByteArray(kHeadText).replace("0.005", "x") + kLines, 3, 5, 1},
             {"start damaged", QByteArray(kHeadText).replace("-03-", "-33-") + kLines, 3, 6, 1},
             {"decimal comma", kHeadText + "0,0000,1,5\r\n" + kLines, 3, 8, 1},
             {"words and blanks", kHeadText + kLines + "nan,1\r\n1e9,1\r\n\r\n9000,inf\r\n", 3, 11,
              4},
             {"lines run together", kHeadText + kLines + "3700.0,1000003700123\r\n", 3, 11, 1},
             {"time goes back", kHeadText + kLines + "1.0000,5\r\n3601.0000,5\r\n", 4, 11, 1},
             {"head again", kHeadText + kLines + "Port,COM1\r\n", 3, 11, 1}},
            [](const Row& row) {
                const RecordingContent content = recordingOf(row.text);
                QCOMPARE(content.points.size(), row.points);
                QCOMPARE(content.firstBadLine, row.firstBadLine);
                QCOMPARE(content.badLines, row.badLines);
            });
    }

    void fullDiskKeepsTheWholePieces()
    {
        const TestFolder folder;
        AppendedFile file;
        QVERIFY(file.open(folder.path(kName)).isDone());
        const FileSizeLimit limit(rlim_t(kHeadText.size()) + 20);
        QVERIFY(file.append(kHeadText).isDone());
        const WholeFile::Outcome outcome = file.append(kLines);
        QCOMPARE(outcome.systemError, EFBIG);
        QCOMPARE(outcome.failure, WholeFile::Outcome::Failure::Appending); // no older file is left
        QVERIFY(!file.isOpen());
        QCOMPARE(folder.content(kName), kHeadText);
    }

    void diskThatCannotPromiseTakesARecordingAsItTakesABackup()
    {
        const TestFolder folder;
        for (const auto& [error, isTaken] : {std::pair(EOPNOTSUPP, true), {ENOSPC, false}}) {
            syncError = error;
            AppendedFile file;
            QVERIFY(file.open(folder.path(kName)).isDone() && file.append(kLines).isDone());
            QCOMPARE(file.close().isDone(), isTaken);
            QCOMPARE(WholeFile(folder.path(kName)).save(kLines).isDone(), isTaken);
        }
    }

    void onlyFilesAreBegunAnew()
    {
        const TestFolder folder;
        QVERIFY(folder.put(kName, "older and longer than what comes"));
        AppendedFile file;
        QVERIFY(file.open(folder.path(kName)).isDone() && file.append("a").isDone());
        QVERIFY(file.append("b").isDone() && file.close().isDone() && !file.isOpen());
        QCOMPARE(folder.content(kName), QByteArray("ab"));
        for (const auto& [path, error] : {std::pair(folder.path({}), EISDIR),
                                          {QStringLiteral("/dev/null"), EINVAL},
                                          {folder.path(kName + QStringLiteral("/x")), ENOTDIR}})
            QCOMPARE(file.open(path).systemError, error);
    }
};

QTEST_APPLESS_MAIN(TestPositionRecording)
#include "TestPositionRecording.moc"
