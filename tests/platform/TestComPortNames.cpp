#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace pelorin;

namespace {

/// A port that cannot be opened; it knows who made it and for which device.
class MadePort final : public ComPort
{
public:
    MadePort(const QString& maker, const QString& device) : made(maker + QLatin1Char(' ') + device)
    {
    }

    int open() override { return ENOENT; }
    bool isOpen() const override { return false; }
    int setLine(const LineSettings&) override { return EBADF; }
    int setTimeouts(const Timeouts&) override { return EBADF; }
    int setQueueSizes(int, int) override { return EBADF; }
    int purge(Purge) override { return EBADF; }
    int setRts(bool) override { return EBADF; }
    ReadResult read() override { return {EBADF}; }
    WriteResult write(std::string_view) override { return {EBADF}; }
    void interrupt() override {}
    void close() override {}

    const QString made;
};

ComPortFactory::Maker makerNamed(const char* name)
{
    return [maker = QString::fromLatin1(name)](const QString& device) {
        return std::make_unique<MadePort>(maker, device);
    };
}

QStringList described(const QList<PresentPort>& ports)
{
    QStringList lines;
    for (const PresentPort& port : ports) {
        lines.append(QStringList{QString::number(port.number), port.device, port.shortName,
                                 port.description,
                                 port.simulated ? QStringLiteral("simulated") : QString()}
                         .join(QLatin1Char('|')));
    }
    return lines;
}

} // namespace

class TestComPortNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nameStandsForOneDevice_data();
    void nameStandsForOneDevice();
    void deviceHasOneNumber_data();
    void deviceHasOneNumber();
    void everyNumberLeadsToItsDeviceAndBack();
    void presentPortsAreThoseOfTheSystemAndOfTheSettings();
    void systemDevicesHaveNumbersWithoutSettings();
    void simulatedPortsAreKnownAsSuch();
    void factoryAsksTheMakerOfTheScheme_data();
    void factoryAsksTheMakerOfTheScheme();

private:
    QString file(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

void TestComPortNames::initTestCase()
{
    QFile adapter(file("adapter"));
    QVERIFY(adapter.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(file("adapter"), file("by-id")));
    QFile terminal(file("terminal"));
    QVERIFY(terminal.open(QIODevice::WriteOnly));

    QFile settings(file("test.reg"));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    const QString content = QStringLiteral("REGEDIT4\n"
                                           "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                                           "\"\\\\Device\\\\Serial0\"=\"COM1\"\n"
                                           "\"/dev/ttyUSB0\"=\"COM7\"\n"
                                           "\"%1/by-id\"=\"com12\"\n"
                                           "\"%1/terminal\"=\"COM200\"\n"
                                           "\"%1/unplugged\"=\"COM3\"\n"
                                           "\"/dev/ttyUSB5\"=\"LPT1\"\n"
                                           "\"simulator:sensor?type=2\"=\"COM99\"\n")
                                .arg(m_folder.path());
    QVERIFY(settings.write(content.toUtf8()) > 0);
    QVERIFY(qputenv("PELORIN_REGISTRY", settings.fileName().toUtf8()));
}

void TestComPortNames::nameStandsForOneDevice_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("device");

    QTest::newRow("first serial port") << "COM1"
                                       << "/dev/ttyS0";
    QTest::newRow("last serial port") << "COM32"
                                      << "/dev/ttyS31";
    QTest::newRow("second USB adapter") << "COM34"
                                        << "/dev/ttyUSB1";
    QTest::newRow("first modem device") << "COM65"
                                        << "/dev/ttyACM0";
    QTest::newRow("last modem device") << "COM96"
                                       << "/dev/ttyACM31";
    QTest::newRow("from the settings") << "COM7"
                                       << "/dev/ttyUSB0";
    QTest::newRow("device path form") << "\\\\.\\COM7"
                                      << "/dev/ttyUSB0";
    QTest::newRow("lower case") << "\\\\.\\com7"
                                << "/dev/ttyUSB0";
    QTest::newRow("simulated") << "COM99"
                               << "simulator:sensor?type=2";
    QTest::newRow("number that its device has lost") << "COM33" << QString();
    QTest::newRow("no number") << "COM0" << QString();
    QTest::newRow("beyond the last") << "COM97" << QString();
    QTest::newRow("far beyond") << "COM999999999" << QString();
    QTest::newRow("device") << "/dev/pts/3"
                            << "/dev/pts/3";
    QTest::newRow("simulator") << "simulator:display"
                               << "simulator:display";
    QTest::newRow("not quite a number") << "COM7x"
                                        << "COM7x";
    QTest::newRow("empty") << ""
                           << "";
}

void TestComPortNames::nameStandsForOneDevice()
{
    QFETCH(QString, name);
    QFETCH(QString, device);

    QCOMPARE(ComPortNames().devicePath(name), device);
}

