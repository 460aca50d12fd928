#include "tempcomp/TempCompDataPage.h"

#include "app/Commands.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/TestFolder.h"
#include "tempcomp/TableFiles.h"

#include <QClipboard>
#include <QListWidget>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTableWidget>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kLookupList = 1058, kWriteButton = 1060, kReadButton = 1061, kArrayList = 1063;

const QByteArray kEnabled = kProductKey + "\"EnableTempComp\"=dword:0000000";
const QString kTable = u"table.csv"_s;

/// The page in the main window, and a folder for files.
struct Bench : MainWindowRig
{
    explicit Bench(const QByteArray& setting = "1") : MainWindowRig({}, kEnabled + setting + "\r\n")
    {
    }

    bool open()
    {
        return startConnected() && QTest::qWaitForWindowActive(&window()) && choosePage(5);
    }
    template <class Control>
    Control& control(int id)
    {
        return *page<TempCompDataPage>().getControl<Control>(id);
    }
    /// The texts of a column, with blanks in between.
    QString column(int column, int id = kLookupList)
    {
        QStringList texts;
        for (int row = 0; row < control<QTableWidget>(id).rowCount(); ++row)
            texts << control<QTableWidget>(id).item(row, column)->text();
        return texts.join(u' ');
    }
    /// Clicks a cell and types; the editor stays open.
    void type(int row, int column, const QString& text, int id = kLookupList)
    {
        auto& table = control<QTableWidget>(id);
        const QRect cell = table.visualItemRect(table.item(row, column));
        window().activateWindow(); // which a dialog's end does not do off screen
        (void)QTest::qWaitForWindowActive(&window());
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    /// Clicks a button and enters a file in its dialog. @return the texts of the boxes that follow
    QString choose(int button, const QString& file = kTable,
                   const std::function<void(QFileDialog&)>& before = {})
    {
        const FileDialogUser user(folder.path(file), before);
        QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton);
        return user.wasAsked() ? user.boxes().join(u'|') : u"not asked"_s;
    }

    const TestFolder folder;
};

} // namespace

class TestTempCompPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enteredCellsStayAndAskNothingOfTheSensor()
    {
        Bench bench;
        QVERIFY(bench.open());
        for (const auto& [id, last] : {std::pair(kLookupList, 2), {kArrayList, 10}}) {
            QCOMPARE(bench.control<QTableWidget>(id).columnCount(), last + 1);
            QCOMPARE(bench.column(0, id), u"0 1 2 3 4 5 6 7 8 9"_s);
            QCOMPARE(bench.column(last, id).trimmed(), QString());
        }
        for (const int id : {1056, 1059, 1067, 1068, 1069}) {
            QVERIFY(!bench.control<QWidget>(id).isEnabled());
            QCOMPARE(bench.control<QWidget>(id).toolTip(),
                     u"This has no function in this version."_s);
        }
        bench.type(0, 10, u"abc"_s, kArrayList);
        bench.type(0, 1, u"25.5"_s);
        bench.type(3, 0, u"7"_s); // is no entry
        QVERIFY(!qobject_cast<QLineEdit*>(QApplication::focusWidget()));
        (void)bench.frames();
        bench.clickRefresh();
        QVERIFY(bench.choosePage(0));
        QCOMPARE(bench.frames().split(u' ').size(), 14); // what that page reads
        QVERIFY(bench.choosePage(5));
        QCOMPARE(bench.column(1).trimmed(), u"25.5"_s);
        QCOMPARE(bench.column(10, kArrayList).trimmed(), u"abc"_s);
    }

    void keysMoveWithinTheTableAndWhatTheFileCannotHoldIsMarked()
    {
        Bench bench;
        QVERIFY(bench.open());
        auto& list = bench.control<QTableWidget>(kLookupList);
        const auto press = [](const QString& typed, Qt::Key key, Qt::KeyboardModifiers with = {}) {
            QTest::keyClicks(QApplication::focusWidget(), typed);
            const QString mark = QApplication::focusWidget()->accessibleDescription();
            QTest::keyClick(QApplication::focusWidget(), key, with);
            return mark;
        };
        const auto mark = u"The file cannot hold this; it will hold 25.0."_s;
        bench.type(0, 1, {});
        QCOMPARE(press(u"25.3"_s, Qt::Key_Tab), mark);
        QCOMPARE(press(u"7"_s, Qt::Key_Tab), QString());
        QCOMPARE(press(u"1"_s, Qt::Key_Return), QString());
        QCOMPARE(press(u"2"_s, Qt::Key_Backtab), QString());
        QCOMPARE(press(u"8"_s, Qt::Key_Enter, Qt::ShiftModifier), QString());
        QCOMPARE(press(u"9"_s, Qt::Key_F2), QString());
        QCOMPARE(bench.column(1).trimmed(), u"25.3 1 2"_s);
        QCOMPARE(bench.column(2).trimmed(), u"9 8"_s);
        QCOMPARE(list.item(0, 1)->toolTip(), mark);
        bench.type(9, 2, u"3"_s);
        (void)press({}, Qt::Key_Return); // there is no row below
        QCOMPARE(QApplication::focusWidget(), &list);
        QCOMPARE(list.item(9, 2)->text(), u"3"_s);
    }

    void blocksOfASpreadsheetArePastedAndCopied()
    {
        Bench bench;
        QVERIFY(bench.open());
        auto& list = bench.control<QTableWidget>(kLookupList);
        QGuiApplication::clipboard()->setText(u"1,5\t2\r\n\"3\"\t4\r\n"_s);
        bench.type(8, 1, u"typed"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(bench.column(1).trimmed(), u"1,5 3"_s);
        list.setFocus();
        list.setRangeSelected({8, 1, 9, 2}, true);
        QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"1,5\t2\n3\t4"_s);
        list.clearSelection();
        list.setCurrentCell(9, 2);
        QString told;
        const ModalAnswer<QMessageBox> answer([&told](QMessageBox& box) {
            told = box.text();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QTest::keyClick(&list, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(told.section(u'.', 0, 0),
                 u"Not everything that was pasted has a cell in the table"_s);
        QCOMPARE(list.item(9, 2)->text(), u"1,5"_s);
    }

    /// The cell that is still open is among them.
    void cellsAreWrittenAndReadBack()
    {
        Bench bench;
        QVERIFY(bench.open());
        for (int cell = 0; const char* typed :
                           {"25.3", "7 mm", "abc", "1.5", " 1.50 ", "+3", "20000", "99999999999"}) {
            bench.type(cell / 2, 1 + cell % 2, QLatin1String(typed));
            ++cell;
        }
        QCOMPARE(
            bench.choose(kWriteButton, u"table"_s),
            languageString(strings::kOtherThanTyped) +
                u"\n\nRow 0, Point: 25.0\nRow 0, Value: 7\nRow 1, Point: 0.0\nRow 1, Value: 1\n"
                "Row 3, Point: -12768.0\nRow 3, Value: 2147483647"_s);
        const QByteArray content = kMarkerLine +
                                   "0032,00000007\r\n0000,00000001\r\n0003,00000003\r\n"
                                   "FFFF9C40,7FFFFFFF\r\n" +
                                   kZeroLine.repeated(6);
        QCOMPARE(bench.folder.content(kTable), content);
        QCOMPARE(bench.choose(kReadButton), QString());
        QCOMPARE(bench.column(1), u"25.0 0.0 1.5 -12768.0 0.0 0.0 0.0 0.0 0.0 0.0"_s);
        QCOMPARE(bench.column(2), u"7 1 3 2147483647 0 0 0 0 0 0"_s);
        QCOMPARE(bench.choose(kWriteButton, u"copy.csv"_s), QString());
        QCOMPARE(bench.folder.content(u"copy.csv"_s), content);
    }

    void fileNeedNotFitTheList()
    {
        Bench bench;
        QVERIFY(bench.open());
        const TestFolder& folder = bench.folder;
        QVERIFY(folder.put(kTable, kMarkerLine + QByteArray("4,A\r\n").repeated(12)));
        QCOMPARE(bench.choose(kReadButton),
                 u"The file holds more rows than the table. Rows in the file: 12; read: 10; "
                 "ignored: 2."_s);
        QVERIFY(folder.put(kTable, kMarkerLine + "0032,000004D2\nno comma\n"));
        QCOMPARE(bench.choose(kReadButton), QString());
        QVERIFY(folder.put(kTable, "other"));
        QCOMPARE(bench.choose(kReadButton), languageString(strings::kNotATable));
        const QString memory = folder.path(u"memory.csv"_s); // opens, but has no byte 0
        QVERIFY(QFile::link(u"/proc/self/mem"_s, memory));
        QCOMPARE(bench.choose(kReadButton, u"memory.csv"_s),
                 u"The file %1 could not be read: Input/output error."_s.arg(memory));
        const auto giveUp = [](QFileDialog& dialog) { dialog.reject(); };
        QCOMPARE(bench.choose(kReadButton, kTable, giveUp), QString());
        QCOMPARE(bench.choose(kWriteButton, u"new"_s, giveUp), QString());
        bench.control<QTableWidget>(kLookupList)
            .item(0, 1)
            ->setText(u"1.25"_s); // would be written as 1.0 and told, but for the failure
        const FileSizeLimit limit(100);
        QCOMPARE(
            bench.choose(kWriteButton, u"new"_s),
            u"The file %1 could not be written: File too large. A file of this name that was there "
            "before is unchanged."_s.arg(folder.path(u"new.csv"_s)));
        QCOMPARE(folder.names(), u"memory.csv table.csv"_s);
        QCOMPARE(bench.column(1), u"1.25 0.0 2.0 2.0 2.0 2.0 2.0 2.0 2.0 2.0"_s);
    }

    void valuesThatAreInNoFileAreLostOnlyIfTheUserAgrees()
    {
        Bench bench;
        QVERIFY(bench.open());
        QVERIFY(bench.folder.put(kTable, kMarkerLine + "4,A\r\n4,A\r\n"));
        const auto closing = [&bench](bool exit) { // what is asked; it is answered by Stay
            QString asked;
            const ModalAnswer<QMessageBox> stay([&asked](QMessageBox& box) {
                asked = box.text();
                QTest::keyClick(&box, Qt::Key_Return);
            });
            if (exit) {
                (void)bench.clickCommand(kExitCommand);
            } else {
                bench.closeByHand();
            }
            QCoreApplication::processEvents();
            return asked;
        };
        const QString question = languageString(strings::kAskToDiscardTables);
        bench.type(0, 10, u"abc"_s, kArrayList);
        QCOMPARE(closing(true), question);
        bench.type(1, 2, u"7"_s);
        bench.control<QTableWidget>(kArrayList).item(0, 10)->setText({});
        QCOMPARE(closing(false), question);
        QCOMPARE(bench.choose(kReadButton), languageString(strings::kAskToReadOver));
        QCOMPARE(bench.choose(kWriteButton, u"own.csv"_s), QString());
        QCOMPARE(bench.column(2).trimmed(), u"7"_s);
        bench.type(9, 2, u"1"_s); // which that file does not reach
        bench.type(1, 2, {});
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete); // stays open
        QCOMPARE(bench.choose(kReadButton), QString());
        QCOMPARE(bench.column(2), u"10 10        1"_s);
        QCOMPARE(closing(true), question);
        QCOMPARE(bench.choose(kWriteButton, u"all.csv"_s), QString());
        QCOMPARE(bench.column(2), u"10         1"_s);
        const QSignalSpy closed(&bench.window(), &PelorinMainWindow::closed);
        QCOMPARE(closing(false), QString());
        QVERIFY(waitFor([&closed] { return !closed.isEmpty(); }));
    }

    void pageIsThereOnlyWhereItIsEnabled()
    {
        Bench bench("2");
        bench.start();
        QCOMPARE(bench.pageList().count(), 5);
    }
};

QTEST_MAIN(TestTempCompPage)
#include "TestTempCompPage.moc"
