#include "pages/FactoryParamsPage.h"
#include "support/FormFaults.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

using Frames = std::vector<std::string>;

namespace {

/// The factory page in the real main window, driven as a user drives it.
class FactoryRig : public MainWindowRig
{
public:
    explicit FactoryRig(int type = 2) : MainWindowRig({.type = type}) {}

    /// Connects, shows the page and waits until it has read its values. @return false if not
    [[nodiscard]] bool show()
    {
        return startConnected() &&
               choosePage(pageList().row(
                   pageList()
                       .findItems(QStringLiteral("Factory Parameters"), Qt::MatchExactly)
                       .value(0)));
    }

    [[nodiscard]] QTableWidget& list()
    {
        return *page<FactoryParamsPage>().getControl<QTableWidget>(1036);
    }
    [[nodiscard]] QPushButton& applyButton()
    {
        return *page<FactoryParamsPage>().getControl<QPushButton>(1037);
    }
    /// The edit over the open cell; null if none is open.
    [[nodiscard]] QLineEdit* editor()
    {
        for (int row = 0; row < list().rowCount(); ++row)
            if (auto* edit = list().indexWidget(list().model()->index(row, 1)))
                return qobject_cast<QLineEdit*>(edit);
        return nullptr;
    }
    [[nodiscard]] QString value(int row) { return list().item(row, 1)->text(); }
    [[nodiscard]] QStringList values()
    {
        QStringList texts;
        for (int row = 0; row < list().rowCount(); ++row)
            texts << value(row);
        return texts;
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
    void clickApply() { QTest::mouseClick(&applyButton(), Qt::LeftButton); }
    /// Has the button enabled without changing a value.
    void touch()
    {
        clickCell(0, 1);
        clickCell(0, 0);
    }

    /// Clicks Apply, which asks. @return the text of the message, null if there was none
    [[nodiscard]] QString refusalOfApply()
    {
        QString text;
        const ModalAnswer<QMessageBox> answer([&text](QMessageBox& box) {
            text = box.text();
            box.accept();
        });
        clickApply();
        return text;
    }
};

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

class TestFactoryPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void rowsOfEachTypeAreReadInOrder_data();
    void rowsOfEachTypeAreReadInOrder();
    void clickOnAValueOpensItAndTheNextClickCommits();
    void rowsBeyondTheTypeAreNotEdited();
    void readingFillsAnOpenCellThatIsUntouched();
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

void TestFactoryPage::uneditedPageWritesWhatItHasRead_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QLocale>("locale");
    for (int type = 0; type <= 2; ++type) {
        QTest::addRow("type %d with points", type) << type << QLocale::c();
        QTest::addRow("type %d with commas", type) << type << QLocale(QLocale::German);
    }
}

void TestFactoryPage::uneditedPageWritesWhatItHasRead()
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

void TestFactoryPage::editedValuesReachTheSensorAndStayShown()
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

void TestFactoryPage::secondApplyBuildsTheFormatFromTheBitsRead()
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

void TestFactoryPage::openCellIsCommittedByApply()
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

void TestFactoryPage::unfitValueIsRefusedAndItsRowSelected()
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

void TestFactoryPage::withoutAnIdentifiedSensorNothingIsWritten()
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

void TestFactoryPage::afterAFailedReadNothingIsWritten()
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

void TestFactoryPage::zeroResolutionIsRefused()
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

void TestFactoryPage::lostLinkEndsApplyAndNamesWhatWasWritten_data()
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

void TestFactoryPage::lostLinkEndsApplyAndNamesWhatWasWritten()
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
    bool busy = true;
    const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
        text = box.text();
        status = rig.statusText();
        busy = rig.window().isBusy();
        box.accept();
    });
    rig.clickApply();
    QTRY_VERIFY(answer.wasShown());
    // The window tells how it tries to reconnect as soon as it has to wait for the port.
    QVERIFY(status == failure || status.startsWith(QLatin1String("Lost communication")));
    QVERIFY(!busy);
    QCOMPARE(text.section(QLatin1Char('\n'), 0, 1),
             failure + QStringLiteral("\nOperation abandoned: the connection to the sensor was "
                                      "lost."));
    QVERIFY(text.section(QLatin1Char('\n'), 2)
                .startsWith(written.isEmpty()
                                ? QStringLiteral("No parameter had been written before.")
                                : QStringLiteral("Parameters written before: %1. ").arg(written)));
    // Only then the sensor is connected again, which shows the first page.
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.lightText(), QStringLiteral("Green: connected"));
}

void TestFactoryPage::closingWaitsForTheEndOfApply()
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

void TestFactoryPage::closingDuringApplyEndsAlsoWhenTheLinkIsLost()
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
    }
}

QTEST_MAIN(TestFactoryPage)
#include "TestFactoryPage.moc"
