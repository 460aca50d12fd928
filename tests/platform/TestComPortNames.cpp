#include "platform/core/ComPortNames.h"
#include "platform/core/PortNumbers.h"
#include "platform/core/Profile.h"
#include "platform/core/UserFolders.h"
#include "support/ChangedVariable.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

class TestComPortNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.put(u"adapter"_s, "") && m_folder.put(u"terminal"_s, ""));
        QVERIFY(QFile::link(m_adapter, m_link));
        (void)QFile::remove(profilePath());
        const QString kept = u"/dev/serial/by-id/kept"_s;
        QVERIFY(Profile().writeTexts(u"Ports"_s, {{u"COM101"_s, kept}}).isDone());
    }

    void nameStandsForOneDeviceAndADeviceHasOneNumber()
    {
        struct Row
        {
            const char* name;
            QString device;
            int number; ///< of the device
        };
        const ComPortNames names;
        forEachRow(std::vector<Row>{{"COM1", u"/dev/ttyS0"_s, 1},
                                    {"COM32", u"/dev/ttyS31"_s, 32},
                                    {"COM34", u"/dev/ttyUSB1"_s, 34},
                                    {"COM65", u"/dev/ttyACM0"_s, 65},
                                    {"COM96", u"/dev/ttyACM31"_s, 96},
                                    {"COM7", u"/dev/ttyUSB0"_s, 7},
                                    {"\\\\.\\com7", u"/dev/ttyUSB0"_s, 7},
                                    {"COM12", m_link, 12},
                                    {"COM99", u"simulator:sensor?type=2"_s, 99},
                                    {"COM33", {}, 0}, // its device has another number
                                    {"COM0", {}, 0},
                                    {"COM97", {}, 0},
                                    {"COM999999999", {}, 0},
                                    {"COM7x", u"COM7x"_s, 0},
                                    {"/dev/ttyUSB5", u"/dev/ttyUSB5"_s, 38},
                                    {"/dev/ttyS6", u"/dev/ttyS6"_s, 0}, // has given its number away
                                    {"/dev/ttyUSB32", u"/dev/ttyUSB32"_s, 0},
                                    {"/dev/ttyUSB01", u"/dev/ttyUSB01"_s, 0},
                                    {"simulator:sensor", u"simulator:sensor"_s, 0}},
                   [&names](const Row& row) {
                       const QString name = QString::fromLatin1(row.name);
                       QCOMPARE(names.devicePath(name), row.device);
                       QCOMPARE(names.numberOf(row.device), row.number);
                       QCOMPARE(names.isSimulated(name), row.device.startsWith(u"simulator:"));
                   });
        QCOMPARE(names.numberOf(m_adapter), 12); // behind its link
    }

    void presentPortsAreThoseOfTheSystemAndOfTheSettings()
    {
        const QList<SerialDevice> system = {{u"/dev/ttyACM1"_s, {}, u"Probe"_s},
                                            {u"/dev/ttyUSB0"_s, {}, u"USB adapter"_s},
                                            {u"/dev/ttyS6"_s},
                                            {u"/dev/ttyUSB40"_s, u"/dev/serial/by-id/kept"_s},
                                            {m_adapter, {}, u"Other adapter"_s}};
        QStringList found;
        for (const PresentPort& port : ComPortNames().presentPorts(system))
            found << u"%1 %2 %3 %4%5"_s.arg(port.number)
                         .arg(port.device, port.shortName, port.adapter.description)
                         .arg(port.simulated ? u"simulated"_s : QString());
        const QStringList expected = {
            u"7 /dev/ttyUSB0 ttyUSB0 USB adapter"_s,
            u"12 %1 adapter Other adapter"_s.arg(m_link),
            u"66 /dev/ttyACM1 ttyACM1 Probe"_s,
            u"99 simulator:sensor?type=2 simulator:sensor?type=2 simulated"_s,
            u"101 /dev/serial/by-id/kept ttyUSB40 "_s,
            u"200 %1 terminal "_s.arg(m_folder.path(u"terminal"_s)),
            u"0 /dev/ttyS6 ttyS6 "_s};
        QCOMPARE(found, expected);
    }

    /// What the settings say comes before what the profile has.
    void numberGivenToADeviceIsKept()
    {
        const QString odd = u"/dev/serial/by-id/a \"b\"; ü%20"_s;
        QVERIFY(Profile()
                    .writeTexts(u"Ports"_s, {{u"COM7"_s, u"/dev/ttyUSB50"_s},
                                             {u"COM100"_s, odd},
                                             {u"COM103"_s, m_adapter}})
                    .isDone());
        const ComPortNames names;
        QCOMPARE(names.devicePath(u"COM100"_s), odd);
        QCOMPARE(names.numberOf(u"/dev/ttyUSB50"_s), 0);
        QCOMPARE(names.numberOf(m_adapter), 12);
        QCOMPARE(names.freeNumber(), 102);

        QVERIFY(keepPortNumber(102, u"/dev/settings"_s).isDone());
        QVERIFY(contentOf(m_settings.path()).contains("\"/dev/settings\"=\"COM102\""));
        {
            const ChangedVariable noFile("PELORIN_REGISTRY", {}); // the user has none of their own
            QVERIFY(keepPortNumber(104, u"/dev/profile"_s).isDone());
        }
        QCOMPARE(Profile().readTexts(u"Ports"_s).value(u"COM104"_s), u"/dev/profile"_s);
        QCOMPARE(ComPortNames().devicePath(u"COM104"_s), u"/dev/profile"_s);
    }

    /// /dev/null and /dev/zero stand for adapters: they are devices, as those are.
    void deviceIsFoundAgainByItsLink()
    {
        const QString folder = m_folder.path(u"links"_s);
        const QString link = folder + u"/usb-A"_s;
        const QString gone = folder + u"/gone"_s;
        const QString byPath = m_folder.path(u"by-path"_s);
        const QString device = u"/dev/null"_s;
        QVERIFY(QDir().mkpath(folder) && QFile::link(device, link) &&
                QFile::link(device, folder + u"/usb-B"_s) && QFile::link(device, byPath) &&
                QFile::link(u"/dev/none"_s, gone));
        for (const QString& name : {device, link, byPath})
            QCOMPARE(ComPortNames::stableName(name, folder), link);
        for (const QString& name : {u"/dev/zero"_s, u"/dev/none"_s, gone, u"simulator:sensor"_s})
            QCOMPARE(ComPortNames::stableName(name, folder), name);
        QCOMPARE(ComPortNames::stableName(device, m_folder.path(u"nowhere"_s)), device);
    }

private:
    const TestFolder m_folder;
    const QString m_adapter = m_folder.path(u"adapter"_s);
    const QString m_link = m_folder.path(u"by-id"_s);
    const TestRegistry m_settings{u"[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                                  "\"\\\\Device\\\\Serial0\"=\"COM1\"\n"
                                  "\"/dev/ttyUSB0\"=\"COM7\"\n"
                                  "\"%1/by-id\"=\"com12\"\n"
                                  "\"%1/terminal\"=\"COM200\"\n"
                                  "\"%1/unplugged\"=\"COM3\"\n"
                                  "\"/dev/ttyUSB5\"=\"LPT1\"\n"
                                  "\"simulator:sensor?type=2\"=\"COM99\"\n"_s.arg(m_folder.path({}))
                                      .toUtf8()};
};

QTEST_GUILESS_MAIN(TestComPortNames)
#include "TestComPortNames.moc"
