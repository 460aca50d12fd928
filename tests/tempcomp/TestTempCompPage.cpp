#include "tempcomp/TempCompPage.h"

#include "platform/core/LanguageStrings.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "tempcomp/TableFiles.h"
#include "tempcomp/TempCompDataPage.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kLookupList = 1058;
constexpr int kWriteButton = 1060;
constexpr int kReadButton = 1061;
constexpr int kArrayList = 1063;

const QByteArray kKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// The main window with the compensation page shown, and a folder for files.
struct Bench : MainWindowRig
{
    explicit Bench(const QByteArray& setting = "\"EnableTempComp\"=dword:00000001\r\n")
        : MainWindowRig({.type = 2}, kKey + setting)
    {
    }

    [[nodiscard]] bool startOnPage()
    {
        return startConnected() && QTest::qWaitForWindowActive(&window()) && chooseTempComp();
    }
    [[nodiscard]] bool chooseTempComp() { return choosePage(pageList().count() - 1); }

    [[nodiscard]] TempCompDataPage& dataPage() { return page<TempCompDataPage>(); }
    [[nodiscard]] QTableWidget& list(int id) { return *dataPage().getControl<QTableWidget>(id); }
    [[nodiscard]] QString text(int row, int column, int id = kLookupList)
    {
        return list(id).item(row, column)->text();
    }

    /// The open editor of a list; null if none is open.
    [[nodiscard]] QLineEdit* editor(int id = kLookupList)
    {
        const auto edits = list(id).viewport()->findChildren<QLineEdit*>();
        const auto open = std::find_if(edits.begin(), edits.end(),
                                       [](const QLineEdit* edit) { return edit->isVisible(); });
        return open == edits.end() ? nullptr : *open;
    }

    void click(int row, int column, int id = kLookupList)
    {
        QTableWidget& table = list(id);
        table.scrollToItem(table.item(row, column));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(table.item(row, column)).center());
    }
    /// Clicks a cell and types; the editor stays open.
    void type(int row, int column, const char* text, int id = kLookupList)
    {
        click(row, column, id);
        QTest::keyClicks(editor(id), latin(text));
    }

    [[nodiscard]] QString path(const char* name) const { return folder.filePath(latin(name)); }

    void clickButton(int id)
    {
        QTest::mouseClick(dataPage().getControl<QPushButton>(id), Qt::LeftButton);
    }
    /// Clicks a button, enters a path in its file dialog and answers the message box that may
    /// follow. @return the text of that box, empty without one
    QString chooseFile(int button, const QString& path,
                       QMessageBox::StandardButton answer = QMessageBox::Ok)
    {
        QString text;
        const ModalAnswer<QMessageBox> box([&](QMessageBox& shown) {
            text = shown.text();
            QTest::mouseClick(shown.button(answer), Qt::LeftButton);
        });
        const ModalAnswer<QFileDialog> choice([&](QFileDialog& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(latin("fileNameEdit"));
            edit->setText(path);
            QTest::keyClick(edit, Qt::Key_Return);
            if (dialog.isVisible()) // the question was answered with No
                dialog.reject();
        });
        clickButton(button);
        return choice.wasShown() ? text : latin("no file dialog");
    }

    QTemporaryDir folder;
};

} // namespace

class TestTempCompPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void pageIsTheLastOneWhereItIsEnabled();
    void showingAndRefreshingAsksNothingOfTheSensor();
    void emptyListsAreNumberedInFullWidth();
    void controlsWithoutAFunctionAreDisabledAndSaySo();
    void entriesSurviveEveryLanguageAndEachFits();
    void columnZeroAndOtherListCommitTheOpenCell();

    void typedCellsAreWrittenAndReadBack();
    void cellsWrittenOtherThanTypedAreTold();
    void shorterFileLeavesTheOtherRows();
    void longerFileFillsTheListAndSaysHowManyRowsItIgnores();
    void readCellsAreWrittenBackAsTheSameLines();
    void fileReadUnderAnOpenEditorKeepsWhatIsTyped();
    void cancelledDialogsChangeNothing();
    void existingFileIsReplacedOnlyWhenTheUserSaysSo();
    void failureSaysWhyAndChangesNothing();
    void closingTheWindowEndsTheFileDialogFirst();

private:
    std::unique_ptr<Bench> m_bench;
};

void TestTempCompPage::init()
{
    m_bench = std::make_unique<Bench>();
    QVERIFY(m_bench->startOnPage());
}

