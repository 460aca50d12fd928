#include "pages/SensorInfoPage.h"
#include "support/MainWindowRig.h"

#include <QMap>
#include <QTableWidget>
#include <QTest>

using namespace pelorin;
using test::MainWindowRig;

namespace {

const QString kNotApplicable = QStringLiteral("Not applicable");

/// A sensor's parameters whose decoded values all differ.
void setDistinctValues(SimulatedSensor& sensor)
{
    const std::pair<char, const char*> kValues[] = {
        {'D', "824218"}, {'A', "00000010"}, {'L', "0A0250"}, {'F', "Sn000001"}, {'U', "283000"},
        {'S', "046c00"}, {'P', "0000a71e"}, {'Z', "07e932"}, {'N', "fffff6"},   {'M', "081f20"},
        {'J', "00000a"}, {'K', "010102"},   {'O', "00003c"},
    };
    for (const auto& [id, text] : kValues)
        sensor.setParameter(id, text);
}

/// The value column that belongs to setDistinctValues, for type 2.
QStringList distinctValues()
{
    return {QStringLiteral("24 bits, Gray code"),
            QStringLiteral("Forward, Asynchronous"),
            QStringLiteral("\u00D7 4"),
            QStringLiteral("0.010"),
            QStringLiteral("250"),
            QStringLiteral("42"),
            QString(),
            QStringLiteral("Sn000001"),
            QStringLiteral("3801346"),
            QStringLiteral("2830.00 (8.97527)"),
            QStringLiteral("046C00"),
            QStringLiteral("0000A71E"),
            QStringLiteral("07E9"),
            QStringLiteral("FFFFF6"),
            QStringLiteral("081F"),
            QStringLiteral("00000A"),
            QStringLiteral("2 Magnets, Differential Position, Parity"),
            QStringLiteral("00003C")};
}

QStringList shownValues(MainWindowRig& rig)
{
    const auto* list = rig.page<SensorInfoPage>().findChild<QTableWidget*>();
    QStringList values;
    for (int row = 0; row < list->rowCount(); ++row)
        values << list->item(row, 1)->text();
    return values;
}

} // namespace

class TestSensorInfoPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTypeFillsItsRows_data();
    void everyTypeFillsItsRows();
    void valuesAreDecoded_data();
    void valuesAreDecoded();
    void silentParameterLeavesTheRestEmptyAndIsNamed_data();
    void silentParameterLeavesTheRestEmptyAndIsNamed();
    void languageChangeKeepsTheValues();
    void unpluggedAtAnyStepEveryRowHasItsOwnValueInTheEnd_data();
    void unpluggedAtAnyStepEveryRowHasItsOwnValueInTheEnd();
    void enterAndEscapeLeaveThePageShown();
};

void TestSensorInfoPage::everyTypeFillsItsRows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("version");
    QTest::addColumn<int>("firstNotApplicable");
    QTest::addColumn<QByteArray>("readIds");

    QTest::newRow("type 0") << 0 << QStringLiteral("1704452") << 14 << QByteArray("DALFVUSPZN");
    QTest::newRow("type 1") << 1 << QStringLiteral("2752771") << 15 << QByteArray("DALFVUSPZNM");
    QTest::newRow("type 2") << 2 << QStringLiteral("3801346") << 18 << QByteArray("DALFVUSPZNMJKO");
}

void TestSensorInfoPage::everyTypeFillsItsRows()
{
    QFETCH(int, type);
    QFETCH(QString, version);
    QFETCH(int, firstNotApplicable);
    QFETCH(QByteArray, readIds);

    MainWindowRig rig({.type = type});
    setDistinctValues(rig.sensor());
    QVERIFY(rig.startConnected());

    QStringList expected = distinctValues();
    expected[8] = version;
    for (int row = firstNotApplicable; row < expected.size(); ++row)
        expected[row] = kNotApplicable;
    QCOMPARE(shownValues(rig), expected);
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));

    QByteArray read;
    for (const auto& frame : rig.sensor().takeReceivedFrames()) {
        if (frame.size() == 2 && frame[1] == 'A')
            read += frame[0];
    }
    QCOMPARE(read, "V" + readIds); // the first one belongs to the connect
}

void TestSensorInfoPage::valuesAreDecoded_data()
{
    using Replies = QMap<char, QByteArray>;
    using Shown = QMap<int, QString>; // by row
    QTest::addColumn<Replies>("replies");
    QTest::addColumn<Shown>("shown");
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    QTest::newRow("no number, no pulse velocity")
        << Replies{{'D', "000019"}, {'A', "ABCDEF"}, {'U', "000000"}, {'K', "030003"}}
        << Shown{{0, text("25 bits, binary")},
                 {2, text("\u00D7 1")},
                 {3, text("0.000")},
                 {9, text("0.00")},
                 {16, text("Unknown number of magnets, Normal Position Output, Unknown "
                           "extension")}};
    QTest::newRow("reverse, mode one before stream")
        << Replies{{'D', "4Dfe18"}, {'A', "00000005"}, {'V', "3FFFFFFF"}, {'K', "020201"}}
        << Shown{{1, text("Reverse, Synchronous")},
                 {2, text("\u00D7 2")},
                 {3, text("0.005")},
                 {5, text("fe")},
                 {8, text("1073741823")},
                 {16, text("1 Magnet, Velocity, Temperature")}};
    QTest::newRow("streaming, unknown mode")
        << Replies{{'D', "C40018"}, {'K', "000301"}}
        << Shown{{1, text("Forward, Position stream")},
                 {2, text("\u00D7 8")},
                 {16, text("1 Magnet, Unknown output, No Extension")}};
}

