#include "simulator/SimulatedDevice.h"
#include "simulator/SimulatedPorts.h"
#include "support/Rows.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Lets a sensor hear a script, in which '!' restarts its supply and '~' lets time pass.
/// @param options of its name
/// @return what it has sent, with a '~' for the time that passed
QByteArray answers(const char* options, const QByteArray& script)
{
    const auto sensor =
        SimulatedPorts::createDevice(u"simulator:sensor?"_s + QLatin1String(options));
    SimulatedDevice::TimePoint now{100s};
    sensor->setLine({4800}, now);
    std::string sent;
    for (const char step : script) {
        if (step == '!') {
            sensor->setRts(true, now);
            sensor->setRts(false, now);
        } else if (step == '~') {
            now += 1400ms;
            sent += step;
        } else {
            (void)sensor->receive({&step, 1}, now);
        }
        now += step == '\r' ? 30ms : 0ms; // as long as an answer takes
        sent += sensor->take(now);
    }
    return QByteArray::fromStdString(sent);
}

} // namespace

class TestSimulatedDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sensorAnswers()
    {
        struct Row
        {
            const char* name;
            const char* options;
            QByteArray script;
            QByteArray answers;
        };
        const QByteArray four("PROG\rPROG\rPROG\rPROG\r");
        const QByteArray enter = "!" + four + "PROG\r"; // the programming mode
        const QByteArray write = enter + "NN123456\rVN1A0000\r";
        const QByteArray ask = "!" + four + "PROG\rNA\rVA\r"; // after a restart
        const QByteArray stream = enter + "DN4E0519\rCN\r";   // from its next start on
        const std::vector<Row> rows = {
            {"without supply", "", four + "PROG\rVA\r", ""},
            {"too few frames", "", "!" + four + "VA\r", ""},
            {"just enough", "", enter + "VA\r", "3A0102\r"},
            {"begun in the middle of one", "", "!OG\r" + four + "PROG\rVA\r", "3A0102\r"},
            {"broken off", "", "!" + four + "PRG\rPROG\rVA\r", ""},
            {"in the last moment", "", "!~~" + four + "PROG\rVA\r", "~~3A0102\r"},
            {"too late", "", "!~~~" + four + "PROG\rVA\r", "~~~"},
            {"supply of the user's", "power=manual", "!~~~" + enter + "VA\r", "~~~3A0102\r"},
            {"restarted", "", enter + "!VA\r", ""},

            {"write shows at once", "", write + "NA\rVA\r", "123456\r3A0102\r"},
            {"write not closed", "", write + ask, "00000A\r3A0102\r"},
            {"type 0 closes with C", "type=0", write + "CN\r" + ask, "123456\r1A0204\r"},
            {"type 0 closes with E", "type=0", write + "EN\r" + ask, "123456\r1A0204\r"},
            {"type 1 closes not with C", "type=1", write + "CN\r" + ask, "FFFFF6\r2A0103\r"},
            {"type 1 closes with E", "type=1", write + "EN\r" + ask, "123456\r2A0103\r"},
            {"type 2 closes with C", "type=2", write + "CN\r" + ask, "123456\r3A0102\r"},
            {"type 2 closes with E", "type=2", write + "EN\r" + ask, "123456\r3A0102\r"},
            {"another command", "", write + "QN\r" + ask, "00000A\r3A0102\r"},
            {"too short a frame", "", enter + "V\rVA\r", "3A0102\r"},
            {"more behind the command", "", write + "EN1\r" + ask, "00000A\r3A0102\r"},

            {"streams to a line of any speed", "fault=short:1@stream", stream + "!~",
             '~' + QByteArray(101, '\xB0')},
            {"does not stream when it is called", "", stream + enter + "~VA\r", "~3A0102\r"},

            {"silent", "fault=silent", enter + "VA\r~", "~"},
            {"silent for another", "fault=silent@A", enter + "VA\rAA\r~", "3A0102\r~"},
            {"silent for its writes", "fault=silent@VN", enter + "VA\r~", "3A0102\r~"},
            {"the longest text decides", "fault=short:2@VA&fault=silent@V", enter + "VA\r", "3A"},
            {"late", "fault=late:1400@V", enter + "VA\r~", "~3A0102\r"},
            {"as late as usual", "fault=late", enter + "VA\r~", "~3A0102\r"},
            {"long", "fault=long", enter + "VA\r", "3A01020000"},
            {"wrong end", "fault=wrong-byte:6", enter + "VA\r", "3A0102\x8D"},
            {"no CR", "fault=no-cr", enter + "VA\r", "3A0102"},
            {"vanishes", "fault=vanish:1400@A", enter + "AA\rVA\r~" + ask, "~00000A\r3A0102\r"},
        };
        forEachRow(rows,
                   [](const Row& row) { QCOMPARE(answers(row.options, row.script), row.answers); });
    }

    void nameWithoutMeaningIsNoDevice()
    {
        for (const char* name :
             {"", "valve", "sensor?type=3", "sensor?type=1.5", "sensor?node=1", "sensor?moving=yes",
              "display?node=10", "sensor?fault=-", "sensor?fault=late:x", "sensor?fault=late:5 ",
              "sensor?fault=late:-1", "sensor?fault=late:99999999999", "sensor?fault=silent@",
              "sensor?fault=@V"})
            QVERIFY2(!SimulatedPorts::createDevice(u"simulator:"_s + QLatin1String(name)), name);
        QVERIFY(!SimulatedPorts::createDevice(u"/dev/ttyUSB0"_s));
    }
};

QTEST_APPLESS_MAIN(TestSimulatedDevices)
#include "TestSimulatedDevices.moc"
