#include "pages/OutputSetupRig.h"

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr auto kMissing = "A value is missing. Please complete it first.";
constexpr auto kReadFirst = "The values on this page have not all been read";
constexpr auto kDoesNotFit = "The sensor cannot hold the scale factor or the offset";
constexpr auto kNotIdentified = "The sensor is not identified. Nothing was written.";

} // namespace

/// What the page refuses, and how it fares when the sensor or its link fails.
class TestOutputSetupFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusedBeforeAnythingIsWritten_data();
    void refusedBeforeAnythingIsWritten();
    void failedReadLeavesThePageUsable();
    void sensorNotIdentifiedIsNotWritten();
    void lostLinkEndsApplyAndSaysWhatWasWritten_data();
    void lostLinkEndsApplyAndSaysWhatWasWritten();
    void linkLostDuringADialogAbandonsApply_data();
    void linkLostDuringADialogAbandonsApply();
    void closingWaitsForTheEndOfApply();
};

void TestOutputSetupFailures::refusedBeforeAnythingIsWritten_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("holding"); // a parameter and its text
    QTest::addColumn<int>("control");
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("focus"); // 0: none
    const auto row = [](const char* name, int type, const char* holding, int control,
                        const char* entry, const char* message, int focus) {
        QTest::newRow(name) << type << QByteArray(holding) << control << QByteArray(entry)
                            << QByteArray(message) << focus;
    };
    row("type 0, 0.005 mm", 0, "", kResolution, "0.005 mm",
        "This type of sensor does not offer a resolution finer than 0.010 mm.", kResolution);
    row("type 0, synchronous", 0, "", kMode, "Synchronous",
        "This type of sensor has no synchronous measurement mode.", kMode);
    row("reverse and synchronous", 2, "", kDirection, "Reverse",
        "The synchronous measurement mode cannot be combined with the reverse direction.", kMode);
    row("unknown data bits", 2, "D020520", kFormat, "Binary", kMissing, kDataBits);
    row("unknown resolution", 2, "A00000007", kFormat, "Binary", kMissing, kResolution);
    row("unknown output mode", 2, "K000301", kFormat, "Binary", kMissing, kOneMagnet);
    row("unknown extension", 2, "K030001", kFormat, "Binary", kMissing, kNoExtension);
    row("no skip count", 1, "", kSkipCount, "", kMissing, kSkipCount);
    row("skip count beyond a byte", 1, "", kSkipCount, "256",
        "The error skip count must be a number from 0 to 255.", kSkipCount);
    row("no resolution", 1, "A00000000", kResolution, "0.010 mm",
        "The sensor has no valid resolution", 0);
    row("offset beyond six digits", 1, "N190000", kResolution, "0.001 mm", kDoesNotFit,
        kResolution);
    row("offset that is not read back", 2, "NFF0000", kFormat, "Binary", kDoesNotFit, kResolution);
    row("scale beyond six digits", 1, "U99999999", kFormat, "Binary", kDoesNotFit, kResolution);
    row("disturbed gradient", 1, "U2830O0", kFormat, "Binary", "Parameter U was read as \"2830O0\"",
        0);
    row("disturbed extension", 2, "K0000Q1", kFormat, "Binary", "Parameter K was read as", 0);
}

void TestOutputSetupFailures::refusedBeforeAnythingIsWritten()
{
    QFETCH(int, type);
    QFETCH(QByteArray, holding);
    QFETCH(int, control);
    QFETCH(QByteArray, entry);
    QFETCH(QByteArray, message);
    QFETCH(int, focus);
    OutputSetupRig rig({.type = type});
    if (!holding.isEmpty())
        rig.sensor().setParameter(holding[0], holding.mid(1).toStdString());
    QVERIFY(rig.open());
    if (control != kSkipCount) {
        rig.select(control, entry.constData());
    } else {
        QVERIFY(rig.unlock("STEADYNOW"));
        rig.enterSkipCount("1");
        rig.enterSkipCount(entry.constData());
    }
    const QString shown = rig.apply();
    QVERIFY2(shown.startsWith(QString::fromLatin1(message)), qPrintable(shown));
    QCOMPARE(rig.frames(), QString());
    if (focus != 0)
        QTRY_COMPARE(rig.window().focusWidget(), rig.control<QWidget>(focus));
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
    (void)rig.frames();
    QVERIFY(rig.apply().startsWith(QLatin1String(kReadFirst)));
    QCOMPARE(rig.frames(), QString());

    QVERIFY(rig.refresh());
    rig.select(kFormat, "Binary");
    rig.page<OutputSetupPage>().sensorChanged(); // as manual communications can
    QVERIFY(rig.apply().startsWith(QLatin1String(kReadFirst)));
    QVERIFY(rig.refresh());
    rig.select(kFormat, "Binary");
    QCOMPARE(rig.apply(), QString());
    QCOMPARE(rig.holds("D"), QStringLiteral("D=480519"));
}

