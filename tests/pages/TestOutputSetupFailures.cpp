#include "pages/OutputSetupRig.h"

#include <functional>

using namespace pelorin;
using namespace pelorin::test;

using Prepare = std::function<void(SimulatedSensor&)>;
using Enter = std::function<void(OutputSetupRig&)>;

namespace {

constexpr const char* kMissing = "A value is missing. Please complete it first.";
constexpr const char* kReadFirst = "The values on this page have not all been read";
constexpr const char* kDoesNotFit = "The sensor cannot hold the scale factor or the offset";

constexpr SimulatedFault kVanish{SimulatedFault::Kind::Vanish, 20, 1};

} // namespace

/// What the page refuses, and how it fares when the sensor or its link fails.
class TestOutputSetupFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedBeforeAnythingIsWritten_data();
    void refusedBeforeAnythingIsWritten();
    void offsetThatIsNoNumberIsRefused();
    void failedReadLeavesThePageUsable();
    void sensorNotIdentifiedIsNotWritten();
    void commandBehindThePageCallsForARead();
    void lostLinkEndsApplyAndSaysWhatWasWritten_data();
    void lostLinkEndsApplyAndSaysWhatWasWritten();
    void linkLostDuringTheOffsetDialogAbandonsApply();
    void portThatStaysAwayLeavesThePageToBeReadAgain();
    void closingWaitsForTheEndOfApply();
    void closingDuringAFailingApplyCloses();
    void closingEndsTheDialogAndAppliesNothing();
};

void TestOutputSetupFailures::refusedBeforeAnythingIsWritten_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<Enter>("enter");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("focus"); ///< 0: none
    const auto row = [](const char* name, int type, const Prepare& prepare, const Enter& enter,
                        const char* message, int focus) {
        QTest::newRow(name) << type << prepare << enter << QByteArray(message) << focus;
    };
    const auto holding = [](char id, const char* text) {
        return Prepare([id, text](SimulatedSensor& sensor) { sensor.setParameter(id, text); });
    };
    const auto selecting = [](int list, const char* item) {
        return Enter([list, item](OutputSetupRig& rig) { rig.select(list, item); });
    };
    const auto counting = [](const char* text) {
        return Enter([text](OutputSetupRig& rig) {
            if (rig.unlock("STEADYNOW"))
                rig.enterSkipCount(text);
            rig.select(kFormat, "Binary");
        });
    };
    const Prepare asItIs = [](SimulatedSensor&) {};
    const Enter binary = selecting(kFormat, "Binary");

    row("type 0, 0.005 mm", 0, asItIs, selecting(kResolution, "0.005 mm"),
        "This type of sensor does not offer a resolution finer than 0.010 mm.", kResolution);
    row("type 0, synchronous", 0, asItIs, selecting(kMode, "Synchronous"),
        "This type of sensor has no synchronous measurement mode.", kMode);
    row("reverse and synchronous", 2, asItIs, selecting(kDirection, "Reverse"),
        "The synchronous measurement mode cannot be combined with the reverse direction.", kMode);
    row("unknown data bits", 2, holding('D', "020520"), binary, kMissing, kDataBits);
    row("unknown resolution", 2, holding('A', "00000007"), binary, kMissing, kResolution);
    row("unknown output mode", 2, holding('K', "000301"), binary, kMissing, kOneMagnet);
    row("unknown extension", 2, holding('K', "030001"), binary, kMissing, kNoExtension);
    row("no skip count", 1, asItIs, counting(""), kMissing, kSkipCount);
    row("skip count beyond a byte", 1, asItIs, counting("256"),
        "The error skip count must be a number from 0 to 255.", kSkipCount);
    row("no resolution", 1, holding('A', "00000000"), selecting(kResolution, "0.010 mm"),
        "The sensor has no valid resolution", 0);
    row("offset beyond six digits", 1, holding('N', "190000"), selecting(kResolution, "0.001 mm"),
        kDoesNotFit, kResolution);
    row("offset that six digits would not give back", 2, holding('N', "FF0000"), binary,
        kDoesNotFit, kResolution);
    row("scale beyond six digits", 1, holding('U', "99999999"), binary, kDoesNotFit, kResolution);
}

