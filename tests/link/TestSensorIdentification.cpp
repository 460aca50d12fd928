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

    const QByteArray key =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Firmware Rev Bounds]\r\n";
    const QByteArray usual = key + "\"Type0Low\"=dword:00000010\r\n\"Type0High\"=dword:0000001f\r\n"
                                   "\"Type1Low\"=dword:00000020\r\n\"Type1High\"=dword:0000002f\r\n"
                                   "\"Type2Low\"=\"48\"\r\n\"Type2High\"=\"63\"\r\n";
    QTest::newRow("upper end of type 0") << usual << QByteArray("1F0203") << 0;
    QTest::newRow("within type 1") << usual << QByteArray("2A0000") << 1;
    QTest::newRow("bounds kept as decimal text") << usual << QByteArray("3f0000") << 2;
    QTest::newRow("below all") << usual << QByteArray("0F0000") << 3;
    QTest::newRow("above all") << usual << QByteArray("400000") << 3;
    QTest::newRow("no digit at the end") << usual << QByteArray("1GFFFF") << 3;
    QTest::newRow("digit only at the end") << usual << QByteArray("G5FFFF") << 3;
    QTest::newRow("revision 0 while nothing is configured")
        << QByteArray("[HKEY_LOCAL_MACHINE\\SOFTWARE]\r\n") << QByteArray("5GFFFF") << 0;
    QTest::newRow("other revision while nothing is configured")
        << QByteArray("[HKEY_LOCAL_MACHINE\\SOFTWARE]\r\n") << QByteArray("010000") << 3;
    QTest::newRow("overlap: lowest type wins")
        << key + "\"Type0High\"=dword:00000005\r\n\"Type1Low\"=dword:00000010\r\n"
                 "\"Type1High\"=dword:00000030\r\n\"Type2Low\"=dword:00000010\r\n"
                 "\"Type2High\"=dword:00000030\r\n"
        << QByteArray("200000") << 1;
    QTest::newRow("only the low eight bits count")
        << key + "\"Type1Low\"=dword:000001f0\r\n\"Type1High\"=dword:000001ff\r\n"
        << QByteArray("FF0000") << 1;
    QTest::newRow("low above high holds nothing")
        << key + "\"Type1Low\"=dword:00000030\r\n\"Type1High\"=dword:00000020\r\n"
        << QByteArray("280000") << 3;
}

void TestSensorIdentification::typeFollowsFromRevisionAndBounds()
{
    QFETCH(QByteArray, bounds);
    QFETCH(QByteArray, version);
    QFETCH(int, type);

    const TestRegistry registry(bounds);
    QCOMPARE(ssiTypeOfVersion(version), type);
}

QTEST_GUILESS_MAIN(TestSensorIdentification)
#include "TestSensorIdentification.moc"
