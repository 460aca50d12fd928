#include "pages/FactoryParamsPage.h"
#include "pages/PageRig.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/ComPortNames.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

using InfoRig = PageRig<SensorInfoPage, 0>;

struct FactoryRig : PageRig<FactoryParamsPage, 4, 1037>
{
    using PageRig::PageRig;

    [[nodiscard]] QTableWidget& list() { return *control<QTableWidget>(1036); }

    /// @return the edit that is then open over the cell; null if none is
    QLineEdit* clickCell(int row, int column)
    {
        const QModelIndex cell = list().model()->index(row, column);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(cell).center());
        return qobject_cast<QLineEdit*>(list().indexWidget(cell));
    }
    /// Types a text into a cell, which then stays open.
    void edit(int row, const char* text)
    {
        QLineEdit* edit = clickCell(row, 1);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }
};

} // namespace

/// The pages that list parameters.
class TestParameterPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Also answers that are no values of their parameters are shown.
    void everyTypesInformationIsShown()
    {
        constexpr auto kReads = "DA AA LA FA VA UA SA PA ZA NA MA JA KA OA"_L1;
        for (const auto& [type, holding, reads, values] :
             {std::tuple(0, "D820018 AABCDEF U000000", 10,
                         "24 bits, Gray code|Forward, Asynchronous|× 4|0.000|500|00||SN000417|"
                         "1704452|0.00|023600|0000A5F0|0683|000000|Not applicable|Not applicable|"
                         "Not applicable|Not applicable"),
              {1, "DC40019 P0000a6c4", 11,
               "25 bits, binary|Forward, Position stream|× 8|0.020|800|00||SN010882|2752771|"
               "2815.00 (9.02309)|011980|0000A6C4|057D|FFFFF6|057D|Not applicable|Not applicable|"
               "Not applicable"},
              {2, // all differ
               "D4Dfe18 A00000010 L0A0250 FSn000001 V3FFFFFFF U283000 S046c00 P0000a71e Z07e932 "
               "Nfffff6 M081f20 J00000a K010102 O00003c",
               14,
               "24 bits, binary|Reverse, Synchronous|× 2|0.010|250|fe||Sn000001|1073741823|"
               "2830.00 (8.97527)|046C00|0000A71E|07E9|FFFFF6|081F|00000A|"
               "2 Magnets, Differential Position, Parity|00003C"}}) {
            InfoRig rig(type, holding);
            QCOMPARE(rig.values(), QString::fromUtf8(values));
            QCOMPARE(rig.refresh(), kReads.left(3 * reads - 1));
        }
        InfoRig rig;
        for (const auto& [holding, shown] :
             {std::pair("K000301", "1 Magnet, Unknown output, No Extension"),
              {"K030000", "Unknown number of magnets, Normal Position Output, Unknown extension"},
              {"K020203", "Unknown number of magnets, Velocity, Temperature"}}) {
            rig.hold(holding);
            rig.refresh();
            QCOMPARE(rig.values().section(u'|', 16, 16), QLatin1String(shown));
        }
    }

    void hexadecimalValuesSayWhatTheyMean()
    {
        InfoRig rig(2, "D4Afe19 Z07e932 NFFFFF6 M000020 O00003c");
        const auto& list = *rig.control<QTableWidget>(1000);
        QStringList meanings;
        for (int row = 0; row < list.rowCount(); ++row) {
            const QTableWidgetItem* item = list.item(row, 1);
            QCOMPARE(item->data(Qt::AccessibleDescriptionRole).toString(), item->toolTip());
            meanings << item->toolTip();
        }
        QCOMPARE(meanings.join(u'|'),
                 u"|||||FE hexadecimal is 254.|||3A0102 hexadecimal; the firmware revision is 3A, "
                 "as the bounds in the settings are written.||289792 = 512 × gradient ÷ "
                 "resolution in µm. Gradient and resolution give 046C00.|0000A71E hexadecimal is "
                 "42782.|The code of a stroke length of 250 or 1214 mm.|-10 counts, -0.050 mm|"
                 "No stroke length has this code.|000001 hexadecimal is 1.||00003C hexadecimal "
                 "is 60."_s);
    }

    void rowsAreCopiedForASpreadsheet()
    {
        InfoRig rig;
        auto& list = *rig.control<QTableWidget>(1000);
        auto& pages = rig.pageList(); // has the focus after a page was chosen
        pages.setFocus();
        const auto copied = [&pages] {
            QTest::keyClick(&pages, Qt::Key_C, Qt::ControlModifier);
            return QGuiApplication::clipboard()->text();
        };
        QCOMPARE(copied().count(u'\n'), 17); // nothing is selected
        list.selectRow(3);
        list.selectionModel()->select(list.model()->index(4, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCOMPARE(copied(), u"Resolution\t0.005\tmm\nStroke Length\t1250\tmm"_s);
    }

    void missingAnswerLeavesTheRestEmptyUntilItCanBeRead()
    {
        InfoRig rig(0, "D000018");
        rig.sensor().setFault({SimulatedFault::Kind::Short, 3}, "L");
        rig.refresh();
        QCOMPARE(rig.statusText(), u"Parameter 76 could not be read from the sensor."_s);
        QCOMPARE(rig.lightText(), u"Red, blinking: not connected"_s);
        QCOMPARE(rig.languages().loadLanguage(2), 1);
        QVERIFY(waitFor([&rig] { return rig.statusText().startsWith(u"Parameter 76 konnte"_s); }));
        QCOMPARE(rig.values(), u"24 Bit, binär|Vorwärts, Asynchron|× 1|0.010||00||||||||||||"_s);
        rig.sensor().clearFaults();
        rig.refresh();
        QCOMPARE(rig.lightText(), u"Grün: verbunden"_s);
        QCOMPARE(rig.values().count(u"||"_s), 1);
    }

    /// By its button, and by Escape from anywhere; not by who clicks Refresh again.
    void readingIsCancelledAndLeavesNothingToApply()
    {
        FactoryRig rig(2, "D0A0519"); // a multiplier would be asked about
        auto& button = rig.page<QPushButton>("cancelReadingButton");
        const auto escape = [&rig] {
            QTest::keyClick(rig.window().windowHandle(), Qt::Key_Escape);
        };
        const std::function<void()> ways[] = {
            [&button] { QTest::mouseClick(&button, Qt::LeftButton); }, escape};
        for (const auto& cancel : ways) {
            rig.sensor().setFault({SimulatedFault::Kind::Late, 200});
            (void)rig.frames();
            rig.clickRefresh();
            QVERIFY(waitFor([&button] { return button.isVisible(); }));
            rig.clickRefresh();
            QVERIFY(waitFor([&rig] { return !rig.values().startsWith(u'|'); }));
            cancel();
            QVERIFY(rig.waitIdle());
            QCOMPARE(rig.statusText(), u"Reading was cancelled. What is empty was not read."_s);
            QCOMPARE(rig.lightText(), u"Green: connected"_s);
            QVERIFY(rig.values().endsWith(u"|||||"_s) && !rig.frames().contains(u"OA"_s));
            QVERIFY(!button.isVisible());
            rig.sensor().clearFaults();
            rig.edit(0, "N 1");
            QCOMPARE(rig.apply(), u"The values on this page have"_s);
            rig.refresh();
        }
        rig.edit(0, "N 1");
        rig.clickApply(); // what is written is brought to its end
        QVERIFY(rig.window().isBusy());
        QVERIFY(!button.isVisible());
        escape();
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.frames().right(2), u"CN"_s);
    }

    /// What was not edited is written as it was read. Who has opened a cell may apply.
    void everyTypesFactoryParametersAreEditedAndWritten()
    {
        for (const auto& [type, editable, reads, values, writes] :
             {std::tuple(0, 7, "FA DA LA UA PA AA NA",
                         "SN000417|0A|500|2830.00|0|0000A5F0|0.000|||",
                         "FNSN000417 LN0A0500 UN283000 SN023600 ZN068332 PN0000A5F0 DN020018 "
                         "NN000000 CN"),
              {1, 8, "FA DA LA UA PA AA NA MA", "SN010882|0B|800|2815.00|4|0000A6C4|-0.200|14||",
               // the offset times four, as the data format says
               "FNSN010882 LN0B0800 UN281500 SN011980 ZN057D32 PN0000A6C4 DN820318 "
               "NNFFFFD8 MN057D14 EN"},
              {2, 10, "FA DA LA UA PA AA NA MA JA OA",
               "SN012345|0A|1250|2830.00|2|0000A71E|0.050|20|000001|00003C",
               "FNSN012345 LN0A1250 UN283000 SN046C00 ZN081F32 PN0000A71E DN4A0519 "
               "NN000014 MN081F20 JN000001 ON00003C CN"}}) {
            FactoryRig rig(type);
            QCOMPARE(rig.refresh(), QLatin1String(reads));
            QCOMPARE(rig.values(), QLatin1String(values));
            int edits = 0;
            for (int cell = 0; cell < 30; ++cell)
                edits += rig.clickCell(cell / 3, cell % 3) ? 1 : 0;
            QCOMPARE(edits, editable);
            QCOMPARE(rig.apply(), QLatin1String(writes));
        }
    }

    void editedFactoryParametersReachTheSensorAndStayShown()
    {
        FactoryRig rig;
        int row = 0;
        for (const char* text :
             {"N 1", "0C", "250", "27.5", "0", "A71F", "-0.050", "7F", "2", "3D"})
            rig.edit(row++, text);
        QCOMPARE(rig.apply(), // which ends the last edit
                 u"FN00000N 1 LN0C0250 UN002750 SN000B00 ZN07E932 PN0000A71F DN0A0519 NNFFFFF6 "
                 "MN02467F JN000002 ON00003D CN"_s);
        QCOMPARE(rig.values(), u"N 1|0C|250|27.5|0|A71F|-0.050|7F|2|3D"_s);
    }

    void factoryParametersThatCannotBeWrittenAreRefused()
    {
        FactoryRig rig;
        rig.edit(8, "3");
        rig.edit(6, "");
        rig.clickCell(0, 0);
        QCOMPARE(rig.apply(), u"A value is missing. Please complete"_s);
        QCOMPARE(rig.list().currentRow(), 6);
        rig.edit(6, "0.05");
        QCOMPARE(rig.apply(), u"This value must be 0, 1"_s);
        QVERIFY(rig.list().item(8, 0)->isSelected());

        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "A");
        rig.refresh();
        QCOMPARE(rig.values(), u"SN012345|0A|1250|2830.00|2|0000A71E||||"_s);
        rig.sensor().clearFaults();
        rig.refresh();
        rig.clickCell(0, 1);
        rig.clickCell(0, 0);
        const auto path = ComPortNames::stableName(rig.link().device());
        QVERIFY(rig.formats().keep({path, rig.link().versionText(), "0A0519", "4A0519"}).isDone());
        QCOMPARE(rig.apply(), u"The sensor still carries the data"_s);
        // Bytes that are sent by hand may change anything.
        QVERIFY(rig.runner().start(rig.window(), rawPlan("VA\r"), {}) && rig.waitIdle());
        QCOMPARE(rig.apply(), u"The values on this page have"_s);
        rig.link().forgetIdentification();
        QCOMPARE(rig.apply(), u"The sensor is not identified. Nothing"_s);
    }
};

QTEST_MAIN(TestParameterPages)
#include "TestParameterPages.moc"