void TestTempCompPage::pageIsTheLastOneWhereItIsEnabled()
{
    for (const char* value : {"", "0", "1", "2"}) {
        const bool enabled = *value == '1';
        m_bench.reset();
        m_bench = std::make_unique<Bench>(
            *value ? QByteArray("\"EnableTempComp\"=dword:0000000") + value + "\r\n" : "");
        QVERIFY(m_bench->startConnected());
        QListWidget& list = m_bench->pageList();
        QCOMPARE(m_bench->window().findChildren<TempCompPage*>().size(), enabled ? 1 : 0);
        QCOMPARE(list.item(list.count() - 1)->text() == latin("Temperature Compensation"), enabled);
    }
}

void TestTempCompPage::showingAndRefreshingAsksNothingOfTheSensor()
{
    constexpr std::size_t kReadsOfFirstPage = 14;
    m_bench->type(0, 1, "25.5");
    (void)m_bench->sensor().takeReceivedFrames();
    m_bench->clickRefresh();
    QVERIFY(m_bench->choosePage(0));
    QCOMPARE(m_bench->sensor().takeReceivedFrames().size(), kReadsOfFirstPage);
    QVERIFY(m_bench->chooseTempComp());
    QCOMPARE(m_bench->editor()->text(), latin("25.5"));
}

void TestTempCompPage::emptyListsAreNumberedInFullWidth()
{
    QCOMPARE(m_bench->page<TempCompPage>().getControl<QTabWidget>(1055)->currentWidget(),
             &m_bench->dataPage());
    for (const QSize& size : {QSize(1280, 720), QSize(1920, 1040)}) {
        m_bench->window().resize(size);
        QTRY_COMPARE(m_bench->window().size(), size);
        for (const auto& [id, columns] : {std::pair(kLookupList, 3), std::pair(kArrayList, 11)}) {
            QTableWidget& table = m_bench->list(id);
            QCOMPARE(table.rowCount(), 10);
            QCOMPARE(table.columnCount(), columns);
            for (int row = 0; row < 10; ++row) {
                QCOMPARE(m_bench->text(row, 0, id), QString::number(row));
                QCOMPARE(m_bench->text(row, columns - 1, id), QString());
            }
            QTRY_COMPARE(table.columnWidth(0), table.viewport()->width() / columns);
            QCOMPARE(table.columnWidth(columns - 1), table.columnWidth(0));
            QVERIFY(table.viewport()->width() > m_bench->dataPage().width() * 9 / 10);
            QVERIFY(table.viewport()->height() > 5 * table.rowHeight(0));
        }
    }
}

void TestTempCompPage::controlsWithoutAFunctionAreDisabledAndSaySo()
{
    for (const int id : {1056, 1059, 1067, 1068, 1069}) {
        const auto* control = m_bench->dataPage().getControl<QWidget>(id);
        QVERIFY(control->isVisible());
        QVERIFY(!control->isEnabled());
        QCOMPARE(control->toolTip(), latin("Has no function in this version."));
    }
    for (const int id : {kLookupList, kWriteButton, kReadButton, kArrayList})
        QVERIFY(m_bench->dataPage().getControl<QWidget>(id)->isEnabled());
}

void TestTempCompPage::entriesSurviveEveryLanguageAndEachFits()
{
    m_bench->type(2, 1, "25.5");
    m_bench->type(9, 10, "abc", kArrayList);
    for (const int code : {2, 4, 8, 16}) {
        QCOMPARE(m_bench->languages().loadLanguage(code), 1);
        QCoreApplication::processEvents();
        const auto* lookup = m_bench->list(kLookupList).horizontalHeaderItem(1);
        const auto* array = m_bench->list(kArrayList).horizontalHeaderItem(10);
        QCOMPARE(lookup->text(), languageString(255));
        QCOMPARE(array->text(), languageString(260).arg(9));
        const QSize needed = m_bench->window().minimumSizeHint();
        QVERIFY(needed.width() <= 1280 && needed.height() <= 720);
    }
    QCOMPARE(m_bench->text(2, 1), latin("25.5"));
    QCOMPARE(m_bench->editor(kArrayList)->text(), latin("abc"));
}

