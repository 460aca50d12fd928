#include "pages/FactoryRig.h"

#include <QSignalSpy>

#include <map>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// What a page writes that is applied as it was read.
Frames uneditedWrites(int type)
{
    switch (type) {
    case 0:
        return {"FNSN000417", "LN0A0500", "UN283000", "SN023600", "ZN068332",
                "PN0000A5F0", "DN020018", "NN000000", "CN"};
    case 1: // the offset times four, as the data format says
        return {"FNSN010882", "LN0B0800", "UN281500", "SN011980", "ZN057D32",
                "PN0000A6C4", "DN820318", "NNFFFFD8", "MN057D14", "EN"};
    default:
        return {"FNSN012345", "LN0A1250", "UN283000", "SN046C00", "ZN081F32", "PN0000A71E",
                "DN4A0519",   "NN000014", "MN081F20", "JN000001", "ON00003C", "CN"};
    }
}

} // namespace

class TestFactoryApply : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void uneditedPageWritesWhatItHasRead_data();
    void uneditedPageWritesWhatItHasRead();
    void editedValuesReachTheSensorAndStayShown();
    void secondApplyBuildsTheFormatFromTheBitsRead();
    void openCellIsCommittedByApply();
    void unfitValueIsRefusedAndItsRowSelected();
    void withoutAnIdentifiedSensorNothingIsWritten();
    void afterAFailedReadNothingIsWritten();
    void zeroResolutionIsRefused();
    void lostLinkEndsApplyAndNamesWhatWasWritten_data();
    void lostLinkEndsApplyAndNamesWhatWasWritten();
    void closingWaitsForTheEndOfApply();
    void closingDuringApplyEndsAlsoWhenTheLinkIsLost();
};

void TestFactoryApply::uneditedPageWritesWhatItHasRead_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QLocale>("locale");
    for (int type = 0; type <= 2; ++type) {
        QTest::addRow("type %d with points", type) << type << QLocale::c();
        QTest::addRow("type %d with commas", type) << type << QLocale(QLocale::German);
    }
}

void TestFactoryApply::uneditedPageWritesWhatItHasRead()
{
    QFETCH(int, type);
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    FactoryRig rig(type);
    QVERIFY(rig.show());
    rig.touch();
    (void)rig.sensor().takeReceivedFrames();

    rig.clickApply();
    QTRY_VERIFY(rig.window().isBusy());
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.sensor().takeReceivedFrames(), uneditedWrites(type));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(!rig.applyButton().isEnabled());
}

void TestFactoryApply::editedValuesReachTheSensorAndStayShown()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    const std::vector<std::pair<int, const char*>> edits = {
        {0, "NEW 1"}, {1, "0C"},     {2, "250"}, {3, "27.5"}, {4, "0"},
        {5, "A71F"},  {6, "-0.050"}, {7, "7F"},  {8, "2"},    {9, "3D"}};
    for (const auto& [row, text] : edits)
        rig.edit(row, text);
    rig.clickApply();
    QTRY_VERIFY(rig.window().isBusy());
    QVERIFY(rig.waitIdle());

    for (const auto& [id, stored] : std::map<char, std::string>{{'F', "000NEW 1"},
                                                                {'L', "0C0250"},
                                                                {'U', "002750"},
                                                                {'S', "000B00"},
                                                                {'Z', "07E932"},
                                                                {'P', "0000A71F"},
                                                                {'D', "0A0519"},
                                                                {'N', "FFFFF6"},
                                                                {'M', "02467F"},
                                                                {'J', "000002"},
                                                                {'O', "00003D"},
                                                                {'A', "00000005"},
                                                                {'K', "000001"}})
        QCOMPARE(rig.sensor().parameter(id), stored);
    for (const auto& [row, text] : edits)
        QCOMPARE(rig.value(row), QLatin1String(text));
}

void TestFactoryApply::secondApplyBuildsTheFormatFromTheBitsRead()
{
    FactoryRig rig;
    rig.sensor().setParameter('D', "C01234");
    QVERIFY(rig.show());
    QCOMPARE(rig.value(4), QStringLiteral("8"));
    for (const auto& [text, format] : {std::pair("2", "401234"), std::pair("4", "801234")}) {
        rig.edit(4, text);
        rig.clickApply();
        QTRY_COMPARE(rig.sensor().parameter('D'), std::string(format));
        QVERIFY(rig.waitIdle());
    }
}

