#include "platform/core/LanguageStrings.h"
#include "support/FormFaults.h"
#include "tempcomp/TempCompRig.h"

#include <QHeaderView>
#include <QTabWidget>

#include <memory>
#include <string>
#include <vector>

using namespace pelorin;
using namespace pelorin::test;

/// What the page shows and how its cells are edited.
class TestTempCompPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void pageIsTheLastOneWhereItIsEnabled_data();
    void pageIsTheLastOneWhereItIsEnabled();
    void showingAndRefreshingAsksNothingOfTheSensor();
    void emptyListsAreNumberedInFullWidth();
    void controlsWithoutAFunctionAreDisabledAndSaySo();
    void entriesSurviveEveryLanguage();
    void columnZeroAndOtherListCommitTheOpenCell();

private:
    std::unique_ptr<TempCompRig> m_rig;
};

void TestTempCompPage::init()
{
    m_rig = std::make_unique<TempCompRig>();
    QVERIFY(m_rig->startOnPage());
}

void TestTempCompPage::pageIsTheLastOneWhereItIsEnabled_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<bool>("isThere");
    QTest::newRow("not set") << QByteArray() << false;
    QTest::newRow("0") << QByteArray("\"EnableTempComp\"=dword:00000000\r\n") << false;
    QTest::newRow("1") << QByteArray("\"EnableTempComp\"=dword:00000001\r\n") << true;
    QTest::newRow("2") << QByteArray("\"EnableTempComp\"=dword:00000002\r\n") << false;
}

void TestTempCompPage::pageIsTheLastOneWhereItIsEnabled()
{
    QFETCH(QByteArray, setting);
    QFETCH(bool, isThere);
    m_rig.reset();
    m_rig = std::make_unique<TempCompRig>(setting);
    QVERIFY(m_rig->startConnected());

    QListWidget& pages = m_rig->pageList();
    const auto items =
        pages.findItems(QStringLiteral("Temperature Compensation"), Qt::MatchExactly);
    QCOMPARE(items.size(), isThere ? 1 : 0);
    QCOMPARE(m_rig->window().findChildren<TempCompPage*>().size(), isThere ? 1 : 0);
    if (isThere) {
        QCOMPARE(pages.row(items.first()), pages.count() - 1);
        QVERIFY(!items.first()->icon().isNull());
    }
}

void TestTempCompPage::showingAndRefreshingAsksNothingOfTheSensor()
{
    constexpr std::size_t kReadsOfFirstPage = 14;
    m_rig->type(kLookupList, 0, 1, QStringLiteral("25.5"));
    (void)m_rig->sensor().takeReceivedFrames();
    m_rig->clickRefresh();
    QCoreApplication::processEvents();
    std::vector<std::string> frames;
    QVERIFY(m_rig->choosePage(0));
    QVERIFY(QTest::qWaitFor([&] {
        for (const auto& frame : m_rig->sensor().takeReceivedFrames())
            frames.push_back(frame);
        return frames.size() >= kReadsOfFirstPage && !m_rig->window().isBusy();
    }));
    QCOMPARE(frames.front(), std::string("DA"));
    QCOMPARE(frames.size(), kReadsOfFirstPage);

    QVERIFY(m_rig->chooseTempComp());
    QCOMPARE(m_rig->openEdit(kLookupList)->text(), QStringLiteral("25.5"));
}

void TestTempCompPage::emptyListsAreNumberedInFullWidth()
{
    auto& tabs = *m_rig->page<TempCompPage>().getControl<QTabWidget>(1055);
    QCOMPARE(tabs.count(), 1);
    QCOMPARE(tabs.currentWidget(), &m_rig->dataPage());
    for (const QSize& size : {QSize(1280, 720), QSize(1920, 1040)}) {
        m_rig->window().resize(size);
        QTRY_COMPARE(m_rig->window().size(), size);
        for (const auto& [id, columns] : {std::pair(kLookupList, 3), std::pair(kArrayList, 11)}) {
            QTableWidget& table = m_rig->list(id);
            QCOMPARE(table.rowCount(), 10);
            QCOMPARE(table.columnCount(), columns);
            for (int row = 0; row < 10; ++row) {
                QCOMPARE(table.item(row, 0)->text(), QString::number(row));
                for (int column = 1; column < columns; ++column)
                    QCOMPARE(table.item(row, column)->text(), QString());
            }
            QTRY_COMPARE(table.columnWidth(0), table.viewport()->width() / columns);
            QCOMPARE(table.columnWidth(columns - 1), table.columnWidth(0));
            QVERIFY(table.viewport()->width() > m_rig->dataPage().width() * 9 / 10);
            QVERIFY(table.viewport()->height() > 5 * table.rowHeight(0));
        }
    }
    QCOMPARE(m_rig->list(kArrayList).horizontalHeaderItem(1)->text(), QStringLiteral("Value 0"));
    QCOMPARE(m_rig->list(kArrayList).horizontalHeaderItem(10)->text(), QStringLiteral("Value 9"));
}