void TestOutputSetupFailures::sensorNotIdentifiedIsNotWritten()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('V', "7F0102");
    rig.start();
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));
    QVERIFY(rig.waitIdle());
    QVERIFY(rig.showPage());
    rig.select(kDataBits, "24");
    QCOMPARE(rig.apply(), QString::fromLatin1(kNotIdentified));
    QCOMPARE(rig.frames(), QString());
}

void TestOutputSetupFailures::lostLinkEndsApplyAndSaysWhatWasWritten_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<QString>("written");
    const auto row = [](const char* lostAt, int parameter, const char* written) {
        QTest::newRow(lostAt) << parameter << QString::fromLatin1(written);
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
    QFETCH(int, parameter);
    QFETCH(QString, written);
    OutputSetupRig rig;
    QVERIFY(rig.open());
    const QString before = rig.holds("DASNK");
    rig.select(kDataBits, "24");
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 20, 1}, QTest::currentDataTag());
    const auto status =
        QStringLiteral("Parameter %1 could not be written to the sensor.").arg(parameter);
    const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
        rig.page<OutputSetupPage>().postStatusText(); // the reconnecting has its own by now
        QCoreApplication::sendPostedEvents(&rig.window());
        QCOMPARE(rig.statusText(), status);
        QVERIFY2(box.text().startsWith(status), qPrintable(box.text()));
        QVERIFY2(box.text().contains(written), qPrintable(box.text()));
        QVERIFY(rig.window().currentPage() != 0); // the connect waits for the answer
        box.accept();
    });
    rig.click(kApply);
    QTRY_VERIFY(answer.wasShown());
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.holds("DASNK"), before);
}

void TestOutputSetupFailures::linkLostDuringADialogAbandonsApply_data()
{
    QTest::addColumn<bool>("offset");
    QTest::newRow("offset dialog") << true;
    QTest::newRow("question") << false;
}

void TestOutputSetupFailures::linkLostDuringADialogAbandonsApply()
{
    OutputSetupRig rig;
    rig.sensor().setParameter('D', "020519");
    QVERIFY(rig.open());
    QFETCH(bool, offset);
    if (offset)
        rig.select(kDirection, "Reverse");
    else
        rig.click(kParity);
    QString message;
    std::optional<ModalAnswer<QMessageBox>> notice;
    const ModalAnswer<QDialog> answer([&](QDialog& dialog) {
        rig.sensor().vanish();
        (void)rig.link().requestRead('V');
        QVERIFY(QTest::qWaitFor([&rig] { return rig.link().lossCount() == 1; }));
        rig.sensor().comeBack();
        QVERIFY(QTest::qWaitFor([&rig] { return rig.link().linkFailed() == 0; }));
        notice.emplace([&message](QMessageBox& box) {
            message = box.text();
            box.accept();
        });
        if (auto* question = qobject_cast<QMessageBox*>(&dialog)) {
            question->button(QMessageBox::Yes)->click();
            return;
        }
        for (auto* edit : dialog.findChildren<QLineEdit*>())
            edit->setText(QStringLiteral("1"));
        dialog.accept();
    });
    rig.click(kApply);
    QCOMPARE(message,
             QStringLiteral("Operation abandoned: the connection to the sensor was lost."));
    QTRY_COMPARE(rig.window().currentPage(), 0); // the connect that has waited
    QVERIFY(rig.waitIdle());
    QVERIFY(!rig.frames().contains(QLatin1String("DN")));
}

void TestOutputSetupFailures::closingWaitsForTheEndOfApply()
{
    for (const bool fails : {false, true}) {
        OutputSetupRig rig;
        QVERIFY(rig.open());
        rig.select(kDataBits, "24");
        if (fails)
            rig.sensor().setFault({SimulatedFault::Kind::Vanish}, "SN");
        rig.click(kApply);
        QVERIFY(rig.page<OutputSetupPage>().isWriting());
        rig.window().close();
        QVERIFY(rig.window().isVisible());
        QTRY_VERIFY(!rig.window().isVisible());
        QCOMPARE(rig.frames().endsWith(QLatin1String(" CN")), !fails);
        QCOMPARE(rig.holds("D"), QString::fromLatin1(fails ? "D=4A0519" : "D=4A0518"));
    }
}

QTEST_MAIN(TestOutputSetupFailures)
#include "TestOutputSetupFailures.moc"
