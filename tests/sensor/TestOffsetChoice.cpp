#include "sensor/OffsetChoice.h"

#include "sensor/FactoryParameters.h"
#include "support/Rows.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// What there is to choose from, as "00000A 00000A 000014"; empty without a question.
QByteArray wordsOf(const std::optional<OffsetChoice>& choice)
{
    if (!choice)
        return {};
    return choice->has + ' ' + choice->kept + ' ' + choice->multiplied.value_or("-");
}

} // namespace

class TestOffsetChoice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyAnOffsetThatWouldBecomeAnotherOneIsAskedAbout()
    {
        struct Row
        {
            const char* name;
            double millimetres, readResolution, newResolution;
            int multiplier;
            QByteArray choice; ///< what it was, what it can be
        };
        forEachRow(
            std::vector<Row>{
                {"no multiplier", 0.05, 0.005, 0.005, 1, ""},
                {"same resolution", 0.05, 0.005, 0.005, 2, "00000A 00000A 000014"},
                {"coarser resolution", 0.05, 0.005, 0.01, 4, "00000A 000005 000014"},
                {"finer resolution", 0.05, 0.005, 0.001, 8, "00000A 000032 000190"},
                {"negative", -0.2, 0.02, 0.02, 4, "FFFFF6 FFFFF6 FFFFD8"},
                {"no offset", 0, 0.005, 0.005, 8, ""},
                {"none left in the new resolution", 0.02, 0.005, 0.05, 8, ""},
                {"just one left", 0.025, 0.005, 0.05, 8, "000005 000001 000008"},
                {"too far to be multiplied", -327.68, 0.005, 0.005, 2, "FF0000 FF0000 -"},
                {"too far for the new resolution", 32768, 0.02, 0.001, 4, ""},
            },
            [](const Row& row) {
                QCOMPARE(wordsOf(offsetChoice(row.millimetres, row.readResolution,
                                              row.newResolution, row.multiplier)),
                         row.choice);
            });
    }

    void factoryParametersAskAboutWhatWasNotTyped()
    {
        struct Row
        {
            const char* name;
            const char* offset;     ///< typed; null: as it was read
            const char* multiplier; ///< the same
            QByteArray choice;
        };
        forEachRow(
            std::vector<Row>{
                {"nothing typed", nullptr, nullptr, "00000A 00000A 000014"},
                {"another multiplier", nullptr, "8", "00000A 00000A 000050"},
                {"the multiplier taken away", nullptr, "0", ""},
                {"another offset", "0.100", nullptr, ""},
            },
            [](const Row& row) {
                FactoryParameters parameters;
                for (const auto& [id, reply] :
                     {std::pair('D', "4A0519"), std::pair('A', "00000005"),
                      std::pair('N', "00000A")})
                    parameters.take(id, reply);
                FactoryParameters::Texts entries;
                for (int at = 0; at < FactoryParameters::kRowCount; ++at)
                    entries[std::size_t(at)] = parameters.text(at);
                if (row.offset)
                    entries[FactoryParameters::Offset] = QLatin1String(row.offset);
                if (row.multiplier)
                    entries[FactoryParameters::Multiplier] = QLatin1String(row.multiplier);
                QCOMPARE(wordsOf(parameters.offsetToChoose(entries)), row.choice);
            });
    }
};

QTEST_GUILESS_MAIN(TestOffsetChoice)
#include "TestOffsetChoice.moc"
