#include "app/Commands.h"
#include "pages/FactoryRig.h"
#include "pages/ManualCommDialog.h"

#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kNotRead = QStringLiteral("The sensor's parameters have not been read completely "
                                        "since this page was shown, the connection was lost or "
                                        "manual communications were used. Read them again before "
                                        "you apply changes.");

} // namespace

class TestFactoryApply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void uneditedPageWritesWhatItHasRead_data();
    void uneditedPageWritesWhatItHasRead();
    void editedValuesReachTheSensorAndStayShown();
    void formatIsBuiltFromTheBitsReadAtEachApply();
    void unfitValueIsRefusedAndItsRowSelected();
    void withoutAnIdentifiedSensorNothingIsWritten();
    void onlyACompleteReadIsABaseForWriting();
    void manualCommunicationsCallForARead();
    void lostLinkEndsApplyAndNamesWhatWasWritten_data();
    void lostLinkEndsApplyAndNamesWhatWasWritten();
    void closingWaitsForTheEndOfApply();
    void closingDuringApplyEndsAlsoWhenTheLinkIsLost();
};

void TestFactoryApply::uneditedPageWritesWhatItHasRead_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("writes");
    QTest::newRow("type 0") << 0
                            << "FNSN000417 LN0A0500 UN283000 SN023600 ZN068332 PN0000A5F0 "
                               "DN020018 NN000000 CN";
    // The offset times four, as the data format says.
    QTest::newRow("type 1") << 1
                            << "FNSN010882 LN0B0800 UN281500 SN011980 ZN057D32 PN0000A6C4 "
                               "DN820318 NNFFFFD8 MN057D14 EN";
    QTest::newRow("type 2") << 2
                            << "FNSN012345 LN0A1250 UN283000 SN046C00 ZN081F32 PN0000A71E "
                               "DN4A0519 NN000014 MN081F20 JN000001 ON00003C CN";
}

void TestFactoryApply::uneditedPageWritesWhatItHasRead()
{
    QFETCH(int, type);
    QFETCH(QString, writes);
    FactoryRig rig(type);
    QVERIFY(rig.show());
    for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German)}) {
        QLocale::setDefault(locale);
        rig.touch();
        QVERIFY(rig.apply());
        QCOMPARE(rig.frames(), writes);
        QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
        QVERIFY(!rig.applyButton().isEnabled());
    }
}

void TestFactoryApply::editedValuesReachTheSensorAndStayShown()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    int row = 0;
    for (const char* text : {"NEW 1", "0C", "250", "27.5", "0", "A71F", "-0.050", "7F", "2", "3D"})
        rig.edit(row++, text);
    rig.clickCell(0, 1);
    QTest::keyClicks(rig.editor(), QStringLiteral("OPEN")); // is committed by Apply
    QVERIFY(rig.apply());
    QCOMPARE(rig.frames(),
             QStringLiteral("FN0000OPEN LN0C0250 UN002750 SN000B00 ZN07E932 PN0000A71F "
                            "DN0A0519 NNFFFFF6 MN02467F JN000002 ON00003D CN"));
    QCOMPARE(rig.values(), QStringLiteral("OPEN|0C|250|27.5|0|A71F|-0.050|7F|2|3D"));
    QCOMPARE(rig.sensor().parameter('F'), std::string("0000OPEN"));
}

void TestFactoryApply::formatIsBuiltFromTheBitsReadAtEachApply()
{
    FactoryRig rig;
    rig.sensor().setParameter('D', "C01234");
    QVERIFY(rig.show());
    for (const auto& [text, format] : {std::pair("2", "401234"), std::pair("4", "801234")}) {
        rig.edit(4, text);
        QVERIFY(rig.apply());
        QCOMPARE(rig.sensor().parameter('D'), std::string(format));
    }
}

