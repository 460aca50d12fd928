#include "link/SensorIdentification.h"
#include "support/TestRegistry.h"

#include <QTest>

using namespace pelorin;

class TestSensorIdentification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeFollowsFromRevisionAndBounds_data();
    void typeFollowsFromRevisionAndBounds();
};

void TestSensorIdentification::typeFollowsFromRevisionAndBounds_data()
{
    QTest::addColumn<QByteArray>("bounds");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<int>("type");

    const QByteArray usual =
        "\"Type0Low\"=dword:10\n\"Type0High\"=dword:1f\n\"Type1Low\"=dword:20\n"
        "\"Type1High\"=dword:2f\n\"Type2Low\"=\"48\"\n\"Type2High\"=\"63\"\n";
    const QByteArray overlapping =
        "\"Type0High\"=dword:05\n\"Type1Low\"=dword:10\n\"Type1High\"=dword:30\n"
        "\"Type2Low\"=dword:10\n\"Type2High\"=dword:30\n";
    const QByteArray nineBits = "\"Type1Low\"=dword:1f0\n\"Type1High\"=dword:1ff\n";
    const QByteArray turned = "\"Type1Low\"=dword:30\n\"Type1High\"=dword:20\n";
    const auto row = [](const char* title, const QByteArray& bounds, const char* version,
                        int type) {
        QTest::newRow(title) << bounds << QByteArray(version) << type;
    };
    row("upper end of type 0", usual, "1F0203", 0);
    row("within type 1", usual, "2A0000", 1);
    row("bounds kept as decimal text", usual, "3f0000", 2);
    row("below all", usual, "0F0000", 3);
    row("above all", usual, "400000", 3);
    row("no digit at the end", usual, "1GFFFF", 3);
    row("digit only at the end", usual, "G5FFFF", 3);
    row("revision 0 while nothing is configured", "", "5GFFFF", 0);
    row("other revision while nothing is configured", "", "010000", 3);
    row("overlap: lowest type wins", overlapping, "200000", 1);
    row("only the low eight bits count", nineBits, "FF0000", 1);
    row("low above high holds nothing", turned, "280000", 3);
}

void TestSensorIdentification::typeFollowsFromRevisionAndBounds()
{
    QFETCH(QByteArray, bounds);
    QFETCH(QByteArray, version);
    QFETCH(int, type);
    const TestRegistry registry(
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Firmware Rev Bounds]\n" + bounds);
    QCOMPARE(ssiTypeOfVersion(version), type);
}

QTEST_GUILESS_MAIN(TestSensorIdentification)
#include "TestSensorIdentification.moc"
