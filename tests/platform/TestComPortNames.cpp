#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/TermiosComPort.h"
#include "support/FileContent.h"
#include "support/TestRegistry.h"

#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

QStringList described(const QList<PresentPort>& ports)
{
    QStringList lines;
    for (const PresentPort& port : ports) {
        lines << QStringList{QString::number(port.number), port.device, port.shortName,
                             port.description,
                             port.simulated ? QStringLiteral("simulated") : QString()}
                     .join(QLatin1Char('|'));
    }
    return lines;
}

} // namespace

class TestComPortNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void nameStandsForOneDevice_data();
    void nameStandsForOneDevice();
    void deviceHasOneNumber_data();
    void deviceHasOneNumber();
    void presentPortsAreThoseOfTheSystemAndOfTheSettings();
    void deviceIsFoundAgainByItsLink();
    void factoryAsksTheMakerOfTheScheme();

private:
    QString file(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
    const TestRegistry m_settings{
        QStringLiteral("[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                       "\"\\\\Device\\\\Serial0\"=\"COM1\"\n"
                       "\"/dev/ttyUSB0\"=\"COM7\"\n"
                       "\"%1/by-id\"=\"com12\"\n"
                       "\"%1/terminal\"=\"COM200\"\n"
                       "\"%1/unplugged\"=\"COM3\"\n"
                       "\"/dev/ttyUSB5\"=\"LPT1\"\n"
                       "\"simulator:sensor?type=2\"=\"COM99\"\n")
            .arg(m_folder.path())
            .toUtf8()};
};

void TestComPortNames::init()
{
    QVERIFY(putContent(file("adapter"), "") && putContent(file("terminal"), ""));
    (void)QFile::link(file("adapter"), file("by-id")); // once
}

void TestComPortNames::nameStandsForOneDevice_data()
{
    QTest::addColumn<QString>("device");
    QTest::newRow("COM1") << "/dev/ttyS0";
    QTest::newRow("COM32") << "/dev/ttyS31";
    QTest::newRow("COM34") << "/dev/ttyUSB1";
    QTest::newRow("COM65") << "/dev/ttyACM0";
    QTest::newRow("COM96") << "/dev/ttyACM31";
    QTest::newRow("COM7") << "/dev/ttyUSB0";
    QTest::newRow("\\\\.\\com7") << "/dev/ttyUSB0";
    QTest::newRow("COM99") << "simulator:sensor?type=2";
    QTest::newRow("COM33") << QString(); // its device has another number
    QTest::newRow("COM0") << QString();
    QTest::newRow("COM97") << QString();
    QTest::newRow("COM999999999") << QString();
    for (const char* device : {"/dev/pts/3", "simulator:display", "COM7x"})
        QTest::newRow(device) << device;
}

void TestComPortNames::nameStandsForOneDevice()
{
    QFETCH(QString, device);
    const ComPortNames names;
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(names.devicePath(name), device);
    QCOMPARE(names.isSimulated(name), device.startsWith(QLatin1String("simulator:")));
    if (name.startsWith(QLatin1String("COM")) && device.startsWith(QLatin1Char('/')))
        QCOMPARE(names.numberOf(device), name.mid(3).toInt());
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
    QTest::newRow("another simulated") << "simulator:sensor?type=1" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestComPortNames::deviceHasOneNumber()
{
    QFETCH(QString, device);
    QFETCH(int, number);
    QCOMPARE(ComPortNames().numberOf(device), number);
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

    m_settings.write(QByteArray());
    QCOMPARE(described(ComPortNames().presentPorts({system[1]})),
             QStringList(QStringLiteral("33|/dev/ttyUSB0|ttyUSB0|USB adapter|")));
}

/// /dev/null and /dev/zero stand for adapters: they are devices, as those are.
void TestComPortNames::deviceIsFoundAgainByItsLink()
{
    const QString link = file("links/usb-A");
    QVERIFY(QDir().mkpath(file("links")) && QFile::link(QStringLiteral("/dev/null"), link) &&
            QFile::link(QStringLiteral("/dev/null"), file("links/usb-B")) &&
            QFile::link(QStringLiteral("/dev/null"), file("by-path")) &&
            QFile::link(QStringLiteral("/dev/none"), file("links/gone")));
    for (const QString& device : {QStringLiteral("/dev/null"), link, file("by-path")})
        QCOMPARE(ComPortNames::stableName(device, file("links")), link);
    for (const QString& device : {QStringLiteral("/dev/zero"), QStringLiteral("/dev/none"),
                                  file("links/gone"), QStringLiteral("simulator:sensor?type=2")})
        QCOMPARE(ComPortNames::stableName(device, file("links")), device);
    QCOMPARE(ComPortNames::stableName(QStringLiteral("/dev/null"), file("nowhere")),
             QStringLiteral("/dev/null"));
}

void TestComPortNames::factoryAsksTheMakerOfTheScheme()
{
    QStringList made;
    const auto maker = [&made](const QString& name) {
        return [&made, name](const QString& device) {
            made << name + device;
            return std::make_unique<TermiosComPort>(device.toStdString());
        };
    };
    ComPortFactory factory(maker(QStringLiteral("system ")));
    factory.addScheme(QStringLiteral("simulator:"), maker(QStringLiteral("simulated ")));
    m_settings.write("[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                     "\"simulator:sensor\"=\"COM99\"\n");
    for (const char* name : {"\\\\.\\COM99", "simulator:display", "COM1", "/dev/pts/3", "COM0"})
        QVERIFY(factory.create(QString::fromLatin1(name)));
    QCOMPARE(made, (QStringList{QStringLiteral("simulated simulator:sensor"),
                                QStringLiteral("simulated simulator:display"),
                                QStringLiteral("system /dev/ttyS0"),
                                QStringLiteral("system /dev/pts/3"), QStringLiteral("system ")}));
}

QTEST_GUILESS_MAIN(TestComPortNames)
#include "TestComPortNames.moc"
