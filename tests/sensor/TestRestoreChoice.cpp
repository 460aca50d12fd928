#include "sensor/RestoreChoice.h"

#include "sensor/Comparison.h"
#include "support/ChangedValues.h"
#include "support/Languages.h"
#include "support/Rows.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Refusal = RestoreChoice::Refusal;
using Origin = RestoreChoice::Origin;

const SensorValues kType2 =
    changed({}, "D4A0519 A00000005 L0A1250 FSN012345 V3A0102 U283000 S046C00 PA71E00 Z081F32 "
                "N00000A M081F20 J000001 K000001 O00003C");
const SensorValues kType0 = changed({}, "D020018 A00000010 L0A0500 FSN000417 V1A0204 U283000 "
                                        "S023600 PA5F000 Z068332 N000064");

/// What is written, as one text.
QByteArray frames(const RestoreChoice& choice)
{
    QByteArray text;
    for (const char id : choice.order)
        text += QByteArray(text.isEmpty() ? "" : " ") + id + choice.values.at(id);
    return text;
}

} // namespace

class TestRestoreChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allParametersAreThoseThatDifferInTheOrderOfTheType()
    {
        struct Row
        {
            const char* name;
            const char* saved; ///< what differs from the sensor
            const char* written;
            bool withFactoryText = false;
        };
        forEachRow(
            std::vector<Row>{
                {"nothing", "", ""},
                {"the same, written otherwise", "A_5 D4a0519 N0000000A L0A_1250", ""},
                {"in order", "O00003D K010002 NFFFFF6 A10", "A10 NFFFFF6 K010002 O00003D"},
                {"the stream is left out", "D4E0A19", "D4A0A19"},
                {"the stream alone", "D4E0519", ""},
                {"no value", "S04?C0?", "S04?C0?"},
                {"not saved", "J O000001", "O000001"},
                {"the factory text is no part of a backup", "FSN1 V3A0101", ""},
                {"but of an earlier state", "FSN000001 D4A0619", "FSN000001 D4A0619", true},
            },
            [](const Row& row) {
                const SensorValues saved = changed(kType2, row.saved);
                QCOMPARE(frames(chooseAll(2, kType2, saved, row.withFactoryText)),
                         QByteArray(row.written));
            });
    }

    void outputSettingsKeepTheCalibrationOfTheSensor()
    {
        struct Row
        {
            const char* name;
            const char* own; ///< what differs from a sensor of the type, as the next
            const char* saved;
            const char* written; ///< or the parameters that refuse it
            std::map<char, Origin> origins{};
            Refusal refusal = Refusal::None;
            int type = 2;
        };
        constexpr std::pair kOffset('N', Origin::OwnLength);
        constexpr std::pair kScale('S', Origin::OwnVelocity);
        constexpr std::pair kMultiplier('D', Origin::OwnMultiplier);
        const auto refused = [](const char* name, const char* own, const char* saved,
                                Refusal refusal, const char* parameters = "", int type = 2) {
            return Row{name, own, saved, parameters, {}, refusal, type};
        };
        forEachRow(
            std::vector<Row>{
                {"calibration alone differs", "U281111 Z111111 J000009 P999999", "", ""},
                {"format and extension", "", "D480618 K010002", "D480618 K010002"},
                {"stream", "", "D4C0519", "D480519"},
                {"resolution: the scale is the sensor's, the offset the saved one",
                 "U256000",
                 "A10 SAAAAAA N000011",
                 "A10 S020000 N000011",
                 {kScale}},
                {"scale of another sensor is not taken", "", "SAAAAAA", ""},
                {"another multiplier: the sensor's, and its own length",
                 "",
                 "D8A0519 A2 N000123",
                 "A2 S0B0E00 N000019",
                 {kOffset, kScale, kMultiplier}},
                {"another stroke: its own length, rounded, negative",
                 "NFFFFF5",
                 "L0A1000 A10 N000123",
                 "A10 S023600 NFFFFFA",
                 {kOffset, kScale}},
                {"another stroke, same resolution: the offset stays",
                 "",
                 "L0B1250 N000123",
                 "",
                 {kOffset}},
                {"turned, same stroke", "", "D430519 N000123", "D430519 N000123"},
                {"type 0", "", "A100 N00000A", "A100 S003899 N00000A", {kScale}, {}, 0},
                refused("turned, another stroke", "", "D430519 L0A1000", Refusal::OffsetUnknown),
                refused("turned, another multiplier", "", "D030519", Refusal::OffsetUnknown),
                refused("synchronous in reverse", "", "D4B0519", Refusal::ModeNotInReverse),
                refused("not saved", "", "K L", Refusal::NotSaved, "KL"),
                refused("saved text that is none", "", "N00??00", Refusal::NoValue, "N"),
                refused("own text that is none", "U28?00?", "", Refusal::NoValue, "U"),
                refused("no resolution saved", "", "A000000", Refusal::NoResolution),
                refused("no own resolution", "A000000", "", Refusal::NoResolution),
                refused("scale too large", "U99999999", "A1", Refusal::DoesNotFit),
                refused("offset too large", "N400000", "L0A1000 A01", Refusal::DoesNotFit),
                refused("settings that no list has", "", "D0A0518 A7 K000301", Refusal::NotOffered,
                        "AK"),
                refused("too fine", "", "A5", Refusal::ResolutionTooFine, "", 0),
                refused("synchronous", "", "D0A0018", Refusal::ModeNotOffered, "", 0),
            },
            [](const Row& row) {
                const SensorValues& base = row.type == 0 ? kType0 : kType2;
                const auto choice = chooseOutputSettings(row.type, changed(base, row.own),
                                                         changed(base, row.saved));
                QCOMPARE(int(choice.refusal), int(row.refusal));
                QCOMPARE(frames(choice) + choice.refused, QByteArray(row.written));
                QVERIFY(choice.origins == row.origins);
            });
    }

    void anotherSensorIsKnownByVersionAndCalibration()
    {
        QCOMPARE(unlikeSaved(2, kType2, changed(kType2, "V D000000 A1 N000001 S000001 K000000 F1")),
                 QByteArray());
        for (const char id : std::string_view("VULPZMJO")) {
            const QByteArray other = id + QByteArray("111111");
            QCOMPARE(unlikeSaved(2, kType2, changed(kType2, other)), QByteArray(1, id));
            QCOMPARE(unlikeSaved(0, kType0, changed(kType0, other)),
                     kType0.contains(id) ? QByteArray(1, id) : QByteArray());
        }
    }

    void comparisonIsSavedWithEveryTextInItsField()
    {
        const Languages languages(1);
        const auto sensor = changed({}, "P0\"1,2_a NFFFFF6 A00000010 V3A0102");
        const auto file = changed({}, "P0\"1,2_a N00000A A10");
        QCOMPARE(csvOf(compare("PNAV", sensor, file)),
                 QByteArray("Parameter,Name,Sensor,File,\"Sensor, in words\",\"File, in words\","
                            "Comparison\r\n"
                            "P,Factory Text P,\"0\"\"1,2 a\",\"0\"\"1,2 a\",\"0\"\"1,2 a\","
                            "\"0\"\"1,2 a\",equal\r\n"
                            "N,Offset,FFFFF6,00000A,\"-10 counts, -0.100 mm\","
                            "\"10 counts, 0.100 mm\",differs\r\n"
                            "A,Resolution,00000010,10,0.010 mm,0.010 mm,equal\r\n"
                            "V,Firmware Version,3A0102,,3A0102 hex,,\r\n"));
    }
};

QTEST_GUILESS_MAIN(TestRestoreChoice)
#include "TestRestoreChoice.moc"
