#include "sensor/SensorTypes.h"

#include <QTest>

using namespace pelorin;

class TestSensorTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySequenceIsOfItsTypesParameters();
    void onlyAnIdentifiedSensorIsSavedAndClosed();
};

/// 'S' and 'Z' follow from others: they are written without being read by the page.
void TestSensorTypes::everySequenceIsOfItsTypesParameters()
{
    for (const auto& [ssiType, lacks] : {std::pair(0, "MJKO"), {1, "JKO"}, {2, ""}, {3, ""}}) {
        const SensorType& type = sensorType(ssiType);
        for (const char id : QByteArray("DALFVUSPZNMJKO")) {
            QCOMPARE(type.has(id), !QByteArray(lacks).contains(id));
            QVERIFY(parameterName(id) != 0);
        }
        for (const auto& [read, write] : {std::pair(type.outputRead, type.outputWrite),
                                          {type.factoryRead, type.factoryWrite},
                                          {type.backup, type.backup}}) {
            for (const char id : read)
                QVERIFY(type.has(id));
            for (const char id : write)
                QVERIFY(id == 'S' || id == 'Z' || read.find(id) != read.npos);
            QVERIFY(read.empty() || read.find('A') < read.find('N')); // which is counted in it
        }
    }
}

void TestSensorTypes::onlyAnIdentifiedSensorIsSavedAndClosed()
{
    for (const auto& [ssiType, closing] :
         {std::pair(0, 'C'), {1, 'E'}, {2, 'C'}, {3, '\0'}, {-1, '\0'}}) {
        QCOMPARE(sensorType(ssiType).closing, closing);
        QCOMPARE(sensorType(ssiType).backup.empty(), closing == '\0');
    }
}

QTEST_APPLESS_MAIN(TestSensorTypes)
#include "TestSensorTypes.moc"
