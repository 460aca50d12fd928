#include "sensor/LookupTableFile.h"

#include "support/FileSizeLimit.h"
#include "tempcomp/TableFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <limits>
#include <memory>
#include <sys/stat.h>

using namespace pelorin;
using namespace pelorin::test;

using Outcome = LookupTableResult::Outcome;

namespace {

const CompensationTable kEarlier{{-7, -8}}; ///< in a table before a file is read

} // namespace

class TestLookupTableFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tableIsWrittenToTheByte();
    void everyPointAndTheEndsOfTheValueRangeComeBack();
    void linesAfterTheMarkerBecomeEntries_data();
    void linesAfterTheMarkerBecomeEntries();
    void hugeFilesAreReadOrRefused_data();
    void hugeFilesAreReadOrRefused();
    void failureTellsPathAndReason();
    void writeThatFailsHalfWayKeepsTheEarlierFile();
    void devicesAndFoldersAreNeitherReadNorReplaced();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestLookupTableFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("table %1 100%.csv"));
}

void TestLookupTableFile::tableIsWrittenToTheByte()
{
    QVERIFY(putContent(m_path, QByteArray(5000, 'x'))); // longer than what takes its place
    const CompensationTable table{{50, 1234}, {-20, -1}, {32767, 2147483647}, {0, 0}};
    QCOMPARE(writeLookupTableFile(m_path, table).outcome, Outcome::Done);
    QCOMPARE(contentOf(m_path),
             QByteArray("~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~\r\n0032,000004D2\r\n"
                        "FFFFFFEC,FFFFFFFF\r\n7FFF,7FFFFFFF\r\n0000,00000000\r\n"));

    QCOMPARE(writeLookupTableFile(m_path, {}).outcome, Outcome::Done);
    QCOMPARE(contentOf(m_path), kMarkerLine);
}

void TestLookupTableFile::everyPointAndTheEndsOfTheValueRangeComeBack()
{
    constexpr qint32 kLowest = std::numeric_limits<qint32>::min();
    constexpr qint32 kHighest = std::numeric_limits<qint32>::max();
    CompensationTable written;
    for (qint32 step = 0; step < 65536; ++step)
        written.push_back({static_cast<qint16>(step - 32768),
                           step % 2 == 0 ? kLowest + step / 2 : kHighest - step / 2});
    QCOMPARE(writeLookupTableFile(m_path, written).outcome, Outcome::Done);

    CompensationTable read;
    QCOMPARE(readLookupTableFile(m_path, read).outcome, Outcome::Done);
    QCOMPARE(read.size(), std::size_t{65536});
    QVERIFY(read == written);
}

void TestLookupTableFile::linesAfterTheMarkerBecomeEntries_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<CompensationTable>("entries");
    const auto row = [](const char* name, const QByteArray& afterMarker,
                        const CompensationTable& entries) {
        QTest::newRow(name) << QByteArray(kMarker + afterMarker) << Outcome::Done << entries;
    };
    row("marker without an end", "", {});
    row("marker alone", "\r\n", {});
    row("CR LF", "\r\n0032,000004D2\r\n0001,00000001\r\n", {{50, 1234}, {1, 1}});
    row("LF", "\n0032,000004D2\n0001,00000001\n", {{50, 1234}, {1, 1}});
    row("last line without an end", "\n0032,000004D2\r\n0001,00000001", {{50, 1234}, {1, 1}});
    row("last line ends in CR", "\n0032,000004D2\r", {{50, 1234}});
    row("eight digits", "\nFFFFFFEC,FFFFFFFF\n", {{-20, -1}});
    row("low bits", "\n12340032,1\nFFEC,1\n1,123456789\n", {{50, 1}, {-20, 1}, {1, 0x23456789}});
    row("lower case, short fields", "\nffffffec,4d2\n1,a\n", {{-20, 1234}, {1, 10}});
    row("blanks and prefixes", "\n 0032 , 0x4D2 \n", {{50, 1234}});
    row("no comma", "\n0032\n1;2\n0001,00000002\n", {{0, 0}, {0, 0}, {1, 2}});
    row("blank lines", "\n\n\r\n0001,00000002\n \n", {{0, 0}, {0, 0}, {1, 2}, {0, 0}});
    row("one field or none", "\n,7\n7,\n,\n", {{0, 7}, {7, 0}, {0, 0}});
    row("more commas", "\n1,2,3\n1,,3\n", {{1, 2}, {1, 0}});
    row("other characters", "\n1G2,3.4\n-1,+1\n", {{1, 3}, {0, 0}});
    row("zero bytes", QByteArray("\n1\0,2\0\n\0\n", 9), {{1, 2}, {0, 0}});
    row("bytes above 127", "\n\xff\xfe,\xc3\xa4\n1,2\xff\n", {{0, 0}, {1, 2}});
    row("fifteen rows", "\n" + QByteArray("1,2\n").repeated(15), CompensationTable(15, {1, 2}));

    const auto refused = [](const char* name, const QByteArray& content) {
        QTest::newRow(name) << content << Outcome::NotATable << CompensationTable();
    };
    const QByteArray rows = "\r\n0032,000004D2\r\n";
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    refused("empty", "");
    refused("blank first line", "\r\n" + kMarker + rows);
    refused("marker in lower case", kMarker.toLower() + rows);
    refused("blank behind the marker", kMarker + ' ' + rows);
    refused("blank before the marker", ' ' + kMarker + rows);
    refused("two CR", kMarker + '\r' + rows);
    refused("CR alone", kMarker + "\r0032,000004D2\r");
    refused("cut marker", kMarker.chopped(1) + rows);
    refused("byte order mark", "\xef\xbb\xbf" + kMarker + rows);
    refused("every byte", everyByte.repeated(1000));
}

