#include "pages/FactoryRig.h"
#include "support/FormFaults.h"

using namespace pelorin;
using namespace pelorin::test;

class TestFactoryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsOfEachTypeAreReadInOrder_data();
    void rowsOfEachTypeAreReadInOrder();
    void onlyValuesThatTheSensorHasAreEdited();
    void readingFillsAnOpenCellThatIsUntouched();
    void everyCaptionSpeaksEveryLanguageAndEntriesStay();
};

void TestFactoryPage::rowsOfEachTypeAreReadInOrder_data()
{
    QTest::addColumn<QString>("reads");
    QTest::addColumn<QString>("values");
    QTest::newRow("0") << "FA DA LA UA PA AA NA"
                       << "SN000417|0A|500|2830.00|0|0000A5F0|0.000|||";
    QTest::newRow("1") << "FA DA LA UA PA AA NA MA"
                       << "SN010882|0B|800|2815.00|4|0000A6C4|-0.200|14||";
    QTest::newRow("2") << "FA DA LA UA PA AA NA MA JA OA"
                       << "SN012345|0A|1250|2830.00|2|0000A71E|0.050|20|000001|00003C";
}

void TestFactoryPage::rowsOfEachTypeAreReadInOrder()
{
    QFETCH(QString, reads);
    QFETCH(QString, values);
    FactoryRig rig(QByteArray(QTest::currentDataTag()).toInt());
    QVERIFY(rig.show());
    QVERIFY(rig.refresh());
    QCOMPARE(rig.frames(), reads);
    QCOMPARE(rig.values(), values);
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(!rig.applyButton().isEnabled());
}

void TestFactoryPage::onlyValuesThatTheSensorHasAreEdited()
{
    FactoryRig rig(0);
    QVERIFY(rig.show());
    for (const auto& [row, column] :
         {std::pair(2, 0), std::pair(2, 2), std::pair(7, 1), std::pair(8, 1), std::pair(9, 1)}) {
        rig.clickCell(row, column);
        QVERIFY(!rig.editor());
    }
    rig.clickCell(6, 1);
    QCOMPARE(rig.editor()->selectedText(), QStringLiteral("0.000"));
    QVERIFY(!rig.applyButton().isEnabled());
    rig.clickCell(2, 0);
    QVERIFY(!rig.editor());
    QVERIFY(rig.applyButton().isEnabled());
}

void TestFactoryPage::readingFillsAnOpenCellThatIsUntouched()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.clickCell(2, 1);
    rig.sensor().setParameter('L', "0A0333");
    QVERIFY(rig.refresh());
    QCOMPARE(rig.editor()->text(), QStringLiteral("333"));

    QTest::keyClicks(rig.editor(), QStringLiteral("44"));
    rig.sensor().setParameter('L', "0A0555");
    QVERIFY(rig.refresh());
    QCOMPARE(rig.value(2), QStringLiteral("555"));
    QCOMPARE(rig.editor()->text(), QStringLiteral("44"));
}

void TestFactoryPage::everyCaptionSpeaksEveryLanguageAndEntriesStay()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.edit(2, "900");
    rig.clickCell(0, 1);
    QTest::keyClicks(rig.editor(), QStringLiteral("typed"));
    for (const int code : {1, 4, 8, 16, 2}) {
        QCOMPARE(rig.languages().loadLanguage(code), 1);
        QCoreApplication::processEvents(); // delivers the change of language
        QCOMPARE(formFaults(rig.page<FactoryParamsPage>()), QStringList());
        QTRY_VERIFY(rig.applyButton().width() >= rig.applyButton().sizeHint().width());
    }
    QCOMPARE(rig.list().horizontalHeaderItem(1)->text(), QStringLiteral("Wert"));
    QCOMPARE(rig.list().item(4, 0)->text(), QStringLiteral("Multiplikator"));
    QCOMPARE(rig.value(2), QStringLiteral("900"));
    QCOMPARE(rig.editor()->text(), QStringLiteral("typed"));
    QVERIFY(rig.applyButton().isEnabled());
}

QTEST_MAIN(TestFactoryPage)
#include "TestFactoryPage.moc"
