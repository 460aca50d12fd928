#include "pages/CommLogPage.h"

#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace pelorin;
using namespace pelorin::test;

/// The page in the real main window, on a log that the simulated sensor has filled.
class TestCommLogPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void logIsShownInOrderAndGrowsWhenShownAgain();
    void clearEmptiesTheLogItself();
    void savedFileHoldsExactlyTheLinesShown();
    void fileThatCannotBeSavedIsReported_data();
    void fileThatCannotBeSavedIsReported();
    void linesAreSelectedAndCopiedByKeyboard();
    void longLineCanBeReadByScrollingSideways();

private:
    [[nodiscard]] int rowOf(const char* caption) const;
    [[nodiscard]] QListView& list() const
    {
        return *m_rig->page<CommLogPage>().getControl<QListView>(1032);
    }
    [[nodiscard]] QStringList shown() const;
    void click(int control) const
    {
        QTest::mouseClick(m_rig->page<CommLogPage>().getControl<QPushButton>(control),
                          Qt::LeftButton);
    }
    void saveAs(const QString& path) const;
    [[nodiscard]] QString filePath(const char* name) const
    {
        return m_folder->filePath(QLatin1String(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindowRig> m_rig;
};

namespace {

constexpr int kClear = 1033;
constexpr int kSave = 1034;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

bool putFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace

void TestCommLogPage::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_rig = std::make_unique<MainWindowRig>();
    QVERIFY(m_rig->startConnected());
    QVERIFY(m_rig->choosePage(rowOf("Communications Log")));
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

int TestCommLogPage::rowOf(const char* caption) const
{
    const auto items = m_rig->pageList().findItems(QLatin1String(caption), Qt::MatchExactly);
    return items.isEmpty() ? -1 : m_rig->pageList().row(items.first());
}

QStringList TestCommLogPage::shown() const
{
    QStringList lines;
    const QAbstractItemModel& model = *list().model();
    for (int row = 0; row < model.rowCount(); ++row)
        lines << model.index(row, 0).data().toString();
    return lines;
}

/// Clicks Save To Disk and gives the file dialog a path.
void TestCommLogPage::saveAs(const QString& path) const
{
    ModalAnswer<QFileDialog> answer([&path](QFileDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    click(kSave);
    QVERIFY(answer.wasShown());
}

void TestCommLogPage::logIsShownInOrderAndGrowsWhenShownAgain()
{
    const QStringList before = shown();
    QCOMPARE(before, m_rig->logged());
    QCOMPARE(before.value(0), QStringLiteral("TX: [56][Get][TERM]"));
    QVERIFY(before.contains(QStringLiteral("SSI Type: 2")));

    QVERIFY(m_rig->choosePage(rowOf("Sensor Information")));
    QVERIFY(m_rig->choosePage(rowOf("Communications Log")));
    QCOMPARE(shown(), m_rig->logged());
    QCOMPARE(shown().mid(0, before.size()), before);
    QCOMPARE(shown().size(), before.size() + 28); // the page has read fourteen parameters
}

void TestCommLogPage::clearEmptiesTheLogItself()
{
    click(kClear);
    QCOMPARE(shown(), QStringList());
    QCOMPARE(m_rig->logged(), QStringList());

    QVERIFY(m_rig->choosePage(rowOf("Sensor Information")));
    QVERIFY(m_rig->choosePage(rowOf("Communications Log")));
    QCOMPARE(shown().size(), 28);
    QCOMPARE(shown().value(0), QStringLiteral("TX: [44][Get][TERM]"));
}

void TestCommLogPage::savedFileHoldsExactlyTheLinesShown()
{
    const QByteArray expected = shown().join(QStringLiteral("\r\n")).toUtf8() + "\r\n";
    m_rig->link().commLog().append(QStringLiteral("RX: later"));
    saveAs(filePath("log"));
    QCOMPARE(contentOf(filePath("log.txt")), expected);

    m_rig->clickRefresh();
    QTRY_COMPARE(shown().last(), QStringLiteral("RX: later"));
    ModalAnswer<QMessageBox> question(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
    saveAs(filePath("log"));
    QVERIFY(question.wasShown());
    QCOMPARE(contentOf(filePath("log.txt")), expected + "RX: later\r\n");
}

void TestCommLogPage::fileThatCannotBeSavedIsReported_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("cannot be opened")
        << QStringLiteral("older.txt/log.txt")
        << QStringLiteral("The file %1 could not be opened (system error 20).");
    QTest::newRow("disk full half way")
        << QStringLiteral("older.txt")
        << QStringLiteral("The file %1 could not be written: File too large. A file of this name "
                          "that was there before is unchanged.");
}

void TestCommLogPage::fileThatCannotBeSavedIsReported()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    const QString path = m_folder->filePath(name);
    QVERIFY(putFile(filePath("older.txt"), "older"));

    const auto before = shown();
    QStringList boxes;
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, [&boxes] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        if (auto* overwrite = box->button(QMessageBox::Yes)) {
            QTest::mouseClick(overwrite, Qt::LeftButton);
        } else {
            boxes << box->text();
            QTest::keyClick(box, Qt::Key_Return);
        }
    });
    answers.start(5);
    {
        const FileSizeLimit full(100);
        saveAs(path);
    }
    QCOMPARE(boxes, QStringList{message.arg(path)});
    QCOMPARE(contentOf(filePath("older.txt")), QByteArray("older"));
    QCOMPARE(m_rig->logged(), before);
}

void TestCommLogPage::linesAreSelectedAndCopiedByKeyboard()
{
    const QStringList lines = shown();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().model()->index(1, 0)).center());
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), lines.mid(1, 3).join(QLatin1Char('\n')));

    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), lines.join(QLatin1Char('\n')));

    click(kClear);
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
}

void TestCommLogPage::longLineCanBeReadByScrollingSideways()
{
    QCOMPARE(list().horizontalScrollBar()->maximum(), 0);
    const QString longLine(500, QLatin1Char('x'));
    m_rig->link().commLog().append(longLine);
    m_rig->clickRefresh();
    QTRY_VERIFY(list().horizontalScrollBar()->maximum() > 0);

    QScrollBar& bar = *list().horizontalScrollBar();
    const int needed = QFontMetrics(list().font()).horizontalAdvance(longLine);
    QVERIFY(bar.maximum() + list().viewport()->width() >= needed);
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Right);
    QVERIFY(bar.value() > 0);
}

QTEST_MAIN(TestCommLogPage)
#include "TestCommLogPage.moc"
