#include "sensor/SensorTypes.h"

#include <QTest>

using namespace pelorin;

class TestSensorTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySequenceIsOfItsTypesParameters();
};

void TestSensorTypes::everySequenceIsOfItsTypesParameters()
{
    for (const auto& [ssiType, lacks, closing] : {std::tuple(0, "MJKO", 'C'),
                                                  {1, "JKO", 'E'},
                                                  {2, "", 'C'},
                                                  {3, "", '\0'},
                                                  {-1, "", '\0'}}) {
        const SensorType& type = sensorType(ssiType);
        QCOMPARE(type.closing, closing);
        QCOMPARE(type.backup.empty(), closing == '\0');
        for (const char id : QByteArray("DALFVUSPZNMJKO")) {
            QCOMPARE(type.has(id), !QByteArray(lacks).contains(id));
            QVERIFY(parameterName(id) != 0);
        }
        for (const auto& [read, write] : {std::pair(type.outputRead, type.outputWrite),
                                          {type.factoryRead, type.factoryWrite},
                                          {type.backup, type.backup}}) {
            for (const char id : read)
                QVERIFY(type.has(id));
            for (const char id : write) // 'S' and 'Z' follow from others
                QVERIFY(id == 'S' || id == 'Z' || read.find(id) != read.npos);
            QVERIFY(read.empty() || read.find('A') < read.find('N')); // counted in it
        }
    }
}

QTEST_APPLESS_MAIN(TestSensorTypes)
#include "TestSensorTypes.moc"
