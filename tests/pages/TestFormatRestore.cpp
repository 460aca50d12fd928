#include "pages/FormatRestore.h"

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

class TestFormatRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void answerIsAFormatOnlyIfItIsHexadecimal_data();
    void answerIsAFormatOnlyIfItIsHexadecimal();
    void streamingFormatDiffersInOneBit_data();
    void streamingFormatDiffersInOneBit();
    void keptFormatIsWrittenBackToItsSensor_data();
    void keptFormatIsWrittenBackToItsSensor();
    void anotherSensorGetsNothing_data();
    void anotherSensorGetsNothing();
    void whatFailsStaysKept_data();
    void whatFailsStaysKept();
    void keptFormatsOutlastTheProgram();
    void damagedFileGivesNothingToWrite_data();
    void damagedFileGivesNothingToWrite();
    void formatIsKeptForThisRunWhereItCannotBeStored();

private:
    [[nodiscard]] bool connectSensor(int port = 7);
    [[nodiscard]] SavedFormat savedFormat() const;
    [[nodiscard]] Frames restore(FormatRestore& formats);
    [[nodiscard]] QString fileName() const { return m_folder->filePath(QStringLiteral("f.ini")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestRegistry> m_registry;
    std::shared_ptr<SimulatedSensor> m_sensor;
    std::unique_ptr<ComPortFactory> m_factory;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<SensorLink> m_link;
};

void TestFormatRestore::init()
{
    Pacing::setSpeeds({200, 200, 10});
    m_folder = std::make_unique<QTemporaryDir>();
    m_registry.reset();
    m_registry = std::make_unique<TestRegistry>(kSimulatedBounds);
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    m_factory = std::make_unique<ComPortFactory>(
        [this](const QString&) { return std::make_unique<SimulatedComPort>(m_sensor); });
    m_link.reset();
    m_window = std::make_unique<MessageCollector>();
    m_link = std::make_unique<SensorLink>(*m_factory);
    m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
}

void TestFormatRestore::cleanup()
{
    m_link.reset();
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

/// A sensor at port 7 that had 020018 and was left streaming.
SavedFormat TestFormatRestore::savedFormat() const
{
    return {7, QByteArray::fromStdString(m_sensor->parameter('V')), "020018", "060018"};
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

void TestFormatRestore::answerIsAFormatOnlyIfItIsHexadecimal_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("six digits") << QByteArray("123456") << QByteArray("123456");
    QTest::newRow("eight digits") << QByteArray("00123456") << QByteArray("123456");
    QTest::newRow("small letters") << QByteArray("4a0519") << QByteArray("4A0519");
    QTest::newRow("a letter") << QByteArray("12G456") << QByteArray();
    QTest::newRow("a blank") << QByteArray(" 12345") << QByteArray();
    QTest::newRow("a disturbed digit") << QByteArray("1\xB2"
                                                     "3456")
                                       << QByteArray();
    QTest::newRow("too few") << QByteArray("12345") << QByteArray();
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void TestFormatRestore::answerIsAFormatOnlyIfItIsHexadecimal()
{
    QFETCH(QByteArray, reply);
    QFETCH(QByteArray, digits);
    QCOMPARE(formatDigits(reply).has_value(), !digits.isEmpty());
    QCOMPARE(formatDigits(reply).value_or(QByteArray()), digits);
}

void TestFormatRestore::streamingFormatDiffersInOneBit_data()
{
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<QByteArray>("streaming");
    QTest::newRow("not set") << QByteArray("123456") << QByteArray("163456");
    QTest::newRow("already set") << QByteArray("040018") << QByteArray("040018");
    QTest::newRow("all but it") << QByteArray("FBFFFF") << QByteArray("FFFFFF");
    QTest::newRow("zeros") << QByteArray("000000") << QByteArray("040000");
}

void TestFormatRestore::streamingFormatDiffersInOneBit()
{
    QFETCH(QByteArray, own);
    QFETCH(QByteArray, streaming);
    QCOMPARE(streamingFormat(own), streaming);
}

void TestFormatRestore::keptFormatIsWrittenBackToItsSensor_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<std::string>("closing");
    QTest::newRow("type 0") << 0 << std::string("CN");
    QTest::newRow("type 1") << 1 << std::string("EN");
    QTest::newRow("type 2") << 2 << std::string("CN");
}

void TestFormatRestore::keptFormatIsWrittenBackToItsSensor()
{
    QFETCH(int, type);
    QFETCH(std::string, closing);
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = type});
    m_sensor->setParameter('D', "060018");
    FormatRestore formats(fileName());
    formats.keep(savedFormat());
    QVERIFY(connectSensor());

    QCOMPARE(restore(formats), (Frames{"DA", "DN020018", closing}));
    QCOMPARE(m_sensor->parameter('D'), std::string("020018"));
    QVERIFY(!formats.isKept(savedFormat()));

    QCOMPARE(restore(formats), Frames()); // once
}

