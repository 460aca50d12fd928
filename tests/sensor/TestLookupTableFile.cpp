#include "sensor/LookupTableFile.h"

#include "tempcomp/TableFiles.h"

#include <QTest>

#include <limits>

using namespace pelorin;
using namespace pelorin::test;

class TestLookupTableFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableIsWrittenToTheByte();
    void everyPointAndTheEndsOfTheValueRangeComeBack();
    void linesAfterTheMarkerBecomeEntries_data();
    void linesAfterTheMarkerBecomeEntries();
};

void TestLookupTableFile::tableIsWrittenToTheByte()
{
    QCOMPARE(lookupTableText({{50, 1234}, {-20, -1}, {32767, 2147483647}, {0, 0}}),
             kMarkerLine + "0032,000004D2\r\nFFFFFFEC,FFFFFFFF\r\n7FFF,7FFFFFFF\r\n"
                           "0000,00000000\r\n");
    QCOMPARE(lookupTableText({}), kMarkerLine);
}

void TestLookupTableFile::everyPointAndTheEndsOfTheValueRangeComeBack()
{
    constexpr qint32 kLowest = std::numeric_limits<qint32>::min();
    constexpr qint32 kHighest = std::numeric_limits<qint32>::max();
    CompensationTable table;
    for (qint32 step = 0; step < 65536; ++step)
        table.push_back({static_cast<qint16>(step - 32768),
                         step % 2 == 0 ? kLowest + step / 2 : kHighest - step / 2});
    QVERIFY(lookupTableOf(lookupTableText(table)) == table);
}

void TestLookupTableFile::linesAfterTheMarkerBecomeEntries_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<std::optional<CompensationTable>>("table");
    const auto row = [](const char* name, const QByteArray& afterMarker,
                        const CompensationTable& entries) {
        QTest::newRow(name) << QByteArray(kMarker + afterMarker) << std::optional(entries);
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
    row("one very long line", "\n0032," + QByteArray(8'000'000, '\0'), {{50, 0}});
    row("fifteen rows", "\n" + QByteArray("1,2\n").repeated(15), CompensationTable(15, {1, 2}));

    const auto refused = [](const char* name, const QByteArray& content) {
        QTest::newRow(name) << content << std::optional<CompensationTable>();
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
    QFETCH(std::optional<CompensationTable>, table);
    QVERIFY(lookupTableOf(content) == table);
}

QTEST_GUILESS_MAIN(TestLookupTableFile)
#include "TestLookupTableFile.moc"
