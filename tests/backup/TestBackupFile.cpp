#include "backup/BackupFile.h"

#include "support/FileSizeLimit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace pelorin;

namespace {

constexpr const char* kMarkerLine = "~~~PELORIN_BACKUP_FILE~~~\r\n";

BackupValues someValues()
{
    BackupValues values;
    values['U'] = "283000";
    values['A'] = "00000005";
    values['D'] = "4A0519";
    return values;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

bool create(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

class TestBackupFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void savedFileHoldsMarkerAndValuesByIdentifier();
    void everyByteThatALineCanHoldComesBack();
    void textIsReadLineByLine_data();
    void textIsReadLineByLine();
    void foreignTextIsNoBackup_data();
    void foreignTextIsNoBackup();
    void hugeFileIsNoBackup();
    void newFileIsEmptyUntilItIsSaved();
    void olderFileStaysUntilTheNewOneIsSaved();
    void diskErrorLeavesTheOlderFileAndNoHalfOne_data();
    void diskErrorLeavesTheOlderFileAndNoHalfOne();
    void fullDeviceIsReportedAndNotReplaced();
    void linkToAFileStaysALink();
    void fileThatCannotBeOpenedGivesTheSystemsCode();
    void valuesAreCheckedAgainstTheParametersOfASensor();

private:
    [[nodiscard]] QString path(const char* name = "backup.dat") const
    {
        return m_folder->filePath(QLatin1String(name));
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestBackupFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestBackupFile::savedFileHoldsMarkerAndValuesByIdentifier()
{
    BackupFile file(path());
    QCOMPARE(file.openForSaving(), 0);
    QCOMPARE(file.save(someValues()), QString());
    QCOMPARE(contentOf(path()), QByteArray("~~~PELORIN_BACKUP_FILE~~~\r\n"
                                           "41:00000005\r\n"
                                           "44:4A0519\r\n"
                                           "55:283000\r\n"));
    QCOMPARE(files(), QStringList(QStringLiteral("backup.dat")));
}

void TestBackupFile::everyByteThatALineCanHoldComesBack()
{
    BackupValues values;
    for (int byte = 0x20; byte <= 0xFF; ++byte) {
        const auto character = static_cast<char>(byte);
        if (byte != 0x7F)
            values[character] = QByteArray(3, character) + ":x";
        QCOMPARE(hasControlCharacters(QByteArray(1, character)), byte == 0x7F);
    }
    const QByteArray text = BackupFile::textOf(values);
    QVERIFY(text.contains("\r\nE9:\xE9\xE9\xE9:x\r\n")); // one byte a character
    QVERIFY(BackupFile::valuesOf(text) == values);
}

void TestBackupFile::textIsReadLineByLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<char>("id");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char* name, const char* lines, char id, const char* value) {
        QTest::newRow(name) << QByteArray(kMarkerLine) + lines << id << QByteArray(value);
    };
    row("CR LF", "44:4A0519\r\n", 'D', "4A0519");
    row("LF alone", "44:4A0519\n", 'D', "4A0519");
    row("no end of the last line", "41:1\r\n44:4A0519", 'D', "4A0519");
    row("last of doubled lines", "44:000000\r\n44:4A0519\r\n", 'D', "4A0519");
    row("empty one of doubled lines", "44:4A0519\r\n44:\r\n", 'D', "");
    row("small hexadecimal digits", "4a:000001\r\n", 'J', "000001");
    row("any third character", "44=4A0519\r\n", 'D', "4A0519");
    row("cut within the line", "44:4A", 'D', "4A");
    row("cut within the identifier", "4", 'D', "");
    row("empty lines", "\r\n\r\n44:4A0519\r\n\r\n", 'D', "4A0519");
    row("blanks kept", "44:  4A05 \r\n", 'D', "  4A05 ");
    row("second CR kept", "44:4A0519\r\r\n", 'D', "4A0519\r");
    row("marker alone", "", 'D', "");
}

void TestBackupFile::textIsReadLineByLine()
{
    QFETCH(QByteArray, text);
    QFETCH(char, id);
    QFETCH(QByteArray, value);
    QVERIFY(create(path(), text));
    BackupFile file(path());
    QCOMPARE(file.openForReading(), 0);
    const auto [failure, values] = file.read();
    QCOMPARE(failure, QString());
    QVERIFY(values.has_value());
    QCOMPARE((*values)[id], value);
}

void TestBackupFile::foreignTextIsNoBackup_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("empty line") << QByteArray("\r\n");
    QTest::newRow("other case") << QByteArray("~~~pelorin_backup_file~~~\r\n44:4A0519\r\n");
    QTest::newRow("longer line") << QByteArray("~~~PELORIN_BACKUP_FILE~~~ \r\n44:4A0519\r\n");
    QTest::newRow("cut marker") << QByteArray("~~~PELORIN_BACKUP_FILE~~");
    QTest::newRow("mark of a Unicode file")
        << QByteArray("\xEF\xBB\xBF~~~PELORIN_BACKUP_FILE~~~\r\n44:4A0519\r\n");
    QTest::newRow("marker in line 2") << QByteArray("\r\n~~~PELORIN_BACKUP_FILE~~~\r\n");
    QTest::newRow("table of compensation values")
        << QByteArray("~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~\r\n0000,00000000\r\n");
    QTest::newRow("bytes") << QByteArray(5000, '\0');
}

void TestBackupFile::foreignTextIsNoBackup()
{
    QFETCH(QByteArray, text);
    QVERIFY(create(path(), text));
    BackupFile file(path());
    QCOMPARE(file.openForReading(), 0);
    const auto [failure, values] = file.read();
    QCOMPARE(failure, QString());
    QVERIFY(!values.has_value());
}

void TestBackupFile::hugeFileIsNoBackup()
{
    BackupFile file(QStringLiteral("/dev/zero")); // never ends
    QCOMPARE(file.openForReading(), 0);
    QVERIFY(!file.read().values.has_value());

    QVERIFY(create(path(), kMarkerLine + QByteArray(2 * 1024 * 1024, '\n')));
    BackupFile marked(path());
    QCOMPARE(marked.openForReading(), 0);
    QVERIFY(!marked.read().values.has_value());
}

void TestBackupFile::newFileIsEmptyUntilItIsSaved()
{
    {
        BackupFile file(path());
        QCOMPARE(file.openForSaving(), 0);
        QCOMPARE(contentOf(path()), QByteArray());
    }
    QCOMPARE(contentOf(path()), QByteArray());
    QCOMPARE(files(), QStringList(QStringLiteral("backup.dat")));
}

void TestBackupFile::olderFileStaysUntilTheNewOneIsSaved()
{
    QVERIFY(create(path(), "older"));
    {
        BackupFile file(path());
        QCOMPARE(file.openForSaving(), 0);
        QCOMPARE(contentOf(path()), QByteArray("older"));
    }
    QCOMPARE(contentOf(path()), QByteArray("older"));
    QCOMPARE(files(), QStringList(QStringLiteral("backup.dat")));

    BackupFile file(path());
    QCOMPARE(file.openForSaving(), 0);
    QCOMPARE(file.save(BackupValues()), QString());
    QCOMPARE(contentOf(path()), QByteArray(kMarkerLine));
}

void TestBackupFile::diskErrorLeavesTheOlderFileAndNoHalfOne_data()
{
    QTest::addColumn<int>("limit");
    QTest::newRow("nothing fits") << 0;
    QTest::newRow("half of it fits") << 40;
    QTest::newRow("all but the last byte fits") << 27 + 13 + 11 + 11 - 1;
}

void TestBackupFile::diskErrorLeavesTheOlderFileAndNoHalfOne()
{
    QFETCH(int, limit);
    QVERIFY(create(path("older.dat"), "older"));
    for (const char* name : {"older.dat", "new.dat"}) {
        BackupFile file(path(name));
        QCOMPARE(file.openForSaving(), 0);
        const test::FileSizeLimit limited(static_cast<rlim_t>(limit));
        QCOMPARE(file.save(someValues()), QStringLiteral("File too large"));
    }
    QCOMPARE(contentOf(path("older.dat")), QByteArray("older"));
    QCOMPARE(files(), QStringList(QStringLiteral("older.dat")));
}

void TestBackupFile::fullDeviceIsReportedAndNotReplaced()
{
    BackupFile file(QStringLiteral("/dev/full"));
    QCOMPARE(file.openForSaving(), 0);
    QCOMPARE(file.save(someValues()), QStringLiteral("No space left on device"));
    QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")));
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void TestBackupFile::linkToAFileStaysALink()
{
    QVERIFY(create(path("target.dat"), "older"));
    QVERIFY(QFile::link(path("target.dat"), path("link.dat")));
    BackupFile file(path("link.dat"));
    QCOMPARE(file.openForSaving(), 0);
    QCOMPARE(file.save(BackupValues()), QString());
    QVERIFY(QFileInfo(path("link.dat")).isSymLink());
    QCOMPARE(contentOf(path("target.dat")), QByteArray(kMarkerLine));
}

void TestBackupFile::fileThatCannotBeOpenedGivesTheSystemsCode()
{
    QVERIFY(create(path("plain"), "older"));
    QCOMPARE(BackupFile(path("plain/backup.dat")).openForSaving(), ENOTDIR);
    QCOMPARE(BackupFile(path("no/backup.dat")).openForSaving(), ENOENT);
    QCOMPARE(BackupFile(m_folder->path()).openForSaving(), EISDIR);
    QCOMPARE(BackupFile(path("plain/backup.dat")).openForReading(), ENOTDIR);
    QCOMPARE(BackupFile(path("missing.dat")).openForReading(), ENOENT);
    QCOMPARE(BackupFile(m_folder->path()).openForReading(), EISDIR);
    QCOMPARE(files(), QStringList(QStringLiteral("plain")));
}

void TestBackupFile::valuesAreCheckedAgainstTheParametersOfASensor()
{
    BackupValues values;
    for (const char id : {'D', 'A', 'L', 'U', 'S', 'P', 'Z', 'N'})
        values[id] = "000000";
    QVERIFY(BackupFaults::of(values, backupParameters(0)) == BackupFaults());
    const BackupFaults lessThanType2{"MJKO", ""};
    QVERIFY(BackupFaults::of(values, backupParameters(2)) == lessThanType2);

    values['A'].clear();
    values['L'] = "0A1250789";  // fits
    values['U'] = "0123456789"; // one too many
    values['S'] = "00\t000";
    values['P'] = "00000\x7F";
    values['N'] = "\xFFZ";
    values['O'] = QByteArray(100, 'x'); // not of this type
    const BackupFaults several{"A", "USP"};
    QVERIFY(BackupFaults::of(values, backupParameters(0)) == several);
}

QTEST_GUILESS_MAIN(TestBackupFile)
#include "TestBackupFile.moc"
