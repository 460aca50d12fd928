#include "support/FileSizeLimit.h"
#include "tempcomp/TempCompRig.h"

#include <QDir>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// Steps that read a message box and answer it with OK.
std::function<void(QMessageBox&)> readInto(QStringList& texts)
{
    return [&texts](QMessageBox& box) {
        texts << box.text();
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    };
}

} // namespace

/// The lookup table's way into a file and back, through the real file dialogs.
class TestTempCompFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void typedCellsAreWrittenAndReadBack();
    void openCellIsCommittedBeforeWriting();
    void untouchedListWritesTenRows();
    void shorterFileLeavesTheOtherRows();
    void longerFileFillsTheListAndSaysHowManyRowsItIgnores();
    void readCellsAreWrittenBackAsTheSameLines();
    void fileReadUnderAnOpenEditorKeepsWhatIsTyped_data();
    void fileReadUnderAnOpenEditorKeepsWhatIsTyped();
    void cancelledDialogsChangeNothing();
    void existingFileIsReplacedOnlyWhenTheUserSaysSo();
    void failedReadSaysWhyAndChangesNothing_data();
    void failedReadSaysWhyAndChangesNothing();
    void failedWriteSaysPathAndReason();
    void closingTheWindowEndsTheFileDialogFirst();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    std::unique_ptr<TempCompRig> m_rig;
};

void TestTempCompFiles::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("table.csv"));
    m_rig = std::make_unique<TempCompRig>();
    QVERIFY(m_rig->startOnPage());
}

void TestTempCompFiles::typedCellsAreWrittenAndReadBack()
{
    m_rig->type(kLookupList, 0, 1, QStringLiteral("25.3"));
    m_rig->type(kLookupList, 0, 2, QStringLiteral("7"));
    m_rig->type(kLookupList, 9, 1, QStringLiteral("-10.25"));
    m_rig->type(kLookupList, 9, 2, QStringLiteral("1234"));
    QVERIFY(m_rig->chooseFile(kWriteButton, m_folder->filePath(QStringLiteral("table"))));
    QCOMPARE(contentOf(m_path),
             kMarkerLine + "0032,00000007\r\n" + kZeroLine.repeated(8) + "FFFFFFEC,000004D2\r\n");

    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("25.3"), QStringLiteral("7")}));
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));
    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("25.0"), QStringLiteral("7")}));
    QCOMPARE(m_rig->texts(1), (QStringList{QStringLiteral("0.0"), QStringLiteral("0")}));
    QCOMPARE(m_rig->texts(9), (QStringList{QStringLiteral("-10.0"), QStringLiteral("1234")}));
}

void TestTempCompFiles::openCellIsCommittedBeforeWriting()
{
    m_rig->type(kLookupList, 1, 2, QStringLiteral("-1"));
    QVERIFY(m_rig->openEdit(kLookupList));
    QVERIFY(m_rig->chooseFile(kWriteButton, m_path));

    QVERIFY(!m_rig->openEdit(kLookupList));
    QCOMPARE(contentOf(m_path),
             kMarkerLine + kZeroLine + "0000,FFFFFFFF\r\n" + kZeroLine.repeated(8));
}

void TestTempCompFiles::untouchedListWritesTenRows()
{
    QVERIFY(m_rig->chooseFile(kWriteButton, m_path));
    QCOMPARE(contentOf(m_path), kMarkerLine + kZeroLine.repeated(10));
}

void TestTempCompFiles::shorterFileLeavesTheOtherRows()
{
    QVERIFY(createFile(m_path, kMarkerLine + QByteArray("0004,00000009\n").repeated(10)));
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));
    QVERIFY(createFile(m_path, kMarkerLine + "0032,000004D2\nno comma\n\n"));
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));

    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("25.0"), QStringLiteral("1234")}));
    for (const int row : {1, 2})
        QCOMPARE(m_rig->texts(row), (QStringList{QStringLiteral("0.0"), QStringLiteral("0")}));
    for (int row = 3; row < 10; ++row)
        QCOMPARE(m_rig->texts(row), (QStringList{QStringLiteral("2.0"), QStringLiteral("9")}));
}

void TestTempCompFiles::longerFileFillsTheListAndSaysHowManyRowsItIgnores()
{
    QByteArray content = kMarkerLine;
    for (int row = 1; row <= 12; ++row)
        content += QByteArray::number(row) + ",A\r\n";
    QVERIFY(createFile(m_path, content));
    QStringList messages;
    const ModalAnswer<QMessageBox> box(readInto(messages));
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));

    QCOMPARE(messages, QStringList(QStringLiteral("The file holds more rows than the table. Rows "
                                                  "in the file: 12; read: 10; ignored: 2.")));
    QCOMPARE(m_rig->list(kLookupList).rowCount(), 10);
    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("0.5"), QStringLiteral("10")}));
    QCOMPARE(m_rig->texts(9), (QStringList{QStringLiteral("8.0"), QStringLiteral("10")}));
}

void TestTempCompFiles::readCellsAreWrittenBackAsTheSameLines()
{
    const QByteArray content = kMarkerLine +
                               "7FFF,7FFFFFFF\r\nFFFF8000,80000000\r\n"
                               "FFFFFFFF,FFFFFFFF\r\n0001,00000001\r\n"
                               "FFFFFFEC,000004D2\r\n" +
                               kZeroLine.repeated(5);
    QVERIFY(createFile(m_path, content));
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));
    const QString copy = m_folder->filePath(QStringLiteral("copy.csv"));
    QVERIFY(m_rig->chooseFile(kWriteButton, copy));

    QCOMPARE(contentOf(copy), content);
}