void TestFactoryApply::openCellIsCommittedByApply()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    rig.clickCell(0, 1);
    QTest::keyClicks(rig.editor(), QStringLiteral("OPEN"));
    rig.clickApply();
    QTRY_COMPARE(rig.sensor().parameter('F'), std::string("0000OPEN"));
    QVERIFY(rig.waitIdle());
    QVERIFY(!rig.editor());
}

void TestFactoryApply::unfitValueIsRefusedAndItsRowSelected()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.edit(8, "3");
    rig.edit(6, "");
    (void)rig.sensor().takeReceivedFrames();
    QCOMPARE(rig.refusalOfApply(), QStringLiteral("A value is missing. Please complete it first."));
    QCOMPARE(rig.list().currentRow(), 6);
    QVERIFY(rig.list().item(6, 0)->isSelected());

    rig.edit(6, "0,05");
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(rig.refusalOfApply(), QStringLiteral("This value must be 0, 1 or 2."));
    QCOMPARE(rig.list().currentRow(), 8);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
}

void TestFactoryApply::withoutAnIdentifiedSensorNothingIsWritten()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    rig.link().forgetIdentification();
    (void)rig.sensor().takeReceivedFrames();
    QCOMPARE(rig.refusalOfApply(),
             QStringLiteral("The sensor is not identified. Nothing was written."));
    QCoreApplication::processEvents();
    QVERIFY(!rig.window().isBusy());
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
}

void TestFactoryApply::afterAFailedReadNothingIsWritten()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.touch();
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "A");
    rig.clickRefresh();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Parameter 65 could not be read from the sensor."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.value(5), QStringLiteral("0000A71E"));
    QCOMPARE(rig.value(6), QString());

    for (const auto& [row, text] :
         {std::pair(6, "0.05"), std::pair(7, "20"), std::pair(8, "1"), std::pair(9, "3C")})
        rig.edit(row, text);
    (void)rig.sensor().takeReceivedFrames();
    QVERIFY(rig.refusalOfApply().startsWith(
        QLatin1String("The sensor's parameters have not been read completely")));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());

    rig.sensor().clearFaults();
    rig.clickRefresh();
    QTRY_COMPARE(rig.value(9), QStringLiteral("00003C"));
    QVERIFY(rig.waitIdle());
    rig.touch();
    QCOMPARE(rig.refusalOfApply(), QString());
    QTRY_VERIFY(rig.window().isBusy());
    QVERIFY(rig.waitIdle());
}

void TestFactoryApply::zeroResolutionIsRefused()
{
    FactoryRig rig;
    rig.sensor().setParameter('A', "00000000");
    QVERIFY(rig.show());
    rig.edit(6, "0");
    (void)rig.sensor().takeReceivedFrames();
    QCOMPARE(rig.refusalOfApply(),
             QStringLiteral("The resolution read from the sensor is 0. Nothing was written."));
    QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
}

void TestFactoryApply::lostLinkEndsApplyAndNamesWhatWasWritten_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("written");
    QTest::newRow("first write") << QByteArray("FN") << int('F') << QString();
    QTest::newRow("offset") << QByteArray("NN") << int('N')
                            << QStringLiteral("F, L, U, S, Z, P, D");
    QTest::newRow("last write") << QByteArray("ON") << int('O')
                                << QStringLiteral("F, L, U, S, Z, P, D, N, M, J");
    QTest::newRow("closing command")
        << QByteArray("CN") << int('C') << QStringLiteral("F, L, U, S, Z, P, D, N, M, J, O");
}

void TestFactoryApply::lostLinkEndsApplyAndNamesWhatWasWritten()
{
    QFETCH(QByteArray, command);
    QFETCH(int, id);
    QFETCH(QString, written);
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.edit(0, "LOST");
    // It is back at once: the flag of the loss is cleared before the page is told.
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, command.toStdString());

    const QString failure =
        QStringLiteral("Parameter %1 could not be written to the sensor.").arg(id);
    QString text;
    QString status;
    const int factoryPage = rig.window().currentPage();
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
    QCOMPARE(text.section(QLatin1Char('\n'), 0, 1),
             failure + QStringLiteral("\nOperation abandoned: the connection to the sensor was "
                                      "lost."));
    QVERIFY(text.section(QLatin1Char('\n'), 2)
                .startsWith(written.isEmpty()
                                ? QStringLiteral("No parameter had been written before.")
                                : QStringLiteral("Parameters written before: %1. ").arg(written)));
    QCOMPARE(page, factoryPage);
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
    (void)rig.sensor().takeReceivedFrames();
    rig.clickApply();
    rig.window().close();
    QVERIFY(rig.window().isVisible());
    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(rig.sensor().takeReceivedFrames().back(), std::string("CN"));
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
