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
    void clickOnAValueOpensItAndTheNextClickCommits();
    void rowsBeyondTheTypeAreNotEdited();
    void readingFillsAnOpenCellThatIsUntouched();
    void changeOfLanguageKeepsValuesAndEntries();
    void everyCaptionSpeaksEveryLanguage();
};

void TestFactoryPage::rowsOfEachTypeAreReadInOrder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Frames>("reads");
    QTest::addColumn<QStringList>("values");
    const auto row = [](int type, const Frames& reads, const char* values) {
        QTest::addRow("type %d", type)
            << type << reads << QString::fromLatin1(values).split(QLatin1Char('|'));
    };
    row(0, {"FA", "DA", "LA", "UA", "PA", "AA", "NA"},
        "SN000417|0A|500|2830.00|0|0000A5F0|0.000|||");
    row(1, {"FA", "DA", "LA", "UA", "PA", "AA", "NA", "MA"},
        "SN010882|0B|800|2815.00|4|0000A6C4|-0.200|14||");
    row(2, {"FA", "DA", "LA", "UA", "PA", "AA", "NA", "MA", "JA", "OA"},
        "SN012345|0A|1250|2830.00|2|0000A71E|0.050|20|000001|00003C");
}

void TestFactoryPage::rowsOfEachTypeAreReadInOrder()
{
    QFETCH(int, type);
    QFETCH(Frames, reads);
    QFETCH(QStringList, values);
    FactoryRig rig(type);
    QVERIFY(rig.show());
    const Frames frames = rig.sensor().takeReceivedFrames();
    QVERIFY(frames.size() > reads.size()); // the first page has read before
    QCOMPARE(Frames(frames.end() - static_cast<std::ptrdiff_t>(reads.size()), frames.end()), reads);
    QCOMPARE(rig.values(), values);
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(!rig.applyButton().isEnabled());
}

void TestFactoryPage::clickOnAValueOpensItAndTheNextClickCommits()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.clickCell(2, 0);
    rig.clickCell(2, 2);
    QVERIFY(!rig.editor());

    rig.clickCell(2, 1);
    QVERIFY(rig.editor() && rig.editor()->hasFocus());
    QCOMPARE(rig.editor()->selectedText(), QStringLiteral("1250"));
    QVERIFY(!rig.applyButton().isEnabled());
    QTest::keyClicks(rig.editor(), QStringLiteral("900"));
    QTest::keyClick(rig.editor(), Qt::Key_Return);
    QTest::keyClick(rig.editor(), Qt::Key_Escape);
    QCOMPARE(rig.value(2), QStringLiteral("1250"));

    rig.clickCell(3, 1);
    QCOMPARE(rig.value(2), QStringLiteral("900"));
    QCOMPARE(rig.editor()->text(), QStringLiteral("2830.00"));
    QVERIFY(rig.applyButton().isEnabled());
}

void TestFactoryPage::rowsBeyondTheTypeAreNotEdited()
{
    FactoryRig rig(0);
    QVERIFY(rig.show());
    for (int row = 7; row < 10; ++row) {
        rig.clickCell(row, 1);
        QVERIFY(!rig.editor());
    }
    rig.clickCell(6, 1);
    QVERIFY(rig.editor());
}

void TestFactoryPage::readingFillsAnOpenCellThatIsUntouched()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.clickCell(2, 1);
    rig.sensor().setParameter('L', "0A0333");
    rig.clickRefresh();
    QTRY_COMPARE(rig.editor()->text(), QStringLiteral("333"));
    QVERIFY(rig.waitIdle());

    QTest::keyClicks(rig.editor(), QStringLiteral("44"));
    rig.sensor().setParameter('L', "0A0555");
    rig.clickRefresh();
    QTRY_COMPARE(rig.value(2), QStringLiteral("555"));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.editor()->text(), QStringLiteral("44"));
}

void TestFactoryPage::changeOfLanguageKeepsValuesAndEntries()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    rig.edit(2, "900");
    rig.clickCell(0, 1);
    QTest::keyClicks(rig.editor(), QStringLiteral("typed"));
    QCOMPARE(rig.languages().loadLanguage(2), 1);
    QTRY_COMPARE(rig.list().horizontalHeaderItem(1)->text(), QStringLiteral("Wert"));
    QCOMPARE(rig.list().item(4, 0)->text(), QStringLiteral("Multiplikator"));
    QCOMPARE(rig.applyButton().text(), QStringLiteral("Änderungen übernehmen"));
    QCOMPARE(rig.value(2), QStringLiteral("900"));
    QCOMPARE(rig.value(3), QStringLiteral("2830.00"));
    QCOMPARE(rig.editor()->text(), QStringLiteral("typed"));
    QVERIFY(rig.applyButton().isEnabled());
}

void TestFactoryPage::everyCaptionSpeaksEveryLanguage()
{
    FactoryRig rig;
    QVERIFY(rig.show());
    for (const int code : {1, 2, 4, 8, 16}) {
        QCOMPARE(rig.languages().loadLanguage(code), 1);
        QCoreApplication::processEvents(); // delivers the change of language
        QCOMPARE(formFaults(rig.page<FactoryParamsPage>()), QStringList());
        QTRY_VERIFY(rig.applyButton().width() >= rig.applyButton().sizeHint().width());
    }
}

QTEST_MAIN(TestFactoryPage)
#include "TestFactoryPage.moc"