void TestFactoryApply::unfitValueIsRefusedAndItsRowSelected()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.edit(8, "3");
    rig.edit(6, "");
    QCOMPARE(rig.refusalOfApply(), QStringLiteral("A value is missing. Please complete it first."));
    QCOMPARE(rig.list().currentRow(), 6);
    QVERIFY(rig.list().item(6, 0)->isSelected());

    rig.edit(6, "0,05");
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(rig.refusalOfApply(), QStringLiteral("This value must be 0, 1 or 2."));
    QCOMPARE(rig.list().currentRow(), 8);
}

void TestFactoryApply::withoutAnIdentifiedSensorNothingIsWritten()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    rig.link().forgetIdentification();
    QCOMPARE(rig.refusalOfApply(),
             QStringLiteral("The sensor is not identified. Nothing was written."));
}

void TestFactoryApply::onlyACompleteReadIsABaseForWriting()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "A");
    QVERIFY(rig.refresh());
    QCOMPARE(rig.statusText(), QStringLiteral("Parameter 65 could not be read from the sensor."));
    QCOMPARE(rig.values(), QStringLiteral("SN012345|0A|1250|2830.00|2|0000A71E||||"));
    for (const auto& [row, text] :
         {std::pair(6, "0.05"), std::pair(7, "20"), std::pair(8, "1"), std::pair(9, "3C")})
        rig.edit(row, text);
    QCOMPARE(rig.refusalOfApply(), kNotRead);

    rig.sensor().clearFaults();
    QVERIFY(rig.refresh());
    rig.touch();
    QVERIFY(rig.apply());
}

void TestFactoryApply::manualCommunicationsCallForARead()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    const ModalAnswer<ManualCommDialog> answer([](ManualCommDialog& dialog) { dialog.accept(); });
    QVERIFY(rig.clickCommand(kManualCommCommand));
    QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
    QCOMPARE(rig.refusalOfApply(), kNotRead);
}

void TestFactoryApply::lostLinkEndsApplyAndNamesWhatWasWritten_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("written");
    QTest::newRow("FN") << 70 << "No parameter had been written before.";
    QTest::newRow("NN") << 78 << "Parameters written before: F, L, U, S, Z, P, D. ";
    QTest::newRow("CN") << 67 << "Parameters written before: F, L, U, S, Z, P, D, N, M, J, O. ";
}

void TestFactoryApply::lostLinkEndsApplyAndNamesWhatWasWritten()
{
    QFETCH(int, id);
    QFETCH(QString, written);
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    // It is back at once: the flag of the loss is cleared before the page is told.
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, QTest::currentDataTag());

    const QString failure =
        QStringLiteral("Parameter %1 could not be written to the sensor.").arg(id);
    const QString message = failure +
                            QStringLiteral("\nOperation abandoned: the connection to the sensor "
                                           "was lost.\n") +
                            written;
    QString text;
    QString status;
    int page = -1;
    const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
        text = box.text();
        status = rig.statusText();
        QTRY_COMPARE(rig.link().linkFailed(), 0);
        QTRY_VERIFY(!rig.window().isBusy());
        page = rig.window().currentPage();
        box.accept();
    });
    rig.clickApply();
    QTRY_VERIFY(answer.wasShown());
    // The window tells how it tries to reconnect as soon as it has to wait for the port.
    QVERIFY(status == failure || status.startsWith(QLatin1String("Lost communication")));
    QCOMPARE(text.left(message.size()), message);
    QCOMPARE(page, 4);
    // Only then the sensor is connected again, which shows the first page.
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.lightText(), QStringLiteral("Green: connected"));
}

void TestFactoryApply::closingWaitsForTheEndOfApply()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    rig.edit(0, "CLOSED");
    rig.clickApply();
    rig.window().close();
    QVERIFY(rig.window().isVisible());
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(rig.frames().endsWith(QLatin1String("CN")));
    QCOMPARE(rig.sensor().parameter('F'), std::string("00CLOSED"));
}

void TestFactoryApply::closingDuringApplyEndsAlsoWhenTheLinkIsLost()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    rig.touch();
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 0, 1}, "ZN");
    rig.clickApply();
    rig.window().close();
    QTRY_COMPARE(closed.count(), 1); // without anybody to answer a message
}

QTEST_MAIN(TestFactoryApply)
#include "TestFactoryApply.moc"
