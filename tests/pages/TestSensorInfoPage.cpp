#include "pages/SensorInfoPage.h"
#include "support/MainWindowRig.h"

#include <QTableWidget>
#include <QTest>

#include <vector>

using namespace pelorin;
using test::MainWindowRig;

namespace {

/// A sensor's parameters whose decoded values all differ.
void setDistinctValues(SimulatedSensor& sensor)
{
    for (const auto& [id, text] :
         {std::pair('D', "824218"), std::pair('A', "00000010"), std::pair('L', "0A0250"),
          std::pair('F', "Sn000001"), std::pair('U', "283000"), std::pair('S', "046c00"),
          std::pair('P', "0000a71e"), std::pair('Z', "07e932"), std::pair('N', "fffff6"),
          std::pair('M', "081f20"), std::pair('J', "00000a"), std::pair('K', "010102"),
          std::pair('O', "00003c")})
        sensor.setParameter(id, text);
}

/// The value column that belongs to it, for type 2.
QStringList distinctValues()
{
    return QString::fromUtf8("24 bits, Gray code|Forward, Asynchronous|\u00D7 4|0.010|250|42||"
                             "Sn000001|3801346|2830.00 (8.97527)|046C00|0000A71E|07E9|FFFFF6|081F|"
                             "00000A|2 Magnets, Differential Position, Parity|00003C")
        .split(u'|');
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
    void everyTypeFillsItsRowsAndSpeaksEveryLanguage()
    {
        for (const auto& [type, version, missing, frames] :
             {std::tuple(0, "1704452", 14, "VA DA AA LA FA VA UA SA PA ZA NA"),
              std::tuple(1, "2752771", 15, "VA DA AA LA FA VA UA SA PA ZA NA MA"),
              std::tuple(2, "3801346", 18, "VA DA AA LA FA VA UA SA PA ZA NA MA JA KA OA")}) {
            MainWindowRig rig({.type = type});
            setDistinctValues(rig.sensor());
            QVERIFY(rig.startConnected());
            QStringList expected = distinctValues();
            expected[8] = QLatin1String(version);
            for (int row = missing; row < expected.size(); ++row)
                expected[row] = QStringLiteral("Not applicable");
            QCOMPARE(shownValues(rig), expected);
            QCOMPARE(rig.frames(), QLatin1String(frames)); // the first one is the connect's
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));

            QCOMPARE(rig.languages().loadLanguage(2), 1);
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Bereit."));
            QCOMPARE(shownValues(rig).mid(7, missing - 9), expected.mid(7, missing - 9));
            QCOMPARE(shownValues(rig).first(), QStringLiteral("24 Bit, Gray-Code"));
        }
    }

    /// Also answers that are no values of their parameters are shown.
    void valuesAreDecoded()
    {
        using Replies = std::vector<std::pair<char, const char*>>;
        using Shown = std::vector<std::pair<int, const char*>>; // by row
        for (const auto& [replies, shown] :
             {std::pair<Replies, Shown>(
                  {{'D', "000019"}, {'A', "ABCDEF"}, {'U', "000000"}, {'K', "030003"}},
                  {{0, "25 bits, binary"},
                   {2, "\u00D7 1"},
                   {3, "0.000"},
                   {9, "0.00"},
                   {16, "Unknown number of magnets, Normal Position Output, Unknown extension"}}),
              std::pair<Replies, Shown>(
                  {{'D', "4Dfe18"}, {'A', "00000005"}, {'V', "3FFFFFFF"}, {'K', "020201"}},
                  {{1, "Reverse, Synchronous"},
                   {2, "\u00D7 2"},
                   {3, "0.005"},
                   {5, "fe"},
                   {8, "1073741823"},
                   {16, "1 Magnet, Velocity, Temperature"}}),
              std::pair<Replies, Shown>({{'D', "C40018"}, {'K', "000301"}},
                                        {{1, "Forward, Position stream"},
                                         {2, "\u00D7 8"},
                                         {16, "1 Magnet, Unknown output, No Extension"}})}) {
            MainWindowRig rig;
            for (const auto& [id, text] : replies)
                rig.sensor().setParameter(id, text);
            QVERIFY(rig.startConnected());
            for (const auto& [row, text] : shown)
                QCOMPARE(shownValues(rig).at(row), QString::fromUtf8(text));
        }
    }

    void missingAnswerLeavesTheRestEmptyUntilItCanBeRead()
    {
        MainWindowRig rig;
        setDistinctValues(rig.sensor());
        QVERIFY(rig.startConnected());
        rig.sensor().setFault({SimulatedFault::Kind::Short, 3}, "L");
        rig.clickRefresh();
        QTRY_COMPARE(rig.statusText(),
                     QStringLiteral("Parameter 76 could not be read from the sensor."));
        QVERIFY(rig.waitIdle());
        QStringList expected = distinctValues().mid(0, 6);
        expected[4].clear(); // the format has filled the row behind it
        QCOMPARE(shownValues(rig), expected + QStringList(12));
        QCOMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));

        rig.sensor().clearFaults();
        rig.clickRefresh();
        QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
        QVERIFY(rig.waitIdle());
        QCOMPARE(shownValues(rig), distinctValues());
    }
};

QTEST_MAIN(TestSensorInfoPage)
#include "TestSensorInfoPage.moc"