void TestOutputSetupFailures::refusedBeforeAnythingIsWritten()
{
    QFETCH(int, type);
    QFETCH(Prepare, prepare);
    QFETCH(Enter, enter);
    QFETCH(QByteArray, message);
    QFETCH(int, focus);
    OutputSetupRig rig({.type = type});
    prepare(rig.sensor());
    QVERIFY(rig.open());
    enter(rig);
    const QString shown = rig.applyAnswered();
    QVERIFY2(shown.startsWith(QString::fromLatin1(message)), qPrintable(shown));
    QCOMPARE(rig.frames(), QString());
    if (focus != 0)
        QTRY_COMPARE(rig.window().focusWidget(), rig.control<QWidget>(focus));
}

/// And the offset that was read is back.
void TestOutputSetupFailures::offsetThatIsNoNumberIsRefused()
{
    OutputSetupRig rig({.type = 0});
    rig.sensor().setParameter('N', "FFFFF6");
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    QString message;
    const ModalAnswer<QMessageBox> answer([&message](QMessageBox& box) {
        message = box.text();
        box.accept();
    });
    QVERIFY(rig.applyWithOffset("50.8.1", "63.5"));
    QVERIFY2(message.startsWith(QLatin1String(kDoesNotFit)), qPrintable(message));
    QCOMPARE(rig.frames(), QString());

    rig.select(kDirection, "Forward");
    QVERIFY(rig.apply());
    QCOMPARE(rig.holds("DN"), QStringLiteral("D=020018 N=FFFFF6"));
}

void TestOutputSetupFailures::failedReadLeavesThePageUsable()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "NA");
    QVERIFY(rig.refresh());
    QCOMPARE(rig.statusText(), QStringLiteral("Parameter 78 could not be read from the sensor."));
    QCOMPARE(rig.listText(kResolution), QStringLiteral("0.005 mm"));
    QCOMPARE(rig.checkedButtons(), QList<int>());
    QVERIFY(!rig.isEnabled(kApply));

    rig.click(kNoExtension);
    rig.click(kNormal);
    rig.sensor().clearFaults();
    QVERIFY(rig.isEnabled(kApply));
    (void)rig.frames();
    QVERIFY(rig.applyAnswered().startsWith(QLatin1String(kReadFirst)));
    QCOMPARE(rig.frames(), QString());

    QVERIFY(rig.refresh());
    rig.select(kFormat, "Binary");
    QVERIFY(rig.apply());
    QCOMPARE(rig.stored('D'), QStringLiteral("480519"));
}

void TestOutputSetupFailures::sensorNotIdentifiedIsNotWritten()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('V', "7F0102");
    rig.start();
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));
    QVERIFY(rig.waitIdle());
    QVERIFY(rig.showPage());
    QCOMPARE(rig.listText(kDataBits), QStringLiteral("25"));
    rig.select(kDataBits, "24");
    QCOMPARE(rig.applyAnswered(),
             QStringLiteral("The sensor is not identified. Nothing was written."));
    QCOMPARE(rig.frames(), QString());
}

void TestOutputSetupFailures::commandBehindThePageCallsForARead()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.select(kDataBits, "24");
    QVERIFY(!rig.page<OutputSetupPage>().releaseLink()); // as a restore does
    QVERIFY(rig.applyAnswered().startsWith(QLatin1String(kReadFirst)));
    QCOMPARE(rig.frames(), QString());
}

void TestOutputSetupFailures::lostLinkEndsApplyAndSaysWhatWasWritten_data()
{
    QTest::addColumn<QByteArray>("lostAt");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("written");
    const auto row = [](const char* lostAt, int parameter, const char* written) {
        QTest::newRow(lostAt)
            << QByteArray(lostAt)
            << QStringLiteral("Parameter %1 could not be written to the sensor.").arg(parameter)
            << QString::fromLatin1(written);
    };
    row("DN", 68, "no parameter had been written");
    row("AN", 65, "before the failure: Data Format (D). ");
    row("SN", 83, "before the failure: Data Format (D), Resolution (A). ");
    row("NN", 78, "before the failure: Data Format (D), Resolution (A), Scale Factor (S). ");
    row("KN", 75, "Resolution (A), Scale Factor (S), Offset (N). ");
    row("CN", 255, "Scale Factor (S), Offset (N), Advanced Measurement Setup (K). ");
}

