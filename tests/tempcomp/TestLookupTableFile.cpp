#include "tempcomp/LookupTableFile.h"

#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>
#include <sys/stat.h>

using namespace pelorin;

using Outcome = LookupTableResult::Outcome;

Q_DECLARE_METATYPE(Outcome)

namespace {

const QByteArray kMarker = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
constexpr qint32 kLowest = std::numeric_limits<qint32>::min();
constexpr qint32 kHighest = std::numeric_limits<qint32>::max();

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

bool createFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

class TestLookupTableFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tableIsWrittenToTheByte_data();
    void tableIsWrittenToTheByte();
    void everyPointAndTheEndsOfTheValueRangeComeBack();
    void linesAfterTheMarkerBecomeEntries_data();
    void linesAfterTheMarkerBecomeEntries();
    void whatIsNoTableIsRefused_data();
    void whatIsNoTableIsRefused();
    void hugeFilesAreReadOrRefused_data();
    void hugeFilesAreReadOrRefused();
    void refusedOpeningTellsPathAndReason_data();
    void refusedOpeningTellsPathAndReason();
    void readingThatFailsTellsPathAndReason();
    void writeThatFailsHalfWayKeepsTheEarlierFile_data();
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

void TestLookupTableFile::tableIsWrittenToTheByte_data()
{
    QTest::addColumn<CompensationTable>("table");
    QTest::addColumn<QByteArray>("lines");

    QTest::newRow("empty") << CompensationTable{} << QByteArray();
    QTest::newRow("points") << CompensationTable{{0, 0}, {50, 0}, {-20, 0}}
                            << QByteArray(
                                   "0000,00000000\r\n0032,00000000\r\nFFFFFFEC,00000000\r\n");
    QTest::newRow("values") << CompensationTable{{0, 1234}, {0, -1}}
                            << QByteArray("0000,000004D2\r\n0000,FFFFFFFF\r\n");
    QTest::newRow("ends") << CompensationTable{{32767, kHighest}, {-32768, kLowest}}
                          << QByteArray("7FFF,7FFFFFFF\r\nFFFF8000,80000000\r\n");
    QTest::newRow("ten entries") << CompensationTable(10)
                                 << QByteArray("0000,00000000\r\n").repeated(10);
}

void TestLookupTableFile::tableIsWrittenToTheByte()
{
    QFETCH(CompensationTable, table);
    QFETCH(QByteArray, lines);
    QVERIFY(createFile(m_path, QByteArray(5000, 'x'))); // longer than any of them

    const LookupTableResult result = writeLookupTableFile(m_path, table);
    QCOMPARE(result.outcome, Outcome::Done);
    QCOMPARE(contentOf(m_path), kMarker + "\r\n" + lines);
}

void TestLookupTableFile::everyPointAndTheEndsOfTheValueRangeComeBack()
{
    CompensationTable written;
    for (int point = -32768; point <= 32767; ++point) {
        const qint32 fromEnd = (point + 32768) / 2;
        written.push_back(
            {static_cast<qint16>(point), point % 2 == 0 ? kLowest + fromEnd : kHighest - fromEnd});
    }
    QCOMPARE(writeLookupTableFile(m_path, written).outcome, Outcome::Done);

    CompensationTable read;
    QCOMPARE(readLookupTableFile(m_path, read).outcome, Outcome::Done);
    QCOMPARE(read.size(), std::size_t{65536});
    QVERIFY(read == written);
}

void TestLookupTableFile::linesAfterTheMarkerBecomeEntries_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<CompensationTable>("entries");

