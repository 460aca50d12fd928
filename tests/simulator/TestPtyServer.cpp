#include "simulator/PtyServer.h"

#include "SerialClient.h"
#include "simulator/SimulatedSensor.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace pelorin;

class TestPtyServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linkNeverReplacesAFile();
    void sensorStreamsAtTheStreamSpeedAndListensAgain();
    void vanishedDeviceComesBackUnderItsLink();

private:
    [[nodiscard]] QString linkPath(const char* name = "sensor") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    QTemporaryDir m_folder;
};

void TestPtyServer::linkNeverReplacesAFile()
{
    QFile file(linkPath("precious"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("kept"), 4);
    file.close();
    {
        PtyServer server(std::make_shared<SimulatedSensor>(SimulatedSensor::Options{}),
                         file.fileName().toStdString());
        QCOMPARE(server.start(), EEXIST);
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("kept"));
}

void TestPtyServer::sensorStreamsAtTheStreamSpeedAndListensAgain()
{
    const auto sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    sensor->setParameter('D', "4E0519");
    PtyServer server(sensor);
    QCOMPARE(server.start(), 0);
    SerialClient client(QString::fromStdString(server.path()));

    QVERIFY(client.setSpeed(B38400));
    for (int frame = 0; frame < 3; ++frame)
        QCOMPARE(client.readFrame(), QByteArray("00271500\r"));

    QVERIFY(client.setSpeed(B4800));
    QTRY_COMPARE(sensor->mode(), SimulatedSensor::Mode::Listening);
    QVERIFY(client.discardInput());
    QCOMPARE(readVersion(client), QByteArray("3A0102\r"));
}

void TestPtyServer::vanishedDeviceComesBackUnderItsLink()
{
    const auto sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    PtyServer server(sensor, linkPath().toStdString());
    QCOMPARE(server.start(), 0);
    SerialClient client(linkPath());
    QVERIFY(client.setSpeed(B4800));
    QCOMPARE(readVersion(client), QByteArray("3A0102\r"));

    sensor->vanish();
    QTRY_VERIFY(client.isGone());
    QTRY_VERIFY(!QFileInfo(linkPath()).isSymLink());
    QVERIFY(!SerialClient(linkPath()).isOpen());

    sensor->comeBack();
    QTRY_VERIFY(QFileInfo::exists(linkPath()));
    SerialClient again(linkPath());
    QVERIFY(again.setSpeed(B4800));
    QCOMPARE(readVersion(again), QByteArray("3A0102\r"));
}

QTEST_GUILESS_MAIN(TestPtyServer)
#include "TestPtyServer.moc"