void TestOutputSetupFailures::lostLinkEndsApplyAndSaysWhatWasWritten()
{
    QFETCH(QByteArray, lostAt);
    OutputSetupRig rig;
    QVERIFY(rig.open());
    const QString before = rig.holds("DASNK");
    rig.select(kDataBits, "24");
    rig.sensor().setFault(kVanish, lostAt.toStdString());

    QString text;
    QString status;
    int shownPage = 0;
    const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
        text = box.text();
        rig.page<OutputSetupPage>().postStatusText(); // the reconnecting has its own by now
        QCoreApplication::sendPostedEvents(&rig.window());
        status = rig.statusText();
        shownPage = rig.window().currentPage();
        box.accept();
    });
    rig.click(kApply);
    QTRY_VERIFY(answer.wasShown());
    QTEST(status, "status");
    QFETCH(QString, written);
    QVERIFY2(text.startsWith(status) && text.contains(written), qPrintable(text));
    QVERIFY(shownPage != 0); // the connect has waited for the answer

    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.holds("DASNK"), before);
    QVERIFY(rig.showPage());
    rig.select(kDataBits, "24");
    QVERIFY(rig.apply());
    QCOMPARE(rig.stored('D'), QStringLiteral("4A0518"));
}

void TestOutputSetupFailures::linkLostDuringTheOffsetDialogAbandonsApply()
{
    OutputSetupRig rig({.type = 0});
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    QString message;
    const ModalAnswer<QMessageBox> box([&message](QMessageBox& shown) {
        message = shown.text();
        shown.accept();
    });
    const ModalAnswer<CalculateOffsetDialog> answer([&rig](CalculateOffsetDialog& dialog) {
        rig.sensor().vanish();
        (void)rig.link().requestRead('V');
        QVERIFY(QTest::qWaitFor([&rig] { return rig.link().lossCount() == 1; }));
        rig.sensor().comeBack();
        QVERIFY(QTest::qWaitFor([&rig] { return rig.link().linkFailed() == 0; }));
        QTest::keyClicks(dialog.getControl<QLineEdit>(1031), QStringLiteral("1"));
        QTest::keyClicks(dialog.getControl<QLineEdit>(1037), QStringLiteral("1"));
        dialog.accept();
    });
    rig.click(kApply);
    QCOMPARE(message,
             QStringLiteral("Operation abandoned: the connection to the sensor was lost."));
    QTRY_COMPARE(rig.window().currentPage(), 0); // the connect that has waited
    QVERIFY(rig.waitIdle());
    QVERIFY(!rig.frames().contains(QLatin1String("DN")));
}

void TestOutputSetupFailures::portThatStaysAwayLeavesThePageToBeReadAgain()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.select(kDataBits, "24");
    rig.sensor().setFault({SimulatedFault::Kind::Vanish}, "SN");
    const ModalAnswer<QMessageBox> notice([](QMessageBox& box) { box.accept(); });
    rig.click(kApply);
    QTRY_VERIFY(notice.wasShown());
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.applyAnswered(),
             QStringLiteral("The sensor is not identified. Nothing was written."));
}

void TestOutputSetupFailures::closingWaitsForTheEndOfApply()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.select(kDataBits, "24");
    rig.click(kApply);
    QVERIFY(rig.page<OutputSetupPage>().isWriting());
    rig.window().close();
    QVERIFY(rig.window().isVisible());
    QTRY_VERIFY(!rig.window().isVisible());
    QVERIFY(rig.frames().endsWith(QLatin1String(" CN")));
    QCOMPARE(rig.stored('D'), QStringLiteral("4A0518"));
}

void TestOutputSetupFailures::closingDuringAFailingApplyCloses()
{
    OutputSetupRig rig;
    QVERIFY(rig.open());
    rig.select(kDataBits, "24");
    rig.sensor().setFault({SimulatedFault::Kind::Vanish}, "SN");
    rig.click(kApply);
    rig.window().close();
    QTRY_VERIFY(!rig.window().isVisible());
    QCOMPARE(rig.stored('D'), QStringLiteral("4A0519"));
}

void TestOutputSetupFailures::closingEndsTheDialogAndAppliesNothing()
{
    OutputSetupRig rig({.type = 0});
    QVERIFY(rig.open());
    rig.select(kDirection, "Reverse");
    const ModalAnswer<CalculateOffsetDialog> answer(
        [&rig](CalculateOffsetDialog&) { rig.window().close(); });
    rig.click(kApply);
    QVERIFY(answer.wasShown());
    QTRY_VERIFY(!rig.window().isVisible());
    QCOMPARE(rig.frames(), QString());
}

QTEST_MAIN(TestOutputSetupFailures)
#include "TestOutputSetupFailures.moc"
