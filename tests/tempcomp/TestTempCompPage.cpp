#include "tempcomp/TempCompPage.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"
#include "tempcomp/TableFiles.h"
#include "tempcomp/TempCompDataPage.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTableWidget>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kLookupList = 1058, kWriteButton = 1060, kReadButton = 1061, kArrayList = 1063;

} // namespace

class TestTempCompPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        start("\"EnableTempComp\"=dword:00000001\r\n");
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()) && m_rig->choosePage(5));
    }
    void cleanup() { m_rig.reset(); }

    void pageIsThereOnlyWhereItIsEnabled()
    {
        for (const char* setting : {"", "\"EnableTempComp\"=dword:00000002\r\n"}) {
            start(setting);
            QCOMPARE(m_rig->pageList().count(), 5);
        }
    }

    void enteredCellsStayWhateverIsShown()
    {
        for (const auto& [id, columns] : {std::pair(kLookupList, 3), {kArrayList, 11}}) {
            QCOMPARE(list(id).columnCount(), columns);
            QCOMPARE(column(0, id), u"0 1 2 3 4 5 6 7 8 9"_s);
            QCOMPARE(column(columns - 1, id).trimmed(), QString());
        }
        for (const int id : {1056, 1059, 1067, 1068, 1069}) {
            const auto& control = *page().getControl<QWidget>(id);
            QVERIFY(!control.isEnabled());
            QCOMPARE(control.toolTip(), u"Has no function in this version."_s);
        }
        type(9, 10, "abc", kArrayList);
        type(0, 1, "25.5");
        click(3, 0); // a number, which is no entry
        QVERIFY(!qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        (void)m_rig->frames();
        m_rig->clickRefresh();
        QVERIFY(m_rig->choosePage(0));
        QCOMPARE(m_rig->frames().split(u' ').size(), 14); // what that page reads
        QVERIFY(m_rig->choosePage(5));
        QCOMPARE(m_rig->languages().loadLanguage(2), 1);
        QCoreApplication::processEvents();
        QCOMPARE(list(kArrayList).horizontalHeaderItem(10)->text(), languageString(260).arg(9));
        QCOMPARE(column(1).trimmed(), u"25.5"_s);
        QVERIFY(column(10, kArrayList).endsWith(u"abc"_s));
    }

    /// The cell that is still open is among them.
    void cellsAreWrittenAndReadBack()
    {
        const std::tuple<int, const char*, const char*> cells[] = {{0, "25.3", "7"},
                                                                   {1, "abc", "1.5"},
                                                                   {2, " 1.50 ", "+3"},
                                                                   {3, "20000", "99999999999"},
                                                                   {9, "-10", "1234"}};
        for (const auto& [row, point, value] : cells) {
            type(row, 1, point);
            type(row, 2, value);
        }
        QCOMPARE(choose(kWriteButton, u"table"_s),
                 languageString(strings::kOtherThanTyped) +
                     u"\n\nRow 0, Point: 25.0\nRow 1, Point: 0.0\nRow 1, Value: 1\n"
                     "Row 3, Point: -12768.0\nRow 3, Value: 2147483647"_s);
        const QByteArray content = kMarkerLine +
                                   "0032,00000007\r\n0000,00000001\r\n0003,00000003\r\n"
                                   "FFFF9C40,7FFFFFFF\r\n" +
                                   kZeroLine.repeated(5) + "FFFFFFEC,000004D2\r\n";
        QCOMPARE(m_folder->content(kTable), content);
        QCOMPARE(column(1), u"25.3 abc  1.50  20000      -10"_s);

        QCOMPARE(choose(kReadButton), QString());
        QCOMPARE(column(1), u"25.0 0.0 1.5 -12768.0 0.0 0.0 0.0 0.0 0.0 -10.0"_s);
        QCOMPARE(column(2), u"7 1 3 2147483647 0 0 0 0 0 1234"_s);
        QCOMPARE(choose(kWriteButton, u"copy.csv"_s), QString());
        QCOMPARE(m_folder->content(u"copy.csv"_s), content);
    }

    void fileNeedNotHaveTheRowsOfTheList()
    {
        QVERIFY(m_folder->put(kTable, kMarkerLine + QByteArray("4,A\r\n").repeated(12)));
        QCOMPARE(choose(kReadButton), u"The file holds more rows than the table. Rows in the file: "
                                      "12; read: 10; ignored: 2."_s);
        QVERIFY(m_folder->put(kTable, kMarkerLine + "0032,000004D2\nno comma\n"));
        QCOMPARE(choose(kReadButton), QString());
        QCOMPARE(column(1), u"25.0 0.0 2.0 2.0 2.0 2.0 2.0 2.0 2.0 2.0"_s);
    }

    void whatFailsOrIsGivenUpChangesNothing()
    {
        type(0, 1, "1");
        const QString memory = m_folder->path(u"memory.csv"_s); // opens, but has no byte 0
        QVERIFY(QFile::link(u"/proc/self/mem"_s, memory) && m_folder->put(kTable, "other"));
        QCOMPARE(choose(kReadButton), languageString(strings::kNotATable));
        QCOMPARE(choose(kReadButton, u"memory.csv"_s),
                 u"The file %1 could not be read: Input/output error."_s.arg(memory));
        {
            const FileSizeLimit limit(100);
            QVERIFY(choose(kWriteButton, u"full"_s).contains(u"could not be written: File too"_s));
        }
        QCOMPARE(choose(kReadButton, kTable, [](auto& dialog) { dialog.reject(); }), QString());
        const QSignalSpy closed(&m_rig->window(), &PelorinMainWindow::closed);
        QCOMPARE(choose(kWriteButton, u"new"_s, [this](auto&) { m_rig->window().close(); }),
                 QString());
        QCOMPARE(m_folder->names(), u"memory.csv table.csv"_s);
        QCOMPARE(column(1).trimmed(), u"1"_s);
        QTRY_COMPARE(closed.count(), 1);
    }

private:
    inline static const QString kTable = u"table.csv"_s;

    void start(const QByteArray& setting)
    {
        m_folder.emplace();
        m_rig.reset(); // before another one
        m_rig = std::make_unique<MainWindowRig>(
            SimulatedSensor::Options{},
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n" + setting);
        QVERIFY(m_rig->startConnected());
    }
    TempCompDataPage& page() { return m_rig->page<TempCompDataPage>(); }
    QTableWidget& list(int id) { return *page().getControl<QTableWidget>(id); }
    /// The texts of a column, with blanks in between.
    QString column(int column, int id = kLookupList)
    {
        QStringList texts;
        for (int row = 0; row < list(id).rowCount(); ++row)
            texts << list(id).item(row, column)->text();
        return texts.join(u' ');
    }
    void click(int row, int column, int id = kLookupList)
    {
        QTableWidget& table = list(id);
        const auto* cell = table.item(row, column);
        table.scrollToItem(cell);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(cell).center());
    }
    /// Clicks a cell and types; the editor stays open.
    void type(int row, int column, const char* text, int id = kLookupList)
    {
        click(row, column, id);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
    /// Clicks a button and enters a file in its dialog. @return the texts of the boxes that follow
    QString choose(int button, const QString& file = kTable,
                   const std::function<void(QFileDialog&)>& before = {})
    {
        const FileDialogUser user(m_folder->path(file), before);
        QTest::mouseClick(page().getControl<QPushButton>(button), Qt::LeftButton);
        return user.wasAsked() ? user.boxes().join(u'|') : u"not asked"_s;
    }

    std::optional<TestFolder> m_folder;
    std::unique_ptr<MainWindowRig> m_rig;
};

QTEST_MAIN(TestTempCompPage)
#include "TestTempCompPage.moc"
