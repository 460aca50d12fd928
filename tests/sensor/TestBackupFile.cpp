#include "sensor/BackupFile.h"

#include "sensor/SensorTypes.h"
#include "support/FileSizeLimit.h"
#include "support/TestFolder.h"

#include <QTest>

#include <cerrno>

#include <sys/stat.h>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QByteArray kMarker = "~~~PELORIN_BACKUP_FILE~~~";
const QString kOlder = QStringLiteral("older.dat");
const QString kNew = QStringLiteral("new.dat");

BackupValues someValues()
{
    BackupValues values;
    values['U'] = "283000";
    values['A'] = "00000005";
    values['D'] = "4A0519";
    return values;
}

const QByteArray kSavedText = kMarker + "\r\n41:00000005\r\n44:4A0519\r\n55:283000\r\n";

} // namespace

class TestBackupFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fileIsReplacedOnlyWhenItIsSaved();
    void everyByteThatALineCanHoldComesBack();
    void textIsReadLineByLine();
    void foreignFileIsNoBackup();
    void diskErrorLeavesTheOlderFileAndNoHalfOne();
    void whatIsNoPlainFileStaysWhatItIs();
    void fileThatCannotBeOpenedGivesTheSystemsCode();
    void valuesAreCheckedAgainstTheParametersOfASensor();

private:
    [[nodiscard]] QString path(const QString& name) const { return m_folder->path(name); }

    std::unique_ptr<TestFolder> m_folder;
};

void TestBackupFile::init()
{
    m_folder = std::make_unique<TestFolder>();
    QVERIFY(m_folder->put(kOlder, "older"));
}

