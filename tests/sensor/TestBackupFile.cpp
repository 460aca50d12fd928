#include "sensor/BackupFile.h"

#include "sensor/BackupFaults.h"
#include "sensor/SensorTypes.h"

#include <QTest>

using namespace pelorin;

namespace {

const QByteArray kMarker = "~~~PELORIN_BACKUP_FILE~~~";

} // namespace

class TestBackupFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteThatALineCanHoldComesBack();
    void textIsReadLineByLine();
    void foreignFileIsNoBackup();
    void valuesAreCheckedAgainstTheParametersOfASensor();
};

void TestBackupFile::everyByteThatALineCanHoldComesBack()
{
    SensorValues values;
    for (int byte = 0x20; byte <= 0xFF; ++byte) {
        const auto character = static_cast<char>(byte);
        if (byte != 0x7F)
            values[character] = QByteArray(3, character) + ":x";
    }
    const QByteArray text = BackupFile::textOf(values);
    QVERIFY(text.startsWith(kMarker + "\r\n20:   :x\r\n21:!!!:x\r\n"));
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
             {"\r\n44=4A0519\r\n", ""}, // no colon
             {"\r\n\r\n\r\n44:4A0519\r\n\r\n", "4A0519"},
             {"\r\n44:  4A05 \r\r\n", "  4A05 \r"},
             {"\r\n44:4A", "4A"},
             {"\r\n4", ""},
             {"", ""}}) {
        auto values = BackupFile::valuesOf(kMarker + lines);
        QVERIFY2(values && (*values)['D'] == value, lines);
    }
    QCOMPARE(BackupFile::valuesOf(kMarker + "\n4a:1")->at('J'), QByteArray("1"));
}

void TestBackupFile::foreignFileIsNoBackup()
{
    const QByteArray rest = "\r\n44:4A0519\r\n";
    for (const QByteArray& text :
         {QByteArray(), kMarker.toLower() + rest, kMarker + " " + rest, kMarker.chopped(1),
          "\xEF\xBB\xBF" + kMarker + rest, "\r\n" + kMarker + rest, QByteArray(5000, '\0')})
        QVERIFY2(!BackupFile::valuesOf(text), text.left(30).constData());
}

void TestBackupFile::valuesAreCheckedAgainstTheParametersOfASensor()
{
    SensorValues values;
    for (const char id : {'D', 'A', 'L', 'U', 'S', 'P', 'Z', 'N'})
        values[id] = "000000";
    QVERIFY(BackupFaults::of(values, sensorType(0).backup) == BackupFaults());
    const BackupFaults lessThanType2{"MJKO", ""};
    QVERIFY(BackupFaults::of(values, sensorType(2).backup) == lessThanType2);

    values['A'].clear();
    values['L'] = "0A125078";  // fits
    values['U'] = "012345678"; // one too many
    values['S'] = "00\t000";
    values['P'] = "00000\x7F";
    values['N'] = "\xFFZ0000";
    values['Z'] = "081F3";              // one too few
    values['O'] = QByteArray(100, 'x'); // not of this type
    const BackupFaults several{"A", "USPZN"};
    QVERIFY(BackupFaults::of(values, sensorType(0).backup) == several);
}

QTEST_GUILESS_MAIN(TestBackupFile)
#include "TestBackupFile.moc"