void TestFormatRestore::anotherSensorGetsNothing_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<std::string>("version");
    QTest::addColumn<std::string>("format");
    QTest::addColumn<Frames>("frames");
    QTest::newRow("at another port")
        << 8 << std::string("3A0102") << std::string("060018") << Frames();
    QTest::newRow("of another version")
        << 7 << std::string("3A0103") << std::string("060018") << Frames();
    QTest::newRow("with another format")
        << 7 << std::string("3A0102") << std::string("060019") << Frames{"DA"};
    QTest::newRow("with the same own format")
        << 7 << std::string("3A0102") << std::string("020018") << Frames{"DA"};
    QTest::newRow("not identified")
        << 7 << std::string("7A0102") << std::string("060018") << Frames();
}

void TestFormatRestore::anotherSensorGetsNothing()
{
    QFETCH(int, port);
    QFETCH(std::string, version);
    QFETCH(std::string, format);
    QFETCH(Frames, frames);
    const SavedFormat kept = savedFormat();
    FormatRestore formats(fileName());
    formats.keep(kept);
    m_sensor->setParameter('V', version);
    m_sensor->setParameter('D', format);
    QCOMPARE(connectSensor(port), version != "7A0102");

    QCOMPARE(restore(formats), frames);
    QCOMPARE(m_sensor->parameter('D'), format);
    QVERIFY(formats.isKept(kept)); // its sensor may still come

    m_sensor->setParameter('V', "3A0102");
    m_sensor->setParameter('D', "060018");
    QVERIFY(connectSensor(7));
    QCOMPARE(restore(formats), (Frames{"DA", "DN020018", "CN"}));
}

void TestFormatRestore::whatFailsStaysKept_data()
{
    QTest::addColumn<SimulatedFault::Kind>("fault");
    QTest::addColumn<std::string>("at");
    QTest::newRow("silent") << SimulatedFault::Kind::Silent << std::string("DA");
    QTest::newRow("garbled") << SimulatedFault::Kind::WrongByte << std::string("DA");
    QTest::newRow("lost while it is read") << SimulatedFault::Kind::Vanish << std::string("DA");
    QTest::newRow("lost at its write") << SimulatedFault::Kind::Vanish << std::string("DN");
    QTest::newRow("lost at the closing command")
        << SimulatedFault::Kind::Vanish << std::string("CN");
}

void TestFormatRestore::whatFailsStaysKept()
{
    QFETCH(SimulatedFault::Kind, fault);
    QFETCH(std::string, at);
    m_sensor->setParameter('D', "060018");
    FormatRestore formats(fileName());
    formats.keep(savedFormat());
    QVERIFY(connectSensor());
    m_sensor->setFault({fault, fault == SimulatedFault::Kind::WrongByte ? 1 : 0}, at);
    (void)restore(formats);
    QVERIFY(formats.isKept(savedFormat()));

    m_sensor->clearFaults();
    m_sensor->comeBack();
    QVERIFY(connectSensor());
    QCOMPARE(restore(formats), (Frames{"DA", "DN020018", "CN"}));
    QCOMPARE(m_sensor->parameter('D'), std::string("020018"));
}

void TestFormatRestore::keptFormatsOutlastTheProgram()
{
    const SavedFormat dropped{8, "\x1A/=\xFF 02", "820318", "860318"};
    {
        FormatRestore formats(fileName());
        formats.keep(dropped);
        formats.keep(savedFormat());
        formats.drop(dropped);
    }
    m_sensor->setParameter('D', "060018");
    QVERIFY(connectSensor());
    FormatRestore formats(fileName());
    QVERIFY(!formats.isKept(dropped));
    QCOMPARE(formats.ownFormat(*m_link, "060018"), QByteArray("020018"));
    QCOMPARE(formats.ownFormat(*m_link, "060019"), QByteArray("060019"));
    QCOMPARE(restore(formats), (Frames{"DA", "DN020018", "CN"}));
    QVERIFY(!FormatRestore(fileName()).isKept(savedFormat()));
}

void TestFormatRestore::damagedFileGivesNothingToWrite_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("no number") << QByteArray("02001X");
    QTest::newRow("cut") << QByteArray("0200");
    QTest::newRow("the format of another sensor") << QByteArray("020019");
    QTest::newRow("nothing") << QByteArray();
}

void TestFormatRestore::damagedFileGivesNothingToWrite()
{
    QFETCH(QByteArray, value);
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("[COM7]\n334130313032\\060018=" + value + '\n') > 0);
    file.close();
    m_sensor->setParameter('D', "060018");
    QVERIFY(connectSensor());

    FormatRestore formats(fileName());
    QCOMPARE(restore(formats), Frames{"DA"});
    QCOMPARE(m_sensor->parameter('D'), std::string("060018"));
}

void TestFormatRestore::formatIsKeptForThisRunWhereItCannotBeStored()
{
    m_sensor->setParameter('D', "060018");
    QVERIFY(connectSensor());
    FormatRestore formats(QStringLiteral("/dev/null/f.ini"));
    formats.keep(savedFormat());
    QCOMPARE(restore(formats), (Frames{"DA", "DN020018", "CN"}));
}

QTEST_GUILESS_MAIN(TestFormatRestore)
#include "TestFormatRestore.moc"