void TestLookupTableFile::linesAfterTheMarkerBecomeEntries()
{
    QFETCH(QByteArray, content);
    QFETCH(CompensationTable, entries);
    QVERIFY(putContent(m_path, content));
    CompensationTable table = kEarlier;
    entries.insert(entries.begin(), kEarlier.front());
    QTEST(readLookupTableFile(m_path, table).outcome, "outcome");
    QVERIFY(table == entries);
}

void TestLookupTableFile::hugeFilesAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("size"); ///< filled up with zero bytes
    QTest::addColumn<int>("entries"); ///< -1: refused
    constexpr qint64 kLimit = 8 * 1024 * 1024;
    constexpr qint64 kHuge = 100'000'000;
    const QByteArray rows = kMarkerLine + QByteArray("FFFFFFEC,000004D2\r\n").repeated(100'000);
    const QByteArray line = kMarkerLine + "0032,";
    QTest::newRow("100,000 lines") << rows << qint64{rows.size()} << 100'000;
    QTest::newRow("one line as long as can be") << line << kLimit << 1;
    QTest::newRow("one byte more") << line << kLimit + 1 << -1;
    QTest::newRow("one line of 100 MB") << line << kHuge << -1;
    QTest::newRow("100 MB without a marker") << QByteArray() << kHuge << -1;
}

void TestLookupTableFile::hugeFilesAreReadOrRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, size);
    QFETCH(int, entries);
    QVERIFY(putContent(m_path, content));
    QVERIFY(QFile::resize(m_path, size));

    CompensationTable table;
    QCOMPARE(readLookupTableFile(m_path, table).outcome,
             entries < 0 ? Outcome::NotATable : Outcome::Done);
    QCOMPARE(static_cast<int>(table.size()), std::max(entries, 0));
}

void TestLookupTableFile::failureTellsPathAndReason()
{
    QVERIFY(putContent(m_path, kMarker));
    const QString below = m_path + QStringLiteral("/below.csv");
    CompensationTable table = kEarlier;
    const auto check = [](const LookupTableResult& result, Outcome outcome, const QString& path,
                          int systemError, const char* reason) {
        QCOMPARE(result.outcome, outcome);
        QCOMPARE(result.path, path);
        QCOMPARE(result.systemError, systemError);
        QCOMPARE(result.reason(), QString::fromLatin1(reason));
    };
    check(writeLookupTableFile(below, table), Outcome::NotOpened, below, ENOTDIR,
          "Not a directory");
    check(readLookupTableFile(below, table), Outcome::NotOpened, below, ENOTDIR, "Not a directory");
    const QString memory = QStringLiteral("/proc/self/mem"); // opens, but has no byte 0
    check(readLookupTableFile(memory, table), Outcome::NotRead, memory, EIO, "Input/output error");
    QVERIFY(table == kEarlier);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void TestLookupTableFile::writeThatFailsHalfWayKeepsTheEarlierFile()
{
    const QString fresh = m_folder->filePath(QStringLiteral("new.csv"));
    QVERIFY(putContent(m_path, kMarkerLine + kZeroLine));
    for (const QString& path : {m_path, fresh}) {
        for (const std::size_t entries : {std::size_t{10}, std::size_t{65'536}}) {
            const FileSizeLimit limit(100);
            const auto result = writeLookupTableFile(path, CompensationTable(entries, {1, 2}));
            QCOMPARE(result.outcome, Outcome::NotWritten);
            QCOMPARE(result.path, path);
            QCOMPARE(result.systemError, EFBIG);
        }
    }
    QCOMPARE(contentOf(m_path), kMarkerLine + kZeroLine);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void TestLookupTableFile::devicesAndFoldersAreNeitherReadNorReplaced()
{
    const QString pipe = m_folder->filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    const QString link = m_folder->filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), link));

    CompensationTable table;
    for (const QString& path : {link, pipe, m_folder->path()}) {
        QCOMPARE(writeLookupTableFile(path, table).outcome, Outcome::NotOpened);
        QCOMPARE(readLookupTableFile(path, table).outcome, Outcome::NotATable);
    }
    struct stat status = {};
    QCOMPARE(stat("/dev/full", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
    QCOMPARE(lstat(qPrintable(pipe), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

QTEST_GUILESS_MAIN(TestLookupTableFile)
#include "TestLookupTableFile.moc"