    const auto row = [](const char* name, const QByteArray& afterMarker,
                        const CompensationTable& entries) {
        QTest::newRow(name) << QByteArray(kMarker + afterMarker) << entries;
    };
    row("marker without an end", "", {});
    row("marker alone, LF", "\n", {});
    row("marker alone, CR LF", "\r\n", {});
    row("CR LF", "\r\n0032,000004D2\r\n0001,00000001\r\n", {{50, 1234}, {1, 1}});
    row("LF", "\n0032,000004D2\n0001,00000001\n", {{50, 1234}, {1, 1}});
    row("both ends", "\r\n0032,000004D2\n0001,00000001\r\n", {{50, 1234}, {1, 1}});
    row("last line without an end", "\n0032,000004D2\n0001,00000001", {{50, 1234}, {1, 1}});
    row("last line ends in CR", "\n0032,000004D2\r", {{50, 1234}});
    row("eight digits", "\nFFFFFFEC,FFFFFFFF\n", {{-20, -1}});
    row("low 16 bits of the first field", "\n12340032,1\nFFEC,1\n8000,1\n",
        {{50, 1}, {-20, 1}, {-32768, 1}});
    row("low 32 bits of the second field", "\n1,123456789\n", {{1, 0x23456789}});
    row("lower case, short fields", "\nffffffec,4d2\n1,a\n", {{-20, 1234}, {1, 10}});
    row("blanks and prefixes", "\n 0032 , 0x4D2 \n", {{50, 1234}});
    row("no comma", "\n0032\n0001,00000002\n", {{0, 0}, {1, 2}});
    row("blank lines", "\n\n\r\n0001,00000002\n \n", {{0, 0}, {0, 0}, {1, 2}, {0, 0}});
    row("comma alone", "\n,\n", {{0, 0}});
    row("one field missing", "\n,7\n7,\n", {{0, 7}, {7, 0}});
    row("signs", "\n-1,-1\n+1,+1\n", {{0, 0}, {0, 0}});
    row("more commas", "\n1,2,3\n1,,3\n", {{1, 2}, {1, 0}});
    row("semicolon", "\n1;2\n", {{0, 0}});
    row("other characters", "\n1G2,3.4\n", {{1, 3}});
    row("zero bytes", QByteArray("\n1\0,2\0\n\0\n", 9), {{1, 2}, {0, 0}});
    row("bytes above 127", "\n\xff\xfe,\xc3\xa4\n1,2\xff\n", {{0, 0}, {1, 2}});
    row("marker again", "\n" + kMarker + "\n", {{0, 0}});
    row("fifteen rows", "\n" + QByteArray("1,2\n").repeated(15), CompensationTable(15, {1, 2}));
}

void TestLookupTableFile::linesAfterTheMarkerBecomeEntries()
{
    QFETCH(QByteArray, content);
    QFETCH(CompensationTable, entries);
    QVERIFY(createFile(m_path, content));

    CompensationTable table{{-7, -8}}; // what was there before stays
    entries.insert(entries.begin(), {-7, -8});
    QCOMPARE(readLookupTableFile(m_path, table).outcome, Outcome::Done);
    QCOMPARE(table.size(), entries.size());
    QVERIFY(table == entries);
}

void TestLookupTableFile::whatIsNoTableIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");

    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    const QByteArray rows = "\r\n0032,000004D2\r\n";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blank first line") << QByteArray("\r\n" + kMarker + rows);
    QTest::newRow("rows alone") << rows.mid(2);
    QTest::newRow("lower case") << QByteArray(kMarker.toLower() + rows);
    QTest::newRow("blank behind") << QByteArray(kMarker + ' ' + rows);
    QTest::newRow("blank before") << QByteArray(' ' + kMarker + rows);
    QTest::newRow("two CR") << QByteArray(kMarker + '\r' + rows);
    QTest::newRow("CR alone") << QByteArray(kMarker + "\r0032,000004D2\r");
    QTest::newRow("cut") << QByteArray(kMarker.chopped(1) + rows);
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf" + kMarker + rows);
    QTest::newRow("another file of the program") << QByteArray("~~~PELORIN_BACKUP_FILE~~~" + rows);
    QTest::newRow("every byte") << everyByte.repeated(1000);
}

void TestLookupTableFile::whatIsNoTableIsRefused()
{
    QFETCH(QByteArray, content);
    QVERIFY(createFile(m_path, content));

    CompensationTable table{{-7, -8}};
    QCOMPARE(readLookupTableFile(m_path, table).outcome, Outcome::NotATable);
    QVERIFY(table == (CompensationTable{{-7, -8}}));
}

void TestLookupTableFile::hugeFilesAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<qint64>("size"); ///< filled up with zero bytes
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<int>("entries");

    constexpr qint64 kLimit = 8 * 1024 * 1024;
    constexpr qint64 kHuge = 100'000'000;
    const QByteArray rows =
        kMarker + "\r\n" + QByteArray("FFFFFFEC,000004D2\r\n").repeated(100'000);
    const QByteArray lineStart = kMarker + "\r\n0032,";
    QTest::newRow("100,000 lines") << rows << qint64{rows.size()} << Outcome::Done << 100'000;
    QTest::newRow("lines alone") << kMarker + QByteArray(1'000'000, '\n') << qint64{1'000'046}
                                 << Outcome::Done << 999'999;
    QTest::newRow("one line as long as can be") << lineStart << kLimit << Outcome::Done << 1;
    QTest::newRow("one byte more") << lineStart << kLimit + 1 << Outcome::NotATable << 0;
    QTest::newRow("one line of 100 MB") << lineStart << kHuge << Outcome::NotATable << 0;
    QTest::newRow("100 MB without a marker") << QByteArray() << kHuge << Outcome::NotATable << 0;
}

