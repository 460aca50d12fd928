#include "sensor/BackupFaults.h"
#include "sensor/BackupFile.h"
#include "sensor/CompensationEntry.h"
#include "sensor/FactoryParameters.h"
#include "sensor/LogLineWords.h"
#include "sensor/LookupTableFile.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"
#include "support/Languages.h"
#include "support/Rows.h"

#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstring>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

using Texts = FactoryParameters::Texts;

constexpr int kAllRows = FactoryParameters::kRowCount;

/// Parameters as read from a sensor, one of them with another reply.
FactoryParameters read(const QByteArray& other = "F=SN012345")
{
    const QByteArray usual = "F=SN012345 D=0A0519 L=0A1250 U=283000 P=0000A71E A=00000005 N=FFFFF6 "
                             "M=081F20 J=000001 O=00003C";
    FactoryParameters parameters;
    for (const QByteArray& reply : usual.split(' '))
        parameters.take(reply[0], reply.mid(2));
    parameters.take(other[0], other.mid(2));
    return parameters;
}

/// The rows as they are shown, one of them edited.
Texts entriesOf(const FactoryParameters& parameters, int edited = 0, const QString& text = u"A"_s)
{
    Texts texts;
    for (std::size_t row = 0; row < texts.size(); ++row)
        texts[row] = parameters.text(static_cast<int>(row));
    texts[static_cast<std::size_t>(edited)] = text;
    return texts;
}

const QByteArray kBackup = "~~~PELORIN_BACKUP_FILE~~~";
const QByteArray kTable = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
constexpr qint32 kLowest = std::numeric_limits<qint32>::min();
constexpr qint32 kHighest = std::numeric_limits<qint32>::max();

/// Every point, with values from both ends of their range.
CompensationTable everyPoint()
{
    CompensationTable table;
    for (qint32 step = 0; step < 65536; ++step)
        table.push_back({static_cast<qint16>(step - 32768),
                         step % 2 == 0 ? kLowest + step / 2 : kHighest - step / 2});
    return table;
}

} // namespace

