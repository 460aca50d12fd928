#include "sensor/FormatRestore.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/MessageCollector.h"
#include "support/TestRegistry.h"

#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;

using Frames = std::vector<std::string>;

/// The sensor at port 7 had 020018 and was left streaming.
class TestFormatRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_link.reset(); }

    void answerIsAFormatOnlyIfItIsHexadecimal();
    void streamingFormatDiffersInOneBit();
    void anotherSensorGetsNothing();
    void whatFailsStaysKept();
    void keptFormatsOutlastTheProgram();
    void damagedFileGivesNothingToWrite();
    void formatIsKeptForThisRunWhereItCannotBeStored();

private:
    [[nodiscard]] bool connectSensor(int port = 7);
    [[nodiscard]] Frames restore(FormatRestore& formats);
    [[nodiscard]] QString fileName() const { return m_folder->filePath(QStringLiteral("f.ini")); }

    const SavedFormat m_saved{7, "3A0102", "020018", "060018"};
    const Frames m_restored{"DA", "DN020018", "CN"};
    const TestRegistry m_registry{kSimulatedBounds};
    std::unique_ptr<QTemporaryDir> m_folder;
    std::shared_ptr<SimulatedSensor> m_sensor;
    const ComPortFactory m_factory{
        [this](const QString&) { return std::make_unique<SimulatedComPort>(m_sensor); }};
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<SensorLink> m_link;
};

void TestFormatRestore::init()
{
    Pacing::setSpeeds({200, 200, 10});
    m_folder = std::make_unique<QTemporaryDir>();
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    m_sensor->setParameter('D', "060018");
    m_window = std::make_unique<MessageCollector>(); // each link counts its requests anew
    m_link = std::make_unique<SensorLink>(m_factory);
    m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
}

bool TestFormatRestore::connectSensor(int port)
{
    m_link->close();
    if (m_link->open(port, 0) != 1)
        return false;
    const auto request = m_link->requestConnect();
    const bool connected = QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; }) &&
                           m_window->resultOf(request) == 1;
    (void)m_sensor->takeReceivedFrames();
    return connected;
}

/// @return the frames that the sensor has received meanwhile
Frames TestFormatRestore::restore(FormatRestore& formats)
{
    RequestId request = formats.begin(*m_link);
    while (request != 0) {
        if (!QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; }))
            return {"no answer"};
        request = formats.next(*m_link, m_window->resultOf(request));
    }
    return m_sensor->takeReceivedFrames();
}

void TestFormatRestore::answerIsAFormatOnlyIfItIsHexadecimal()
{
    QCOMPARE(formatDigits("4a0519"), QByteArray("4A0519"));
    for (const char* disturbed : {"12G456", " 12345", "1\xB2\x33\x34\x35\x36", "00123456", ""})
        QVERIFY2(!formatDigits(disturbed), disturbed);
}

void TestFormatRestore::streamingFormatDiffersInOneBit()
{
    QCOMPARE(streamingFormat("123456"), QByteArray("163456"));
    QCOMPARE(streamingFormat("040018"), QByteArray("040018"));
    QCOMPARE(streamingFormat("FBFFFF"), QByteArray("FFFFFF"));
}

void TestFormatRestore::anotherSensorGetsNothing()
{
    FormatRestore formats(fileName());
    formats.keep(m_saved);
    for (const auto& [port, version, format, frames] :
         {std::tuple(8, "3A0102", "060018", Frames()), std::tuple(7, "3A0103", "060018", Frames()),
          std::tuple(7, "3A0102", "060019", Frames{"DA"}),
          std::tuple(7, "3A0102", "020018", Frames{"DA"}),
          std::tuple(7, "7A0102", "060018", Frames())}) { // the last is not identified
        m_sensor->setParameter('V', version);
        m_sensor->setParameter('D', format);
        QCOMPARE(connectSensor(port), version[0] == '3');
        QCOMPARE(restore(formats), frames);
        QVERIFY(formats.isKept(m_saved)); // its sensor may still come
    }
    m_sensor->setParameter('V', "3A0102");
    QVERIFY(connectSensor());
    QCOMPARE(restore(formats), m_restored);
    QCOMPARE(restore(formats), Frames()); // once
}

void TestFormatRestore::whatFailsStaysKept()
{
    using Kind = SimulatedFault::Kind;
    FormatRestore formats(fileName());
    for (const auto& [fault, at] : {std::pair(SimulatedFault{Kind::Silent}, "DA"),
                                    std::pair(SimulatedFault{Kind::WrongByte, 1}, "DA"),
                                    std::pair(SimulatedFault{Kind::Vanish}, "DA"),
                                    std::pair(SimulatedFault{Kind::Vanish}, "DN"),
                                    std::pair(SimulatedFault{Kind::Vanish}, "CN")}) {
        m_sensor->setParameter('D', "060018");
        formats.keep(m_saved);
        QVERIFY(connectSensor());
        m_sensor->setFault(fault, at);
        (void)restore(formats);
        QVERIFY(formats.isKept(m_saved));

        m_sensor->clearFaults();
        m_sensor->comeBack();
        QVERIFY(connectSensor());
        QCOMPARE(restore(formats), m_restored);
        QCOMPARE(m_sensor->parameter('D'), std::string("020018"));
    }
}

void TestFormatRestore::keptFormatsOutlastTheProgram()
{
    const SavedFormat dropped{8, "\x1A/=\xFF 02", "820318", "860318"};
    {
        FormatRestore formats(fileName());
        formats.keep(dropped);
        formats.keep(m_saved);
        QVERIFY(formats.isKept(dropped));
        formats.drop(dropped);
    }
    QVERIFY(connectSensor());
    FormatRestore formats(fileName());
    QVERIFY(!formats.isKept(dropped));
    QCOMPARE(formats.ownFormat(*m_link, "060018"), QByteArray("020018"));
    QCOMPARE(formats.ownFormat(*m_link, "060019"), QByteArray("060019"));
    QCOMPARE(restore(formats), m_restored);
    QVERIFY(!FormatRestore(fileName()).isKept(m_saved));
}

void TestFormatRestore::damagedFileGivesNothingToWrite()
{
    QVERIFY(connectSensor());
    for (const char* value : {"02001X", "0200", "020019", ""}) { // the third of another sensor
        QFile file(fileName());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(QByteArray("[COM7]\n334130313032\\060018=") + value + '\n') > 0);
        file.close();
        FormatRestore formats(fileName());
        QCOMPARE(restore(formats), Frames{"DA"});
    }
}

void TestFormatRestore::formatIsKeptForThisRunWhereItCannotBeStored()
{
    QVERIFY(connectSensor());
    FormatRestore formats(QStringLiteral("/dev/null/f.ini"));
    formats.keep(m_saved);
    QCOMPARE(restore(formats), m_restored);
}

QTEST_GUILESS_MAIN(TestFormatRestore)
#include "TestFormatRestore.moc"