void TestTempCompFiles::fileReadUnderAnOpenEditorKeepsWhatIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("typed") << "99"
                           << "99";
    QTest::newRow("not typed") << ""
                               << "25.0";
}

void TestTempCompFiles::fileReadUnderAnOpenEditorKeepsWhatIsTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QVERIFY(createFile(m_path, kMarkerLine + "0032,000004D2\r\n"));
    m_rig->type(kLookupList, 0, 1, typed);
    QVERIFY(m_rig->chooseFile(kReadButton, m_path));

    QVERIFY(m_rig->openEdit(kLookupList));
    QCOMPARE(m_rig->openEdit(kLookupList)->text(), shown);
    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("25.0"), QStringLiteral("1234")}));
    m_rig->click(kLookupList, 0, 0);
    QCOMPARE(m_rig->texts(0)[0], shown);
}

void TestTempCompFiles::cancelledDialogsChangeNothing()
{
    m_rig->type(kLookupList, 0, 1, QStringLiteral("1"));
    for (const int button : {kWriteButton, kReadButton}) {
        const ModalAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
            QCOMPARE(dialog.parentWidget(), &m_rig->window());
            QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                     QString());
            QCOMPARE(dialog.nameFilters(), (QStringList{QStringLiteral("Lookup tables (*.csv)"),
                                                        QStringLiteral("All files (*)")}));
            dialog.setDirectory(m_folder->path());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        m_rig->clickButton(button);
        QVERIFY(answer.wasShown());
    }
    QCOMPARE(m_rig->texts(0)[0], QStringLiteral("1"));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void TestTempCompFiles::existingFileIsReplacedOnlyWhenTheUserSaysSo()
{
    for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
        QVERIFY(createFile(m_path, "earlier"));
        const ModalAnswer<QMessageBox> question(
            [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
        const ModalAnswer<QFileDialog> answer([this](QFileDialog& dialog) {
            enterPath(dialog, m_path);
            if (dialog.isVisible()) // the answer was No
                dialog.reject();
        });
        m_rig->clickButton(kWriteButton);
        QVERIFY(question.wasShown());
        QCOMPARE(contentOf(m_path),
                 button == QMessageBox::No ? "earlier" : kMarkerLine + kZeroLine.repeated(10));
    }
}

void TestTempCompFiles::failedReadSaysWhyAndChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("no table") << "other.csv"
                              << "This is not a lookup table for temperature compensation.";
    QTest::newRow("unreadable") << "memory.csv"
                                << "The file %1 could not be read: Input/output error.";
}

void TestTempCompFiles::failedReadSaysWhyAndChangesNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    const QString path = m_folder->filePath(name);
    if (name == QLatin1String("other.csv"))
        QVERIFY(createFile(path, kMarkerLine.toLower() + "0032,000004D2\r\n"));
    else // opens, but has no byte 0
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), path));
    m_rig->type(kLookupList, 0, 1, QStringLiteral("1"));
    m_rig->click(kLookupList, 0, 0);

    QStringList messages;
    const ModalAnswer<QMessageBox> box(readInto(messages));
    QVERIFY(m_rig->chooseFile(kReadButton, path));
    QCOMPARE(messages, QStringList(message.replace(QStringLiteral("%1"), path)));
    QCOMPARE(m_rig->texts(0), (QStringList{QStringLiteral("1"), QString()}));
}

void TestTempCompFiles::failedWriteSaysPathAndReason()
{
    QVERIFY(createFile(m_path, "earlier"));
    const QString below = m_path + QStringLiteral("/below.csv");
    QStringList messages;
    {
        const ModalAnswer<QMessageBox> box(readInto(messages));
        QVERIFY(m_rig->chooseFile(kWriteButton, below));
    }
    QCOMPARE(messages, QStringList(QStringLiteral("The file %1 could not be opened (system error "
                                                  "20).")
                                       .arg(below)));

    const QString full = m_folder->filePath(QStringLiteral("full.csv"));
    messages.clear();
    {
        const ModalAnswer<QMessageBox> box(readInto(messages));
        std::optional<FileSizeLimit> limit;
        const ModalAnswer<QFileDialog> answer([&](QFileDialog& dialog) {
            limit.emplace(100);
            enterPath(dialog, full);
        });
        m_rig->clickButton(kWriteButton);
    }
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first().startsWith(
        QStringLiteral("The file %1 could not be written: File too large.").arg(full)));
    QVERIFY(!QFile::exists(full));
    QCOMPARE(contentOf(m_path), QByteArray("earlier"));
}

void TestTempCompFiles::closingTheWindowEndsTheFileDialogFirst()
{
    QSignalSpy closed(&m_rig->window(), &PelorinMainWindow::closed);
    const ModalAnswer<QFileDialog> answer([this](QFileDialog&) { m_rig->window().close(); });
    m_rig->clickButton(kWriteButton);
    QVERIFY(answer.wasShown());
    QTRY_COMPARE(closed.count(), 1);
}

QTEST_MAIN(TestTempCompFiles)
#include "TestTempCompFiles.moc"