void TestBackupFile::fileIsReplacedOnlyWhenItIsSaved()
{
    for (const QString& name : {kNew, kOlder}) {
        const QByteArray before = m_folder->content(name);
        for (const bool saves : {false, true}) {
            BackupFile file(path(name));
            QCOMPARE(file.openForSaving(), 0);
            QCOMPARE(m_folder->content(name), before);
            if (saves)
                QCOMPARE(file.save(someValues()), QString());
        }
        QCOMPARE(m_folder->content(name), kSavedText);
    }
    QCOMPARE(m_folder->names(), QStringLiteral("new.dat older.dat"));
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

/// What a file with these lines behind the marker holds of 'D'.
void TestBackupFile::textIsReadLineByLine()
{
    for (const auto& [lines, value] : std::initializer_list<std::pair<const char*, const char*>>{
             {"\r\n44:4A0519\r\n", "4A0519"},
             {"\n41:1\n44:4A0519", "4A0519"}, // LF alone, and none at the end
             {"\r\n44:000000\r\n44:4A0519\r\n", "4A0519"},
             {"\r\n44:4A0519\r\n44:\r\n", ""},
             {"\r\n44=4A0519\r\n", "4A0519"}, // any third character
             {"\r\n\r\n\r\n44:4A0519\r\n\r\n", "4A0519"},
             {"\r\n44:  4A05 \r\r\n", "  4A05 \r"},
             {"\r\n44:4A", "4A"},
             {"\r\n4", ""},
             {"", ""}}) {
        QVERIFY(m_folder->put(kNew, kMarker + lines));
        BackupFile file(path(kNew));
        QCOMPARE(file.openForReading(), 0);
        const auto [failure, values] = file.read();
        QCOMPARE(failure, QString());
        QVERIFY2(values && (*values)['D'] == value, lines);
    }
    QCOMPARE((*BackupFile::valuesOf(kMarker + "\n4a:1"))['J'], QByteArray("1"));
}

void TestBackupFile::foreignFileIsNoBackup()
{
    const QByteArray rest = "\r\n44:4A0519\r\n";
    for (const QByteArray& text :
         {QByteArray(), kMarker.toLower() + rest, kMarker + " " + rest, kMarker.chopped(1),
          "\xEF\xBB\xBF" + kMarker + rest, "\r\n" + kMarker + rest, QByteArray(5000, '\0'),
          kMarker + QByteArray(2 * 1024 * 1024, '\n')}) {
        QVERIFY(m_folder->put(kNew, text));
        BackupFile file(path(kNew));
        QCOMPARE(file.openForReading(), 0);
        const auto [failure, values] = file.read();
        QCOMPARE(failure, QString());
        QVERIFY2(!values, text.left(30).constData());
    }
}

void TestBackupFile::diskErrorLeavesTheOlderFileAndNoHalfOne()
{
    for (const qsizetype limit : {qsizetype{0}, qsizetype{40}, kSavedText.size() - 1})
        for (const QString& name : {kNew, kOlder}) {
            BackupFile file(path(name));
            QCOMPARE(file.openForSaving(), 0);
            const FileSizeLimit limited(static_cast<rlim_t>(limit));
            QCOMPARE(file.save(someValues()), QStringLiteral("File too large"));
        }
    QCOMPARE(m_folder->content(kOlder), QByteArray("older"));
    QCOMPARE(m_folder->names(), kOlder);
}

void TestBackupFile::whatIsNoPlainFileStaysWhatItIs()
{
    const QFileInfo device(QStringLiteral("/dev/full"));
    BackupFile full(device.filePath());
    QCOMPARE(full.openForSaving(), 0);
    QCOMPARE(full.save(someValues()), QStringLiteral("No space left on device"));
    QVERIFY(device.exists() && !device.isFile());

    QVERIFY(QFile::link(path(kOlder), path(kNew)));
    BackupFile linked(path(kNew));
    QCOMPARE(linked.openForSaving(), 0);
    QCOMPARE(linked.save(someValues()), QString());
    QVERIFY(QFileInfo(path(kNew)).isSymLink());
    QCOMPARE(m_folder->content(kOlder), kSavedText);
}

void TestBackupFile::fileThatCannotBeOpenedGivesTheSystemsCode()
{
    const QString below = path(QStringLiteral("older.dat/new.dat"));
    QCOMPARE(BackupFile(below).openForSaving(), ENOTDIR);
    QCOMPARE(BackupFile(path(QStringLiteral("no/new.dat"))).openForSaving(), ENOENT);
    QCOMPARE(BackupFile(path({})).openForSaving(), EISDIR);
    QCOMPARE(BackupFile(below).openForReading(), ENOTDIR);
    QCOMPARE(BackupFile(path(kNew)).openForReading(), ENOENT);
    QCOMPARE(BackupFile(path({})).openForReading(), EISDIR);
    QCOMPARE(m_folder->names(), kOlder);

    QCOMPARE(mkfifo(path(kNew).toUtf8().constData(), 0600), 0);
    QCOMPARE(BackupFile(path(kNew)).openForReading(), EINVAL); // and does not wait
}

void TestBackupFile::valuesAreCheckedAgainstTheParametersOfASensor()
{
    BackupValues values;
    for (const char id : {'D', 'A', 'L', 'U', 'S', 'P', 'Z', 'N'})
        values[id] = "000000";
    QVERIFY(BackupFaults::of(values, sensorType(0).backup) == BackupFaults());
    const BackupFaults lessThanType2{"MJKO", ""};
    QVERIFY(BackupFaults::of(values, sensorType(2).backup) == lessThanType2);

    values['A'].clear();
    values['L'] = "0A1250789";  // fits
    values['U'] = "0123456789"; // one too many
    values['S'] = "00\t000";
    values['P'] = "00000\x7F";
    values['N'] = "\xFFZ";
    values['O'] = QByteArray(100, 'x'); // not of this type
    const BackupFaults several{"A", "USP"};
    QVERIFY(BackupFaults::of(values, sensorType(0).backup) == several);
}

QTEST_GUILESS_MAIN(TestBackupFile)
#include "TestBackupFile.moc"