void TestLookupTableFile::hugeFilesAreReadOrRefused()
{
    QFETCH(QByteArray, content);
    QFETCH(qint64, size);
    QVERIFY(createFile(m_path, content));
    QVERIFY(QFile::resize(m_path, size));

    CompensationTable table;
    QTEST(readLookupTableFile(m_path, table).outcome, "outcome");
    QTEST(static_cast<int>(table.size()), "entries");
}

void TestLookupTableFile::refusedOpeningTellsPathAndReason_data()
{
    QTest::addColumn<QString>("below");
    QTest::addColumn<int>("systemError");
    QTest::newRow("below a file") << "file.txt/table.csv" << ENOTDIR;
    QTest::newRow("below a folder that is not there") << "none/table.csv" << ENOENT;
}

void TestLookupTableFile::refusedOpeningTellsPathAndReason()
{
    QFETCH(QString, below);
    QFETCH(int, systemError);
    QVERIFY(createFile(m_folder->filePath(QStringLiteral("file.txt")), kMarker));
    const QString path = m_folder->filePath(below);

    CompensationTable table{{-7, -8}};
    for (const LookupTableResult& result :
         {writeLookupTableFile(path, table), readLookupTableFile(path, table)}) {
        QCOMPARE(result.outcome, Outcome::NotOpened);
        QCOMPARE(result.path, path);
        QCOMPARE(result.systemError, systemError);
        QCOMPARE(result.reason(), QString::fromLocal8Bit(std::strerror(systemError)));
    }
    QVERIFY(table == (CompensationTable{{-7, -8}}));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
             QStringList(QStringLiteral("file.txt")));
}

void TestLookupTableFile::readingThatFailsTellsPathAndReason()
{
    const QString path = QStringLiteral("/proc/self/mem"); // opens, but has no byte 0
    CompensationTable table{{-7, -8}};
    const LookupTableResult result = readLookupTableFile(path, table);

    QCOMPARE(result.outcome, Outcome::NotRead);
    QCOMPARE(result.path, path);
    QCOMPARE(result.systemError, EIO);
    QVERIFY(table == (CompensationTable{{-7, -8}}));
}

void TestLookupTableFile::writeThatFailsHalfWayKeepsTheEarlierFile_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<bool>("overwrites");
    QTest::newRow("small") << 10 << true;
    QTest::newRow("large") << 65'536 << true;
    QTest::newRow("small, new") << 10 << false;
    QTest::newRow("large, new") << 65'536 << false;
}

void TestLookupTableFile::writeThatFailsHalfWayKeepsTheEarlierFile()
{
    QFETCH(int, entries);
    QFETCH(bool, overwrites);
    const QByteArray earlier = kMarker + "\r\n0032,000004D2\r\n";
    if (overwrites)
        QVERIFY(createFile(m_path, earlier));

    const CompensationTable table(static_cast<std::size_t>(entries), {1, 2});
    LookupTableResult result;
    {
        const test::FileSizeLimit limit(100);
        result = writeLookupTableFile(m_path, table);
    }
    QCOMPARE(result.outcome, Outcome::NotWritten);
    QCOMPARE(result.path, m_path);
    QCOMPARE(result.systemError, EFBIG);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), overwrites ? 1 : 0);
    if (overwrites)
        QCOMPARE(contentOf(m_path), earlier);
}

void TestLookupTableFile::devicesAndFoldersAreNeitherReadNorReplaced()
{
    const QByteArray pipe = m_folder->filePath(QStringLiteral("pipe")).toLocal8Bit();
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    const QString link = m_folder->filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), link));

    CompensationTable table;
    for (const QString& path :
         {QStringLiteral("/dev/full"), link, QString::fromLocal8Bit(pipe), m_folder->path()}) {
        QCOMPARE(writeLookupTableFile(path, table).outcome, Outcome::NotOpened);
        QCOMPARE(readLookupTableFile(path, table).outcome, Outcome::NotATable);
    }
    struct stat status = {};
    QCOMPARE(stat("/dev/full", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
    QCOMPARE(lstat(pipe.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

QTEST_GUILESS_MAIN(TestLookupTableFile)
#include "TestLookupTableFile.moc"