/// What texts mean: of the sensor, of its files, and those that the user enters. Runs a second time
/// in a locale with a decimal comma.
class TestSensorTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(std::setlocale(LC_ALL, ""));
        QLocale::setDefault(QLocale::system());
    }

    void replyOfAnotherFormIsNoValue()
    {
        for (const auto& [ids, values, disturbed] :
             {std::tuple("AU", "00000005|      10|283000", "0000001P|28300.|1 0000|      |"),
              std::tuple("L", "0A1250|?!   0| ~10160", "0A12 0|0A    |0A-125|\xB0Z1250|0A"),
              std::tuple("DKSZM", "4A0519|4a0519", "4A051900|4A051|4A051\xCA| 4A051"),
              std::tuple("NJO", "FFFFF6|FFFFFFF6", "00-00A|0x000A|FFFFF|FFFFFFFF6"),
              std::tuple("FPV", "SN012345| ~!0a?", "SN01|SN\x7FZ2345|SN\xE4Z2345|SN0123456"),
              std::tuple("E", "", "000000")}) {
            for (const char id : QByteArray(ids)) {
                for (const QByteArray& reply : QByteArray(values).split('|'))
                    QVERIFY2(isWellFormed(id, reply) || id == 'E', id + reply);
                for (const QByteArray& reply : QByteArray(disturbed).split('|'))
                    QVERIFY2(!isWellFormed(id, reply), id + reply);
            }
        }
    }

    void everyKindOfLogLineIsPutIntoWords()
    {
        const auto systemText = [](int error) {
            return QString::fromLocal8Bit(std::strerror(error));
        };
        const std::pair<const char*, const char*> kLines[] = {
            {"TX: [41][Get][TERM]", "Read of Resolution (A)."},
            {"RX: [30][30][30][30][30][30][31][30][TERM]", "Answer, Resolution (A): 0.010 mm."},
            {"TX: [4E][Get][TERM]", "Read of Offset (N)."},
            {"Error in ReadFile. Error = 5", "Receiving failed: Input/output error."},
            {"RX: [46][46][46][46][46][36][TERM]", "Answer, Offset (N): -10 counts, -0.100 mm."},
            {"RX: [30][30][30][30][30][41][46][46][TERM]",
             "Position, as the sensor streams it: SSI word 00000AFF hexadecimal."},
            {"TX: [44][Set][30][32][30][30][31][38][TERM]",
             "Write of Data Format (D): 24 bits, Gray code, Forward, Asynchronous, × 1, Error Skip "
             "Count 0."},
            {"TX: [43][Set][TERM]", "Command C."},
            {"RX: ", "Nothing was received in time."},
            {"TX: [4F][Get][TERM]", "Read of Factory Value O (O)."},
            {"RX: [30][Get][4E]", "Not a whole answer, as text: 0AN."},
            {"RX: [30][07][TERM]", "Not a whole answer, as text: 0\u00B7."},
            {"Invalid input byte count of 3", "The answer above has 3 bytes; 7 to 9 are expected."},
            {"Invalid message terminator received ($0A)",
             "The answer above does not end as an answer does."},
            {"Invalid output data length of 12",
             "A value of 12 bytes is too long for a frame; nothing was sent."},
            {"Error in EscapeCommFunction CLRRTS. Error = 25",
             "The supply line (RTS) could not be switched: Inappropriate ioctl for device."},
            {"Error in PurgeComm. Error = 5", "The port could not be emptied: Input/output error."},
            {"Error in WriteFile. Error = 5", "Sending failed: Input/output error."},
            {"Byte count mismatch in WriteFile. Wrote = 1, Correct = 3,Error = 0",
             "A frame left the port only in part."},
            {"SSI Type: 2", "The sensor is of type 2, as its firmware revision says."},
            {"SSY Type: Unknown",
             "The firmware revision of the sensor lies in none of the configured ranges."},
            {"COM7 could not be opened", ""}};
        CommLog log;
        for (const auto& line : kLines)
            log.append(QString::fromUtf8(line.first));
        for (int index = 0; const auto& line : kLines)
            QCOMPARE(logLineInWords(log.snapshot(), index++),
                     QString::fromUtf8(line.second)
                         .replace(u"Input/output error"_s, systemText(EIO))
                         .replace(u"Inappropriate ioctl for device"_s, systemText(ENOTTY)));
    }

    void formatAndExtensionAreThreeBytes()
    {
        for (const auto& [text, flags, skipCount, dataBits, multiplier] :
             {std::tuple("4A0519", 0x4A, 5, 25, 2), std::tuple("000018", 0, 0, 24, 1),
              std::tuple("814218", 0x81, 66, 24, 4), std::tuple("c0FfFf", 0xC0, 255, 255, 8)}) {
            const DataFormat format = DataFormat::decode(text);
            QCOMPARE(std::tuple(format.flags, format.errorSkipCount, format.dataBits,
                                format.multiplier()),
                     std::tuple(flags, skipCount, dataBits, multiplier));
            QCOMPARE(format.encode(), QByteArray(text).toUpper());
        }
        const Extension read = Extension::decode("010A02"); // also a mode that nobody knows
        QCOMPARE((QList<int>{read.extension, read.mode, read.magnets}), (QList<int>{1, 10, 2}));
        QCOMPARE(read.encode(), QByteArray("010A02"));
    }

    void valuesBecomeTexts()
    {
        const QByteArrayList texts{encodeResolution(5),
                                   *encodeScale(1.99, 0.1),
                                   *encodeScale(0.39, 0.002),
                                   *encodeScale(32767.99, 0.001),
                                   *encodeOffset(0.0074, 0.005, 4),
                                   *encodeOffset(-0.05, 0.005, 8)};
        QCOMPARE(texts.join(' '), QByteArray("00000005 00000A 000063 FFFFFA 000004 FFFFB0"));
        QVERIFY(!encodeScale(32768.01, 0.001) && !encodeScale(2830.0, 0.0));
        QVERIFY(!encodeOffset(-HUGE_VAL, 0.001, 1) && !encodeOffset(0.05, 0.0, 1));
    }

    /// Reply, row, and the text that it shows.
    void rowsShowWhatWasRead()
    {
        const QByteArray lines =
            "F=sn#12 0 sn#12|L=0A0050 1 0A|L=0A0050 2 50|L=0B10160 2 10160|"
            "U=2750 3 27.50|U=29 3 0.29|D=3A0519 4 0|D=7A0519 4 2|D=8A0519 4 4|"
            "D=ca0519 4 8|P=0000a71e 5 0000a71e|N=fffff6 6 -0.050|N=00000A 6 0.050|"
            "N=FFFFFFF6 6 -0.050|A=00000100 6 -1.000|M=081F2a 7 2a|J=000002 8 000002|"
            "O=00003c 9 00003c";
        for (const QByteArray& line : lines.split('|')) {
            const QList<QByteArray> words = line.split(' ');
            QVERIFY2(read(words[0]).text(words[1].toInt()) == QLatin1String(words[2]), line);
        }
        for (int row = 0; row < kAllRows; ++row)
            QCOMPARE(FactoryParameters().text(row), QString());
    }

    /// Row, the text that is entered, and what is written. Halves are rounded away from zero.
    void editedRowsAreWrittenAs()
    {
        const QByteArray lines =
            "0 AB F=000000AB|1 7C L=7C1250|2 50 L=0A0050|2 0000043 L=0A0000043|"
            "3 27.5 U=002750|3 0.005 U=000001|3 9999.99 U=999999|3 2830 S=046C00|"
            "3 9999.99 S=0F9FFE|2 1250 Z=081F32|2 0 Z=021032|2 250 Z=07E932|"
            "2 299 Z=090E32|2 300 Z=042C32|2 599 Z=07AB32|2 600 Z=045232|"
            "2 43639 Z=FFFF32|2 250 M=024620|2 43639 M=FFFF20|5 1 P=00000001|"
            "4 2 D=4A0519|4 4 D=8A0519|4 8 D=CA0519|6 0.0525 N=00000B|6 -0.0525 N=FFFFF5|"
            "6 -327.68 N=FF0000|6 83558.395 N=FEFFFF|4 2 N=FFFFEC|4 4 N=FFFFD8|"
            "4 8 N=FFFFB0|7 0xf M=081F0F|8 2 J=000002|9 fFfFfF O=FFFFFF";
        for (const QByteArray& line : lines.split('|')) {
            const QList<QByteArray> words = line.split(' ');
            auto entries = entriesOf(read(), words[0].toInt(), QString::fromLatin1(words[1]));
            QCOMPARE(read().findFault(entries, kAllRows).message, QString());
            QVERIFY2(read().composeWriteValue(words[2][0], entries) == words[2].mid(2), line);

            // A typed number may have the user's separator.
            for (QString& entry : entries)
                entry.replace(u'.', QLocale().decimalPoint());
            QVERIFY2(read().composeWriteValue(words[2][0], entries) == words[2].mid(2), line);
        }
    }

    void numbersComeBackAsTheyWereRead()
    {
        const auto comesBack = [](FactoryParameters& parameters, char id, const QByteArray& reply) {
            parameters.take(id, reply);
            return parameters.composeWriteValue(id, entriesOf(parameters)) == reply;
        };
        FactoryParameters parameters = read();
        for (int value = 0; value <= 999999; value += 77) // so that all digits come by
            QVERIFY(comesBack(parameters, 'U', QByteArray::number(value).rightJustified(6, '0')));
        for (const char* resolution : {"A=00000001", "A=00000003", "A=00099999", "A=99999999"}) {
            parameters = read(resolution);
            for (int count = -0x10000; count <= 0xFEFFFF; count += 5003)
                QVERIFY(comesBack(
                    parameters, 'N',
                    QByteArray::number(count & 0xFFFFFF, 16).toUpper().rightJustified(6, '0')));
        }
        QCOMPARE(read("D=CA0519").composeWriteValue('D', entriesOf(read())), QByteArray("0A0519"));
        for (const char* blanks : {"L=0A  50", "U=  2750"}) // are written back as zeros
            QCOMPARE(read(blanks).composeWriteValue(*blanks, entriesOf(read(blanks))),
                     QByteArray(blanks).mid(2).replace(' ', '0'));
    }

    void badEntriesAreRefusedInTheirRow()
    {
        for (const auto& [message, rows, texts] :
             {std::tuple("A value is missing. Please complete it first.", "0123456789", ""),
              std::tuple("This value may only contain unaccented letters, digits, spaces and ASCII "
                         "punctuation.",
                         "015", "\u00F6!|\t!|\x7F!"),
              std::tuple("This value must not be longer than 8 characters.", "05", "123456789"),
              std::tuple("This value must have exactly 2 characters.", "1", "A|0AB"),
              std::tuple("This value must consist of the digits 0 to 9 only.", "2",
                         "12.5|-1| 50|0x10"),
              std::tuple("This value must not be longer than 7 characters.", "2", "00000500"),
              std::tuple("This value must be a number from 0 to 43639.", "2", "43640|9999999"),
              std::tuple("This value must be a number from 0.00 to 9999.99.", "3",
                         "fast|1.000.5|1e3|inf|-0.01|10000"),
              std::tuple("This value must be 0, 2, 4 or 8.", "4", "1| 2|16"),
              std::tuple("This value must be a number from -327.680 to 83558.395.", "6",
                         "zero|-327.685|83558.4|1e300"),
              std::tuple("This value must be a hexadecimal number from 0 to FF.", "7", "100|G|-1"),
              std::tuple("This value must be 0, 1 or 2.", "8", "3|-1|1.5|one"),
              std::tuple("This value must be a hexadecimal number from 0 to FFFFFF.", "9",
                         "1000000|3C mm")}) {
            for (const char digit : QByteArray(rows)) {
                for (const QString& text : QString::fromUtf8(texts).split(u'|')) {
                    const int row = digit - '0';
                    const auto entries = entriesOf(read(), row, text);
                    const auto fault = read().findFault(entries, kAllRows);
                    QCOMPARE(fault.message, QLatin1String(message));
                    QCOMPARE(fault.row, row);
                    // A row that the sensor lacks is not looked at.
                    QVERIFY2(read().findFault(entries, row).message.isNull(), qPrintable(text));
                }
            }
        }
    }

    /// What the message names as the highest is taken, and nothing above it.
    void rangeOfTheOffsetFollowsTheMultiplier()
    {
        Texts entries = entriesOf(read(), FactoryParameters::Multiplier, u"2"_s);
        entries[FactoryParameters::Offset] = u"41779.195"_s;
        QCOMPARE(read().composeWriteValue('N', entries), QByteArray("FEFFFE"));
        entries[FactoryParameters::Offset] = u"41779.198"_s;
        QCOMPARE(read().findFault(entries, kAllRows).message,
                 u"This value must be a number from -163.840 to 41779.195."_s);
    }

    void repliesThatCannotBeWrittenBackAreRefused()
    {
        for (const char* misread :
             {"L=0A12.5", "U=28.300", "A=0000G5", "D=4AG519", "N=00-00A", "M=08_F20"}) {
            const auto fault = read(misread).findFault(entriesOf(read()), kAllRows);
            const QString begin = u"Parameter %1 was read as \"%2\", which is not a valid value"_s;
            const QString text = QLatin1String(misread);
            QVERIFY2(fault.message.startsWith(begin.arg(text.first(1), text.mid(2))), misread);
            QCOMPARE(fault.row, -1);
        }
        const QString message = read("A=00000000").findFault(entriesOf(read()), kAllRows).message;
        QVERIFY(message.startsWith(u"The sensor has no valid resolution"));
    }

    void everyByteOfABackupComesBack()
    {
        SensorValues values;
        for (int byte = 0x20; byte <= 0xFF; ++byte) {
            if (byte != 0x7F)
                values[static_cast<char>(byte)] = QByteArray(3, static_cast<char>(byte)) + ":x";
        }
        const QByteArray text = BackupFile::textOf(values);
        QVERIFY(text.startsWith(kBackup + "\r\n20:   :x\r\n21:!!!:x\r\n"));
        QVERIFY(text.contains("\r\nE9:\xE9\xE9\xE9:x\r\n")); // one byte a character
        QVERIFY(BackupFile::valuesOf(text) == values);
    }

    /// What a file with these lines behind the marker holds of 'D'.
    void backupIsReadLineByLine()
    {
        for (const auto& [lines, value] :
             {std::pair("\r\n44:4A0519\r\n", "4A0519"), std::pair("\n41:1\n44:4A0519", "4A0519"),
              std::pair("\r\n44:000000\r\n44:4A0519\r\n", "4A0519"),
              std::pair("\r\n44:4A0519\r\n44:\r\n", ""), std::pair("\r\n44=4A0519\r\n", "4A0519"),
              std::pair("\r\n\r\n\r\n44:4A0519\r\n\r\n", "4A0519"),
              std::pair("\r\n44:  4A05 \r\r\n", "  4A05 \r"), std::pair("\r\n44:4A", "4A"),
              std::pair("\r\n4", ""), std::pair("", "")}) {
            auto values = BackupFile::valuesOf(kBackup + lines);
            QVERIFY2(values && (*values)['D'] == value, lines);
        }
        QCOMPARE(BackupFile::valuesOf(kBackup + "\n4a:1")->at('J'), QByteArray("1"));
    }

    void valuesAreCheckedAgainstTheParametersOfASensor()
    {
        SensorValues values;
        for (const char id : {'D', 'A', 'L', 'U', 'S', 'P', 'Z', 'N'})
            values[id] = "000000";
        QVERIFY(BackupFaults::of(values, sensorType(0).backup) == BackupFaults());
        QVERIFY(BackupFaults::of(values, sensorType(2).backup) == (BackupFaults{"MJKO", ""}));

        values['A'].clear();
        values['L'] = "0A125078";  // fits
        values['U'] = "012345678"; // one too many
        values['S'] = "00\t000";
        values['P'] = "00000\x7F";
        values['N'] = "\xFFZ0000";
        values['Z'] = "081F3";              // one too few
        values['O'] = QByteArray(100, 'x'); // not of this type
        QVERIFY(BackupFaults::of(values, sensorType(0).backup) == (BackupFaults{"A", "USPZN"}));
        for (const char id : sensorType(2).information) // can be named
            QVERIFY(parameterName(id) != 0);
    }

    void foreignFileIsNeitherBackupNorTable()
    {
        const QByteArray rest = "\r\n44:4A0519\r\n";
        for (const QByteArray& marker : {kBackup, kTable}) {
            for (const QByteArray& text :
                 {QByteArray(), "\r\n" + marker + rest, marker.toLower() + rest,
                  marker + ' ' + rest, ' ' + marker + rest, marker + '\r' + rest,
                  marker + "\r0032,0004\r", marker.chopped(1) + rest,
                  "\xEF\xBB\xBF" + marker + rest, QByteArray(5000, '\0')})
                QVERIFY2(!BackupFile::valuesOf(text) && !lookupTableOf(text), text.left(60));
        }
    }

    void tableIsWrittenToTheByte()
    {
        QCOMPARE(lookupTableText({{50, 1234}, {-20, -1}, {32767, kHighest}, {0, 0}}),
                 kTable + "\r\n0032,000004D2\r\nFFFFFFEC,FFFFFFFF\r\n7FFF,7FFFFFFF\r\n"
                          "0000,00000000\r\n");
        QCOMPARE(lookupTableText({}), kTable + "\r\n");
        QVERIFY(lookupTableOf(lookupTableText(everyPoint())) == everyPoint());
    }

    void linesAfterTheMarkerBecomeEntries()
    {
        struct Row
        {
            const char* name;
            QByteArray lines;
            CompensationTable table;
        };
        const std::vector<Row> rows = {
            {"marker without an end", "", {}},
            {"marker alone", "\r\n", {}},
            {"LF", "\n0032,000004D2\n0001,00000001\n", {{50, 1234}, {1, 1}}},
            {"no end", "\n0032,000004D2\r\n0001,00000001", {{50, 1234}, {1, 1}}},
            {"last line ends in CR", "\n0032,000004D2\r", {{50, 1234}}},
            {"low bits", "\n12340032,1\nFFEC,1\n1,A00000009\n", {{50, 1}, {-20, 1}, {1, 9}}},
            {"no comma", "\n0032\n1;2\n0001,00000002\n", {{0, 0}, {0, 0}, {1, 2}}},
            {"blank lines", "\n\n\r\n0001,00000002\n \n", {{0, 0}, {0, 0}, {1, 2}, {0, 0}}},
            {"one field or none", "\n,7\n7,\n,\n", {{0, 7}, {7, 0}, {0, 0}}},
            {"more commas", "\n1,2,3\n1,,3\n", {{1, 2}, {1, 0}}},
            {"zero bytes", QByteArray("\n1\0,2\0\n\0\n", 9), {{1, 2}, {0, 0}}}};
        forEachRow(rows,
                   [](const Row& row) { QVERIFY(lookupTableOf(kTable + row.lines) == row.table); });
    }

    void typedTextsBecomeAnEntry()
    {
        for (const char* line :
             {"||0|0", "25.3|7.9|50|7", "-10.25|-7.9|-20|-7", "25.5|-1|51|-1", "-0.49|.9|0|0",
              "25 mm|7 mV|0|7", " 25| -7,5|50|-7", "16383.5|2147483647|32767|2147483647",
              "-16384|-2147483648|-32768|-2147483648", "16384|2147483648|-32768|2147483647",
              "-16384.5|-2147483649|32767|-2147483648", "20000|99999999999|-25536|2147483647"}) {
            const QStringList words = QString::fromLatin1(line).split(u'|');
            const CompensationEntry entry{words[2].toShort(), words[3].toInt()};
            QVERIFY2(entryOf({words[0], words[1]}) == entry, line);
        }
        const bool comma = QLocale().decimalPoint() == u","_s;
        QCOMPARE(entryOf({u"25,5"_s, u"7,0"_s}).point, comma ? 51 : 0);
        QCOMPARE(pointFromNumber(-2147483649.0), -2); // wraps at 32 bits
        for (const double number : {1e300, HUGE_VAL, std::nan("")})
            QCOMPARE(pointFromNumber(number), 0);
    }

    void shownEntryHasAPointAndIsReadBackUnchanged()
    {
        const auto [point, value] = textsOf({-32768, kLowest});
        QCOMPARE(point + u' ' + value, u"-16384.0 -2147483648"_s);
        for (const CompensationEntry& entry : everyPoint())
            QVERIFY2(entryOf(textsOf(entry)) == entry, qPrintable(textsOf(entry).point));
    }

private:
    Languages m_languages{1};
};

QTEST_GUILESS_MAIN(TestSensorTexts)
#include "TestSensorTexts.moc"