void TestTempCompPage::columnZeroAndOtherListCommitTheOpenCell()
{
    m_bench->type(0, 1, "1 a");
    m_bench->click(3, 0);
    QVERIFY(!m_bench->editor());
    QCOMPARE(m_bench->text(0, 1), latin("1 a"));

    m_bench->type(0, 2, "2");
    m_bench->type(4, 10, "3", kArrayList);
    QVERIFY(!m_bench->editor());
    QCOMPARE(m_bench->text(0, 2), latin("2"));

    m_bench->click(5, 1);
    QVERIFY(!m_bench->editor(kArrayList));
    QVERIFY(m_bench->editor());
    QCOMPARE(m_bench->text(4, 10, kArrayList), latin("3"));
}

/// The cell that is still open is among them.
void TestTempCompPage::typedCellsAreWrittenAndReadBack()
{
    m_bench->type(0, 1, "25.3");
    m_bench->type(0, 2, "7");
    m_bench->type(9, 1, "-10.25");
    m_bench->type(9, 2, "1234");
    QCOMPARE(m_bench->chooseFile(kWriteButton, m_bench->path("table")).section(u'\n', 1),
             latin("\nRow 0, Point: 25.0\nRow 9, Point: -10.0"));
    QVERIFY(!m_bench->editor());
    QCOMPARE(contentOf(m_bench->path("table.csv")),
             kMarkerLine + "0032,00000007\r\n" + kZeroLine.repeated(8) + "FFFFFFEC,000004D2\r\n");

    QCOMPARE(m_bench->text(0, 1), latin("25.3"));
    QCOMPARE(m_bench->chooseFile(kReadButton, m_bench->path("table.csv")), QString());
    QCOMPARE(m_bench->text(0, 1), latin("25.0"));
    QCOMPARE(m_bench->text(0, 2), latin("7"));
    QCOMPARE(m_bench->text(1, 1), latin("0.0"));
    QCOMPARE(m_bench->text(1, 2), latin("0"));
    QCOMPARE(m_bench->text(9, 1), latin("-10.0"));
}

void TestTempCompPage::cellsWrittenOtherThanTypedAreTold()
{
    const QList<std::pair<const char*, const char*>> rows{
        {"20000", "99999999999"}, {"abc", "1.5"}, {" 1.50 ", "+3"}, {"1e3", "-0"}};
    for (int row = 0; row < rows.size(); ++row) {
        m_bench->type(row, 1, rows[row].first);
        m_bench->type(row, 2, rows[row].second);
    }
    QCOMPARE(m_bench->chooseFile(kWriteButton, m_bench->path("table.csv")),
             latin("The file has been written, but it does not hold these cells as they were "
                   "typed. A point is kept in steps of 0.5 from -16384.0 to 16383.5, a value as "
                   "an integer, and what is not a number as 0.\n\nRow 0, Point: -12768.0\nRow 0, "
                   "Value: 2147483647\nRow 1, Point: 0.0\nRow 1, Value: 1\nRow 3, Point: 0.0"));
}

void TestTempCompPage::shorterFileLeavesTheOtherRows()
{
    const QString path = m_bench->path("table.csv");
    QVERIFY(putContent(path, kMarkerLine + QByteArray("0004,00000009\n").repeated(10)));
    QCOMPARE(m_bench->chooseFile(kReadButton, path), QString());
    QVERIFY(putContent(path, kMarkerLine + "0032,000004D2\nno comma\n\n"));
    QCOMPARE(m_bench->chooseFile(kReadButton, path), QString());
    QString points;
    for (int row = 0; row < 10; ++row)
        points += m_bench->text(row, 1) + u' ';
    QCOMPARE(points, latin("25.0 0.0 0.0 2.0 2.0 2.0 2.0 2.0 2.0 2.0 "));
}

void TestTempCompPage::longerFileFillsTheListAndSaysHowManyRowsItIgnores()
{
    QByteArray content = kMarkerLine;
    for (int row = 1; row <= 12; ++row)
        content += QByteArray::number(row) + ",A\r\n";
    QVERIFY(putContent(m_bench->path("table.csv"), content));
    QCOMPARE(m_bench->chooseFile(kReadButton, m_bench->path("table.csv")),
             latin("The file holds more rows than the table. Rows in the file: 12; read: 10; "
                   "ignored: 2."));
    QCOMPARE(m_bench->list(kLookupList).rowCount(), 10);
    QCOMPARE(m_bench->text(0, 1), latin("0.5"));
    QCOMPARE(m_bench->text(9, 1), latin("8.0"));
}

