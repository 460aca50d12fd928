#include "sensor/FormatRestore.h"

#include "sensor/PositionStream.h"
#include "sensor/RunnerBench.h"
#include "support/Languages.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QSignalSpy>

#include <cerrno>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;
using Result = FormatRestore::Result;

namespace {

const QString kDevice = u"/dev/serial/by-id/usb-\u00C4 100%=;[1]-if00-port0"_s;
const KeptFormat kFormat{kDevice, "4A\r\0", "4A0519", "4E0519", false};
const KeptFormat kReadBack{kDevice, "4A\r\0", "4A0519", "4E0519", true};

/// What is kept in a folder, as the next run of the program reads it.
KeptFormats formatsIn(const TestFolder& folder)
{
    return KeptFormats(folder.path(u"a/formats"_s), folder.path(u"former"_s));
}

/// A sensor whose own format is 4A0519, and which streams with 4E0519.
struct Rig
{
    /// Connects the sensor and starts. @return false if the start fails
    [[nodiscard]] bool startStream()
    {
        return bench.connectSensor() && stream.start() &&
               waitFor([this] { return stream.isStreaming() || !stream.isActive(); }) &&
               stream.isStreaming();
    }
    /// @return whether the sensor is as it was before
    [[nodiscard]] std::optional<bool> endStream()
    {
        (void)bench.frames();
        std::optional<bool> result;
        (void)bench.runner.endStream(bench, [&result](bool restored) { result = restored; });
        (void)waitFor([&result] { return result.has_value(); });
        return result;
    }
    /// Restarts and connects the sensor, and has its format looked after.
    [[nodiscard]] std::optional<Result> restart()
    {
        (void)bench.connectSensor();
        std::optional<Result> result;
        restore.begin(bench, [&result](Result ended) { result = ended; });
        (void)waitFor([&result] { return result.has_value(); });
        return result;
    }
    /// What is kept of the sensor: nothing, its format, or that this was read back.
    [[nodiscard]] QString kept() const
    {
        const auto all = formats.all();
        return all.isEmpty() ? QString() : all.front().readBack ? u"noted"_s : u"kept"_s;
    }

    const Languages languages{1};
    RunnerBench bench;
    SimulatedSensor& sensor = *bench.sensor;
    TestFolder folder;
    KeptFormats formats{folder.path(u"formats"_s), QString()};
    FormatRestore restore{bench.runner, formats};
    PositionStream stream{bench.runner, formats, restore, false};
};

} // namespace

class TestFormatRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startThatFailsLeavesTheSensorItsFormat()
    {
        Rig rig;
        QVERIFY(rig.folder.put(u"formats"_s, {})); // a file where the folder should be
        const QSignalSpy noticed(&rig.stream, &PositionStream::noticed);
        QVERIFY(!rig.startStream());
        QCOMPARE(rig.bench.frames(), u"DA"_s);
        QVERIFY(noticed.value(0).value(0).toString().contains(rig.folder.path(u"formats"_s)));
        QVERIFY(rig.endStream() == true && QFile::remove(rig.folder.path(u"formats"_s)));

        rig.sensor.setParameter('D', "4A051X");
        const QSignalSpy failed(&rig.stream, &PositionStream::failed);
        QVERIFY(!rig.startStream());
        QCOMPARE(failed.size(), 1);
        QCOMPARE(rig.bench.frames(), u"DA"_s);
        rig.sensor.setParameter('D', "4A0519");
        rig.sensor.setParameter('A', "00000020");
        rig.sensor.setFault({SimulatedFault::Kind::WrongByte, 7}, "AA"); // might be taken for 2
        QVERIFY(!rig.startStream());
        QCOMPARE(rig.bench.frames(), u"DA DN4E0519 CN AA VA DA DN4A0519 CN DA"_s);
    }

    void whatIsNotReadBackStaysKeptAndIsTold()
    {
        Rig rig;
        const auto check = [&rig](const char* swallowed, const char* fault, const char* version,
                                  const QString& frames) {
            QVERIFY(rig.startStream()); // its own format is the kept one
            const QSignalSpy told(&rig.stream, &PositionStream::formatKept);
            rig.bench.swallowed = swallowed;
            if (const auto rule = SimulatedFaultRule::parse(fault))
                rig.sensor.setFault(rule->fault, rule->command);
            rig.sensor.setParameter('V', version);
            QVERIFY(rig.endStream() == false);
            QCOMPARE(rig.bench.frames(), frames);
            QCOMPARE(told.size(), 1);
            QCOMPARE(rig.kept(), u"kept"_s);
            rig.bench.swallowed.clear();
            rig.sensor.clearFaults();
            rig.sensor.setParameter('V', "3A0102");
        };
        check("DN", "", "3A0102", u"VA DA CN DA CN DA CN DA"_s);
        check("", "wrong-byte:1@DA", "3A0102", u"VA DA DA DA"_s);
        check("", "silent@VA", "3A0102", u"VA VA VA VA VA VA"_s);
        check("", "", "3A0103", u"VA"_s); // another sensor
    }

    void whatIsReadBackWaitsForTheNextRestart()
    {
        Rig rig;
        rig.sensor.setParameter('D', "4a0519");
        QVERIFY(rig.startStream());
        rig.bench.swallowed = "CN";
        QVERIFY(rig.endStream() == true); // it answers what it has not stored
        QCOMPARE(rig.kept(), u"noted"_s);

        rig.bench.swallowed = "DN";
        QVERIFY(rig.restart() == Result::NotRestored);
        QCOMPARE(rig.kept(), u"kept"_s);
        rig.bench.swallowed.clear();
        QVERIFY(rig.restart() == Result::Restored);
        QCOMPARE(rig.bench.frames(), u"DA DN4A0519 CN DA"_s);
        QCOMPARE(rig.kept(), u"noted"_s);
        QVERIFY(rig.restart() == Result::Restored);
        QCOMPARE(rig.bench.frames(), u"DA"_s);
        QCOMPARE(rig.kept(), QString());
        QVERIFY(rig.restart() == Result::NothingKept);
    }

    void anotherSensorGetsNothing()
    {
        Rig rig;
        QVERIFY(rig.bench.connectSensor());
        const QString device = rig.bench.link.device();
        QVERIFY(rig.formats.keep({device, "3A0102", "4A0519", "4E0519"}).isDone());
        const auto check = [&rig](const char* version, const char* format, const QString& frames) {
            rig.sensor.setParameter('V', version);
            rig.sensor.setParameter('D', format);
            QVERIFY(rig.restart() == Result::NothingKept);
            QCOMPARE(rig.bench.frames(), frames);
            QCOMPARE(rig.kept(), u"kept"_s); // its sensor may still come
        };
        check("3A0103", "4E0519", {});
        check("7A0102", "4E0519", {}); // not identified
        check("3A0102", "4E0518", u"DA"_s);
        check("3A0102", "4A0519", u"DA"_s);
    }

    void keptFormatOutlastsTheProgramUntilItIsDropped()
    {
        const TestFolder folder;
        QCOMPARE(formatsIn(folder).all(), QList<KeptFormat>());
        const KeptFormat other{folder.path(u"ttyUSB0"_s), "4A\r\0", "4A0519", "4E0618", false};
        const KeptFormat longest{QString(300, u'x'), "4A\r\0", "4A0519", "4E0519", false};
        for (const KeptFormat& format : {kFormat, other, longest, kReadBack})
            QVERIFY(formatsIn(folder).keep(format).isDone());
        QCOMPARE(formatsIn(folder).all().size(), 3);
        QCOMPARE(formatsIn(folder).of(kDevice, kFormat.version), QList<KeptFormat>{kReadBack});
        QCOMPARE(formatsIn(folder).of(kDevice, "4B"), QList<KeptFormat>());
        for (const KeptFormat& format : {longest, kReadBack, kReadBack})
            QVERIFY(formatsIn(folder).drop(format).isDone());
        QCOMPARE(formatsIn(folder).all(), QList<KeptFormat>{other});

        // Whichever of its paths a device has, it is the same one.
        QVERIFY(folder.put(u"ttyUSB0"_s, {}) && QFile::link(other.device, folder.path(u"by-id"_s)));
        QCOMPARE(formatsIn(folder).of(folder.path(u"by-id"_s), other.version),
                 QList<KeptFormat>{other});
    }

    void whatCannotBeStoredOrReadIsPassedOver()
    {
        const TestFolder folder;
        QVERIFY(formatsIn(folder).keep(kFormat).isDone());
        QCOMPARE(formatsIn(folder).keep({kDevice, "4A\r\0", "4A05", "4E0519"}).systemError, EINVAL);
        const QString file =
            u"a/formats/"_s + QDir(folder.path(u"a/formats"_s)).entryList(QDir::Files).value(0);
        const QByteArray whole = folder.content(file);
        QVERIFY(folder.put(u"a/formats/copy.ini"_s, whole));
        QCOMPARE(formatsIn(folder).all(), QList<KeptFormat>{kFormat});
        for (const QByteArray& damaged :
             {QByteArray(), whole.left(60), QByteArray(whole).replace("4A0519", "4A051")}) {
            QVERIFY(folder.put(file, damaged));
            QCOMPARE(formatsIn(folder).all(), QList<KeptFormat>());
            QCOMPARE(folder.content(file), damaged);
        }
    }

    void formerFileIsTakenOverAsFarAsItCanBeStored()
    {
        const TestFolder folder;
        const TestRegistry ports("[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\n"
                                 "\"simulator:sensor\"=\"COM97\"\n");
        const QByteArray unknown = "[COM98]\n334130313032\\4E0519=4A0519\n";
        const QByteArray known = "[COM33]\n3341\\4E0519=4A0519\n3341\\4E0618=4A0618\n\n"
                                 "[COM97]\n4E0519=4A0519\n\n";
        QVERIFY(folder.put(u"former"_s, known + unknown));
        QVERIFY(folder.put(u"a"_s, {})); // in the place of a folder
        QCOMPARE(formatsIn(folder).all(), QList<KeptFormat>());
        QCOMPARE(folder.content(u"former"_s), known + unknown);
        QVERIFY(QFile::remove(folder.path(u"a"_s)));

        const QString first = u"/dev/ttyUSB0"_s;
        const KeptFormat newer{first, "3A", "4A0618", "4E0618", true};
        QVERIFY(KeptFormats(folder.path(u"a/formats"_s), QString()).keep(newer).isDone());
        const auto all = formatsIn(folder).all();
        QVERIFY(all.size() == 3 && all.contains(newer));
        QVERIFY(all.contains({first, "3A", "4A0519", "4E0519", false}));
        QVERIFY(all.contains({u"simulator:sensor"_s, {}, "4A0519", "4E0519", false}));
        QCOMPARE(folder.content(u"former"_s), "[COM33]\n\n[COM97]\n\n" + unknown);

        QVERIFY(folder.put(u"former"_s, known));
        QCOMPARE(formatsIn(folder).all(), all);
        QVERIFY(!QFileInfo::exists(folder.path(u"former"_s)));
    }
};

QTEST_GUILESS_MAIN(TestFormatRestore)
#include "TestFormatRestore.moc"
