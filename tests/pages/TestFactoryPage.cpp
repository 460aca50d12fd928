#include "app/Commands.h"
#include "pages/FactoryParamsPage.h"
#include "pages/ManualCommDialog.h"
#include "pages/PageRig.h"
#include "platform/core/ComPortNames.h"

#include <QLineEdit>
#include <QTableWidget>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kNotRead = QStringLiteral(
    "The values on this page have not all been read from the sensor as it is connected "
    "now. Refresh the page before you apply changes.");

struct FactoryRig : PageRig<FactoryParamsPage, 4, 1037>
{
    explicit FactoryRig(int type = 2) : PageRig({.type = type}) {}

    [[nodiscard]] QTableWidget& list() { return *control<QTableWidget>(1036); }
    /// The edit over the open cell; null if none is open.
    [[nodiscard]] QLineEdit* editor()
    {
        for (int row = 0; row < list().rowCount(); ++row)
            if (auto* edit = list().indexWidget(list().model()->index(row, 1)))
                return qobject_cast<QLineEdit*>(edit);
        return nullptr;
    }
    /// All values, with bars in between.
    [[nodiscard]] QString values()
    {
        QStringList texts;
        for (int row = 0; row < list().rowCount(); ++row)
            texts << list().item(row, 1)->text();
        return texts.join(QLatin1Char('|'));
    }
    void clickCell(int row, int column)
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row, column)).center());
    }
    /// Types a text into a cell and clicks elsewhere.
    void edit(int row, const char* text)
    {
        clickCell(row, 1);
        QTest::keyClick(editor(), Qt::Key_Delete);
        QTest::keyClicks(editor(), QString::fromUtf8(text));
        clickCell(0, 0);
    }
    /// Has the button enabled without changing a value.
    void touch()
    {
        clickCell(0, 1);
        clickCell(0, 0);
    }
    /// Clicks Apply, which tells why it does not write. @return the message
    [[nodiscard]] QString refusal()
    {
        (void)frames();
        const QString text = apply();
        return frames().isEmpty() ? text : QStringLiteral("written");
    }
};

} // namespace

class TestFactoryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    /// What is not edited is written as it was read, whatever the user's separator is.
    void eachTypeIsReadAndWrittenInItsOrder()
    {
        for (const auto& [type, reads, values, writes] :
             {std::tuple(0, "FA DA LA UA PA AA NA", "SN000417|0A|500|2830.00|0|0000A5F0|0.000|||",
                         "FNSN000417 LN0A0500 UN283000 SN023600 ZN068332 PN0000A5F0 DN020018 "
                         "NN000000 CN"),
              std::tuple(1, "FA DA LA UA PA AA NA MA",
                         "SN010882|0B|800|2815.00|4|0000A6C4|-0.200|14||",
                         // the offset times four, as the data format says
                         "FNSN010882 LN0B0800 UN281500 SN011980 ZN057D32 PN0000A6C4 DN820318 "
                         "NNFFFFD8 MN057D14 EN"),
              std::tuple(2, "FA DA LA UA PA AA NA MA JA OA",
                         "SN012345|0A|1250|2830.00|2|0000A71E|0.050|20|000001|00003C",
                         "FNSN012345 LN0A1250 UN283000 SN046C00 ZN081F32 PN0000A71E DN4A0519 "
                         "NN000014 MN081F20 JN000001 ON00003C CN")}) {
            FactoryRig rig(type);
            QVERIFY(rig.open());
            QVERIFY(rig.refresh());
            QCOMPARE(rig.frames(), QLatin1String(reads));
            QCOMPARE(rig.values(), QLatin1String(values));
            for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German)}) {
                QVERIFY(!rig.canApply());
                QLocale::setDefault(locale);
                rig.touch();
                QCOMPARE(rig.apply(), QString());
                QCOMPARE(rig.frames(), QLatin1String(writes));
                QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
            }
        }
    }

    void editedValuesReachTheSensorAndStayShown()
    {
        FactoryRig rig;
        QVERIFY(rig.open());
        int row = 0;
        for (const char* text :
             {"NEW 1", "0C", "250", "27.5", "0", "A71F", "-0.050", "7F", "2", "3D"})
            rig.edit(row++, text);
        rig.clickCell(0, 1);
        QTest::keyClicks(rig.editor(), QStringLiteral("OPEN")); // is committed by Apply
        QCOMPARE(rig.apply(), QString());
        QCOMPARE(rig.frames(),
                 QStringLiteral("FN0000OPEN LN0C0250 UN002750 SN000B00 ZN07E932 PN0000A71F "
                                "DN0A0519 NNFFFFF6 MN02467F JN000002 ON00003D CN"));
        QCOMPARE(rig.values(), QStringLiteral("OPEN|0C|250|27.5|0|A71F|-0.050|7F|2|3D"));
        for (const auto& [text, held] : {std::pair("4", "D=8A0519"), std::pair("8", "D=CA0519")}) {
            rig.edit(4, text); // of the bits that were read, each time anew
            QCOMPARE(rig.apply(), QString());
            QCOMPARE(rig.holds("D"), QLatin1String(held));
        }
    }

    void onlyValuesThatTheSensorHasAreEdited()
    {
        FactoryRig rig(0);
        QVERIFY(rig.open());
        for (const auto& [row, column] : {std::pair(2, 0), std::pair(2, 2), std::pair(7, 1),
                                          std::pair(8, 1), std::pair(9, 1)}) {
            rig.clickCell(row, column);
            QVERIFY(!rig.editor());
        }
        rig.clickCell(6, 1);
        QVERIFY(rig.editor() && !rig.canApply());
        rig.clickCell(2, 0);
        QVERIFY(!rig.editor() && rig.canApply());
    }

    void whatCannotBeWrittenIsRefused()
    {
        FactoryRig rig;
        QVERIFY(rig.open());
        rig.edit(8, "3");
        rig.edit(6, "");
        QCOMPARE(rig.refusal(), QStringLiteral("A value is missing. Please complete it first."));
        QCOMPARE(rig.list().currentRow(), 6);
        rig.edit(6, "0,05");
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(rig.refusal(), QStringLiteral("This value must be 0, 1 or 2."));
        QVERIFY(rig.list().item(8, 0)->isSelected());

        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "A");
        QVERIFY(rig.refresh());
        QCOMPARE(rig.values(), QStringLiteral("SN012345|0A|1250|2830.00|2|0000A71E||||"));
        QCOMPARE(rig.refusal(), kNotRead);
        rig.sensor().clearFaults();
        QVERIFY(rig.refresh());
        rig.touch();
        const SensorLink& link = rig.link();
        QVERIFY(rig.formats()
                    .keep({ComPortNames::stableName(link.device()), link.versionText(), "0A0519",
                           "4A0519"})
                    .isDone());
        QVERIFY(
            rig.refusal().startsWith(QStringLiteral("The sensor still carries the data format")));
        rig.link().forgetIdentification();
        QCOMPARE(rig.refusal(),
                 QStringLiteral("The sensor is not identified. Nothing was written."));
    }

    void bytesSentByHandCallForARead()
    {
        FactoryRig rig;
        QVERIFY(rig.open());
        rig.touch();
        const ModalAnswer<ManualCommDialog> answer([&rig](ManualCommDialog& dialog) {
            QTest::keyClicks(dialog.getControl<QLineEdit>(1051), QStringLiteral("56,41,0D"));
            QTest::mouseClick(dialog.getControl<QWidget>(1054), Qt::LeftButton);
            QVERIFY(rig.waitIdle());
            dialog.accept();
        });
        QVERIFY(rig.clickCommand(kManualCommCommand));
        QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.refusal(), kNotRead);
    }
};

QTEST_MAIN(TestFactoryPage)
#include "TestFactoryPage.moc"