void TestTempCompPage::controlsWithoutAFunctionAreDisabledAndSaySo()
{
    for (const int id : {1056, 1059, 1067, 1068, 1069}) {
        auto* control = m_rig->dataPage().getControl<QWidget>(id);
        QVERIFY(control->isVisible());
        QVERIFY(!control->isEnabled());
        QCOMPARE(control->toolTip(), QStringLiteral("Has no function in this version."));
    }
    for (const int id : {kLookupList, kWriteButton, kReadButton, kArrayList}) {
        QVERIFY(m_rig->dataPage().getControl<QWidget>(id)->isEnabled());
        QCOMPARE(m_rig->dataPage().getControl<QWidget>(id)->toolTip(), QString());
    }
}

void TestTempCompPage::entriesSurviveEveryLanguage()
{
    m_rig->type(kLookupList, 2, 1, QStringLiteral("25.5"));
    m_rig->type(kArrayList, 9, 10, QStringLiteral("abc"));
    for (const int code : {2, 4, 8, 16, 1}) {
        QCOMPARE(m_rig->languages().loadLanguage(code), 1);
        QCoreApplication::processEvents();
        QCOMPARE(formFaults(m_rig->dataPage()), QStringList());
        QCOMPARE(formFaults(m_rig->page<TempCompPage>()), QStringList());
        QCOMPARE(m_rig->page<TempCompPage>().getControl<QTabWidget>(1055)->tabText(0),
                 languageString(252));
        QCOMPARE(m_rig->list(kLookupList).horizontalHeaderItem(1)->text(), languageString(255));
        QCOMPARE(m_rig->dataPage().getControl<QWidget>(1056)->toolTip(), languageString(1503));
        QVERIFY(m_rig->window().minimumSizeHint().width() <= 1280);
        QVERIFY(m_rig->window().minimumSizeHint().height() <= 720);
        QVERIFY(m_rig->dataPage().minimumSizeHint().width() <= m_rig->dataPage().width());
        QVERIFY(m_rig->dataPage().minimumSizeHint().height() <= m_rig->dataPage().height());
    }
    QCOMPARE(m_rig->texts(2)[0], QStringLiteral("25.5"));
    QCOMPARE(m_rig->openEdit(kArrayList)->text(), QStringLiteral("abc"));
}

void TestTempCompPage::columnZeroAndOtherListCommitTheOpenCell()
{
    m_rig->type(kLookupList, 0, 1, QStringLiteral("1 a"));
    m_rig->click(kLookupList, 3, 0);
    QVERIFY(!m_rig->openEdit(kLookupList));
    QCOMPARE(m_rig->texts(0)[0], QStringLiteral("1 a"));
    QCOMPARE(m_rig->list(kLookupList).item(3, 0)->text(), QStringLiteral("3"));

    m_rig->type(kLookupList, 0, 2, QStringLiteral("2"));
    m_rig->type(kArrayList, 4, 10, QStringLiteral("3"));
    QVERIFY(!m_rig->openEdit(kLookupList));
    QCOMPARE(m_rig->texts(0)[1], QStringLiteral("2"));

    m_rig->click(kLookupList, 5, 1);
    QVERIFY(!m_rig->openEdit(kArrayList));
    QVERIFY(m_rig->openEdit(kLookupList));
    QCOMPARE(m_rig->list(kArrayList).item(4, 10)->text(), QStringLiteral("3"));
}

QTEST_MAIN(TestTempCompPage)
#include "TestTempCompPage.moc"