void TestTempCompPage::readCellsAreWrittenBackAsTheSameLines()
{
    const QByteArray content = kMarkerLine +
                               "7FFF,7FFFFFFF\r\nFFFF8000,80000000\r\nFFFFFFFF,FFFFFFFF\r\n"
                               "0001,00000001\r\nFFFFFFEC,000004D2\r\n" +
                               kZeroLine.repeated(5);
    QVERIFY(putContent(m_bench->path("table.csv"), content));
    QCOMPARE(m_bench->chooseFile(kReadButton, m_bench->path("table.csv")), QString());
    QCOMPARE(m_bench->chooseFile(kWriteButton, m_bench->path("copy.csv")), QString());
    QCOMPARE(contentOf(m_bench->path("copy.csv")), content);
}

void TestTempCompPage::fileReadUnderAnOpenEditorKeepsWhatIsTyped()
{
    QVERIFY(putContent(m_bench->path("table.csv"), kMarkerLine + "0032,000004D2\r\n"));
    for (const auto& [typed, shown] : {std::pair("99", "99"), std::pair("", "25.0")}) {
        m_bench->type(0, 1, typed);
        QCOMPARE(m_bench->chooseFile(kReadButton, m_bench->path("table.csv")), QString());
        QCOMPARE(m_bench->editor()->text(), latin(shown));
        QCOMPARE(m_bench->text(0, 1), latin("25.0"));
        m_bench->click(0, 0);
        QCOMPARE(m_bench->text(0, 1), latin(shown));
    }
}

void TestTempCompPage::cancelledDialogsChangeNothing()
{
    m_bench->type(0, 1, "1");
    for (const int button : {kWriteButton, kReadButton}) {
        const ModalAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
            QCOMPARE(dialog.parentWidget(), &m_bench->window());
            QCOMPARE(dialog.findChild<QLineEdit*>(latin("fileNameEdit"))->text(), QString());
            QCOMPARE(dialog.nameFilters(),
                     (QStringList{latin("Lookup tables (*.csv)"), latin("All files (*)")}));
            dialog.setDirectory(m_bench->folder.path());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_bench->clickButton(button);
        QVERIFY(answer.wasShown());
    }
    QCOMPARE(m_bench->text(0, 1), latin("1"));
    QVERIFY(QDir(m_bench->folder.path()).isEmpty());
}

void TestTempCompPage::existingFileIsReplacedOnlyWhenTheUserSaysSo()
{
    const QString path = m_bench->path("table.csv");
    QVERIFY(putContent(path, "earlier"));
    QVERIFY(m_bench->chooseFile(kWriteButton, path, QMessageBox::No).contains(latin("table.csv")));
    QCOMPARE(contentOf(path), QByteArray("earlier"));
    QVERIFY(m_bench->chooseFile(kWriteButton, path, QMessageBox::Yes).contains(latin("table.csv")));
    QCOMPARE(contentOf(path), kMarkerLine + kZeroLine.repeated(10));
}

void TestTempCompPage::failureSaysWhyAndChangesNothing()
{
    const QString other = m_bench->path("other.csv");
    const QString memory = m_bench->path("memory.csv"); // opens, but has no byte 0
    const QString full = m_bench->path("full.csv");
    QVERIFY(putContent(other, kMarkerLine.toLower() + "0032,000004D2\r\n"));
    QVERIFY(QFile::link(latin("/proc/self/mem"), memory));
    m_bench->type(0, 1, "1");
    m_bench->click(0, 0);

    QCOMPARE(m_bench->chooseFile(kReadButton, other),
             latin("This is not a lookup table for temperature compensation."));
    QCOMPARE(m_bench->chooseFile(kReadButton, memory),
             latin("The file %1 could not be read: Input/output error.").arg(memory));
    QCOMPARE(m_bench->text(0, 1), latin("1"));
    QCOMPARE(m_bench->text(0, 2), QString());

    const FileSizeLimit limit(100);
    QCOMPARE(m_bench->chooseFile(kWriteButton, full),
             latin("The file %1 could not be written: File too large. A file of this name that "
                   "was there before is unchanged.")
                 .arg(full));
    QVERIFY(!QFile::exists(full));
}

void TestTempCompPage::closingTheWindowEndsTheFileDialogFirst()
{
    QSignalSpy closed(&m_bench->window(), &PelorinMainWindow::closed);
    const ModalAnswer<QFileDialog> answer([this](QFileDialog&) { m_bench->window().close(); });
    m_bench->clickButton(kWriteButton);
    QVERIFY(answer.wasShown());
    QTRY_COMPARE(closed.count(), 1);
}

QTEST_MAIN(TestTempCompPage)
#include "TestTempCompPage.moc"