void TestSensorInfoPage::valuesAreDecoded()
{
    using Replies = QMap<char, QByteArray>;
    using Shown = QMap<int, QString>;
    QFETCH(Replies, replies);
    QFETCH(Shown, shown);

    MainWindowRig rig;
    for (auto reply = replies.cbegin(); reply != replies.cend(); ++reply)
        rig.sensor().setParameter(reply.key(), reply->toStdString());
    QVERIFY(rig.startConnected());
    const QStringList values = shownValues(rig);
    for (auto row = shown.cbegin(); row != shown.cend(); ++row)
        QCOMPARE(values.at(row.key()), *row);
}

void TestSensorInfoPage::silentParameterLeavesTheRestEmptyAndIsNamed_data()
{
    QTest::addColumn<SimulatedFault::Kind>("fault");
    QTest::addColumn<char>("id");
    QTest::addColumn<int>("rowsFilled");
    using Kind = SimulatedFault::Kind;
    QTest::newRow("garbled length") << Kind::Short << 'L' << 6;
    QTest::newRow("version is silent") << Kind::Silent << 'V' << 8;
    QTest::newRow("last is too long") << Kind::Long << 'O' << 17;
}

void TestSensorInfoPage::silentParameterLeavesTheRestEmptyAndIsNamed()
{
    QFETCH(SimulatedFault::Kind, fault);
    QFETCH(char, id);
    QFETCH(int, rowsFilled);

    MainWindowRig rig;
    setDistinctValues(rig.sensor());
    QVERIFY(rig.startConnected());
    rig.sensor().setFault({fault, 3}, std::string(1, id));
    rig.clickRefresh();
    QTRY_VERIFY(rig.window().isBusy());
    QVERIFY(rig.waitIdle());

    QStringList expected = distinctValues();
    for (int row = rowsFilled; row < expected.size(); ++row)
        expected[row] = QString();
    if (id == 'L') { // the format has filled a row behind it
        expected[4] = QString();
        expected[5] = QStringLiteral("42");
    }
    QCOMPARE(shownValues(rig), expected);
    QVERIFY2(rig.statusText().contains(QString::number(int{id})), qUtf8Printable(rig.statusText()));
    QCOMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));

    rig.sensor().clearFaults();
    rig.clickRefresh();
    QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(rig.waitIdle());
    QCOMPARE(shownValues(rig), distinctValues());
}

void TestSensorInfoPage::languageChangeKeepsTheValues()
{
    MainWindowRig rig({.type = 1});
    QVERIFY(rig.startConnected());
    const QStringList before = shownValues(rig);
    QCOMPARE(rig.languages().loadLanguage(2), 1);
    QCoreApplication::processEvents();

    const auto* list = rig.page<SensorInfoPage>().findChild<QTableWidget*>();
    QCOMPARE(list->horizontalHeaderItem(1)->text(), QStringLiteral("Wert"));
    QStringList after = shownValues(rig);
    for (const int row : {3, 4, 5, 7, 8, 10, 11, 12, 13, 14})
        QCOMPARE(after.at(row), before.at(row));
    QVERIFY(after.at(0) != before.at(0));
    QVERIFY(after.at(17) != kNotApplicable);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Bereit."));
}

void TestSensorInfoPage::unpluggedAtAnyStepEveryRowHasItsOwnValueInTheEnd_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("in the PROG frames") << QByteArray("PROG");
    for (const char id : QByteArray("VDALFUSPZNMJKO"))
        QTest::addRow("at %c", id) << QByteArray(1, id) + 'A';
}

void TestSensorInfoPage::unpluggedAtAnyStepEveryRowHasItsOwnValueInTheEnd()
{
    QFETCH(QByteArray, command);

    MainWindowRig rig;
    setDistinctValues(rig.sensor());
    // It is gone for less than the time to the next tick.
    if (command == "PROG")
        rig.sensor().vanishAfter(23); // in the middle of a frame
    else
        rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, command.toStdString());
    rig.start();
    QTRY_COMPARE(rig.link().lossCount(), 1);
    rig.sensor().comeBack();

    QTRY_COMPARE_WITH_TIMEOUT(shownValues(rig), distinctValues(), 10'000);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.link().lossCount(), 1);
    QCOMPARE(rig.lightText(), QStringLiteral("Green: connected"));
}

void TestSensorInfoPage::enterAndEscapeLeaveThePageShown()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    auto& page = rig.page<SensorInfoPage>();
    auto* list = page.findChild<QTableWidget*>();
    list->setFocus();
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(list, key);
        QVERIFY(page.isVisible());
    }
    page.close();
    QVERIFY(page.isVisible());
}

QTEST_MAIN(TestSensorInfoPage)
#include "TestSensorInfoPage.moc"