void TestComPortNames::deviceHasOneNumber_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("number");

    QTest::newRow("from the settings") << "/dev/ttyUSB0" << 7;
    QTest::newRow("fixed") << "/dev/ttyUSB5" << 38;
    QTest::newRow("its number was given away") << "/dev/ttyS6" << 0;
    QTest::newRow("beyond the fixed numbers") << "/dev/ttyUSB32" << 0;
    QTest::newRow("leading zero") << "/dev/ttyUSB01" << 0;
    QTest::newRow("link in the settings") << file("by-id") << 12;
    QTest::newRow("device behind the link") << file("adapter") << 12;
    QTest::newRow("simulated") << "simulator:sensor?type=2" << 99;
    QTest::newRow("another simulated") << "simulator:sensor?type=1" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestComPortNames::deviceHasOneNumber()
{
    QFETCH(QString, device);
    QFETCH(int, number);

    QCOMPARE(ComPortNames().numberOf(device), number);
}

void TestComPortNames::everyNumberLeadsToItsDeviceAndBack()
{
    const ComPortNames names;
    int devices = 0;
    for (int number = 0; number < 300; ++number) {
        const QString device = names.devicePath(QStringLiteral("COM%1").arg(number));
        if (device.isNull())
            continue;
        ++devices;
        QCOMPARE(names.numberOf(device), number);
    }
    QCOMPARE(devices, 96 - 1 + 2); // COM33 lost its device; COM99 and COM200 have come
}

void TestComPortNames::presentPortsAreThoseOfTheSystemAndOfTheSettings()
{
    const QList<ComPortNames::SystemDevice> system = {
        {QStringLiteral("/dev/ttyACM1"), QStringLiteral("Probe")},
        {QStringLiteral("/dev/ttyUSB0"), QStringLiteral("USB adapter")},
        {QStringLiteral("/dev/ttyS6"), QString()},
        {file("adapter"), QStringLiteral("Other adapter")}};

    const QStringList expected = {
        QStringLiteral("7|/dev/ttyUSB0|ttyUSB0|USB adapter|"),
        QStringLiteral("12|%1|adapter|Other adapter|").arg(file("by-id")),
        QStringLiteral("66|/dev/ttyACM1|ttyACM1|Probe|"),
        QStringLiteral("99|simulator:sensor?type=2|simulator:sensor?type=2||simulated"),
        QStringLiteral("200|%1|terminal||").arg(file("terminal"))};
    QCOMPARE(described(ComPortNames().presentPorts(system)), expected);
}

void TestComPortNames::systemDevicesHaveNumbersWithoutSettings()
{
    const QByteArray settings = qgetenv("PELORIN_REGISTRY");
    QVERIFY(qputenv("PELORIN_REGISTRY", "/nowhere/site.reg"));
    const auto ports =
        ComPortNames().presentPorts({{QStringLiteral("/dev/ttyUSB0"), QStringLiteral("Adapter")}});
    QVERIFY(qputenv("PELORIN_REGISTRY", settings));
    QCOMPARE(described(ports), QStringList(QStringLiteral("33|/dev/ttyUSB0|ttyUSB0|Adapter|")));
}

void TestComPortNames::simulatedPortsAreKnownAsSuch()
{
    const ComPortNames names;
    QVERIFY(names.isSimulated(QStringLiteral("COM99")));
    QVERIFY(names.isSimulated(QStringLiteral("simulator:display")));
    QVERIFY(!names.isSimulated(QStringLiteral("COM7")));
    QVERIFY(!names.isSimulated(QString()));
}

void TestComPortNames::factoryAsksTheMakerOfTheScheme_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("made");

    QTest::newRow("number of a simulated device") << "\\\\.\\COM99"
                                                  << "simulator simulator:sensor?type=2";
    QTest::newRow("simulated device") << "simulator:display"
                                      << "simulator simulator:display";
    QTest::newRow("number of a device") << "COM7"
                                        << "system /dev/ttyUSB0";
    QTest::newRow("device") << "/dev/pts/3"
                            << "system /dev/pts/3";
    QTest::newRow("number without device") << "COM0"
                                           << "system ";
}

void TestComPortNames::factoryAsksTheMakerOfTheScheme()
{
    QFETCH(QString, name);
    QFETCH(QString, made);

    ComPortFactory factory(makerNamed("system"));
    factory.addScheme(QStringLiteral("simulator:"), makerNamed("simulator"));
    const auto port = factory.create(name);
    const auto* const madePort = dynamic_cast<const MadePort*>(port.get());
    QVERIFY(madePort);
    QCOMPARE(madePort->made, made);
}

QTEST_GUILESS_MAIN(TestComPortNames)
#include "TestComPortNames.moc"
