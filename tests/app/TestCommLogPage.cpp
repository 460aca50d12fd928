#include "pages/CommLogPage.h"

#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QListView>
#include <QListWidget>
#include <QScrollBar>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kClear = 1033;
constexpr int kSave = 1034;
constexpr int kLinesOfInformation = 28; // its page reads fourteen parameters

} // namespace

/// The page in the real main window, on a log that the simulated sensor has filled.
class TestCommLogPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void logIsShownAsItWasWhenThePageWasShownOrRefreshed();
    void clearEmptiesTheLogItself();
    void savedFileHoldsExactlyTheLinesShown();
    void olderFileIsReplacedOnlyIfItMayAndCan_data();
    void olderFileIsReplacedOnlyIfItMayAndCan();
    void linesAreSelectedAndCopiedByKeyboard();
    void longLineCanBeReadByScrollingSideways();

private:
    [[nodiscard]] bool choose(const char* caption);
    [[nodiscard]] QListView& list()
    {
        return *m_rig->page<CommLogPage>().getControl<QListView>(1032);
    }
    [[nodiscard]] QStringList shown();
    void click(int control)
    {
        QTest::mouseClick(m_rig->page<CommLogPage>().getControl<QPushButton>(control),
                          Qt::LeftButton);
    }
    void clickLine(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers,
                          list().visualRect(list().model()->index(row, 0)).center());
    }
    [[nodiscard]] QString copied()
    {
        QTest::keyClick(&list(), Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    }

    std::unique_ptr<MainWindowRig> m_rig;
};

void TestCommLogPage::init()
{
    m_rig = std::make_unique<MainWindowRig>();
    QVERIFY(m_rig->startConnected());
    QVERIFY(choose("Communications Log"));
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

bool TestCommLogPage::choose(const char* caption)
{
    const auto items = m_rig->pageList().findItems(QLatin1String(caption), Qt::MatchExactly);
    return items.size() == 1 && m_rig->choosePage(m_rig->pageList().row(items.first()));
}

QStringList TestCommLogPage::shown()
{
    QStringList lines;
    const QAbstractItemModel& model = *list().model();
    for (int row = 0; row < model.rowCount(); ++row)
        lines << model.index(row, 0).data().toString();
    return lines;
}

void TestCommLogPage::logIsShownAsItWasWhenThePageWasShownOrRefreshed()
{
    const QStringList before = shown();
    QCOMPARE(before, m_rig->logged());
    QCOMPARE(before.value(0), QStringLiteral("TX: [56][Get][TERM]"));
    QVERIFY(before.contains(QStringLiteral("SSI Type: 2")));

    m_rig->link().commLog().append(QStringLiteral("RX: later"));
    QCOMPARE(shown(), before);
    m_rig->clickRefresh();
    QTRY_COMPARE(shown(), before + QStringList{QStringLiteral("RX: later")});

    QVERIFY(choose("Sensor Information"));
    QVERIFY(choose("Communications Log"));
    QCOMPARE(shown(), m_rig->logged());
    QCOMPARE(shown().size(), before.size() + 1 + kLinesOfInformation);
}

void TestCommLogPage::clearEmptiesTheLogItself()
{
    click(kClear);
    QCOMPARE(shown(), QStringList());
    QVERIFY(choose("Sensor Information"));
    QVERIFY(choose("Communications Log"));
    QCOMPARE(shown().size(), kLinesOfInformation);
    QCOMPARE(shown().value(0), QStringLiteral("TX: [44][Get][TERM]"));
}

void TestCommLogPage::savedFileHoldsExactlyTheLinesShown()
{
    const TestFolder folder;
    const QByteArray lines = shown().join(QStringLiteral("\r\n")).toUtf8() + "\r\n";
    m_rig->link().commLog().append(QStringLiteral("RX: later"));
    for (const auto* typed : {"log", "log.dat", "none"}) {
        if (QByteArray(typed) == "none")
            click(kClear);
        const FileDialogUser user(folder.path(QLatin1String(typed)));
        click(kSave);
        QVERIFY(user.wasAsked());
    }
    QCOMPARE(folder.names(), QStringLiteral("log.dat log.txt none.txt"));
    QCOMPARE(folder.content(QStringLiteral("log.txt")), lines);
    QCOMPARE(folder.content(QStringLiteral("log.dat")), lines);
    QCOMPARE(folder.content(QStringLiteral("none.txt")), QByteArray());
}

/// What the last message box says, and whether the older file is replaced.
void TestCommLogPage::olderFileIsReplacedOnlyIfItMayAndCan_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("full"); // is the disk
    QTest::addColumn<QString>("lastBox");
    QTest::addColumn<bool>("replaced");
    const auto yes = QMessageBox::Yes;
    const QString question = QStringLiteral("log.txt already exists.\nDo you want to replace it?");
    const QString notOpened = QStringLiteral("The file %1 could not be opened (system error 20: "
                                             "Not a directory).");
    const QString full = QStringLiteral("The file %1 could not be written: File too large. A file "
                                        "of this name that was there before is unchanged.");
    QTest::newRow("replaced") << "log" << yes << false << question << true;
    QTest::newRow("declined") << "log" << QMessageBox::No << false << question << false;
    QTest::newRow("given up") << "" << yes << false << "" << false;
    QTest::newRow("below a file") << "log.txt/a.txt" << yes << false << notOpened << false;
    QTest::newRow("disk full") << "log.txt" << yes << true << full << false;
}

void TestCommLogPage::olderFileIsReplacedOnlyIfItMayAndCan()
{
    QFETCH(QString, typed);
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(bool, full);
    QFETCH(QString, lastBox);
    QFETCH(bool, replaced);
    const TestFolder folder;
    QVERIFY(folder.put(QStringLiteral("log.txt"), "older"));
    click(kClear);
    CommLog& log = m_rig->link().commLog();
    log.append(QStringLiteral("Ger\u00E4t"));
    QByteArray text = "Ger\xC3\xA4t\r\n"; // is written in several pieces
    for (int line = 0; line < 50'000; ++line) {
        log.append(QStringLiteral("RX: [%1]").arg(line));
        text += "RX: [" + QByteArray::number(line) + "]\r\n";
    }
    m_rig->clickRefresh();
    QTRY_COMPARE(list().model()->rowCount(), 50'001);

    const QString path = folder.path(typed);
    const auto giveUp = [](QFileDialog& dialog) { dialog.reject(); };
    const FileDialogUser user(path, typed.isEmpty() ? giveUp : std::function<void(QFileDialog&)>(),
                              answer);
    {
        const FileSizeLimit limit(static_cast<rlim_t>(text.size() - (full ? 1 : 0)));
        click(kSave);
    }
    QVERIFY(user.wasAsked());
    QCOMPARE(user.boxes().value(user.boxes().size() - 1),
             lastBox.contains(QLatin1String("%1")) ? lastBox.arg(path) : lastBox);
    QCOMPARE(folder.content(QStringLiteral("log.txt")), replaced ? text : QByteArray("older"));
    QCOMPARE(folder.names(), QStringLiteral("log.txt"));
}

void TestCommLogPage::linesAreSelectedAndCopiedByKeyboard()
{
    const QStringList lines = shown();
    clickLine(1);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(copied(), lines.mid(1, 3).join(QLatin1Char('\n')));
    clickLine(0, Qt::ControlModifier); // selected last, copied first
    QCOMPARE(copied(), lines.mid(0, 4).join(QLatin1Char('\n')));
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(copied(), lines.join(QLatin1Char('\n')));
    click(kClear); // nothing to copy: what was copied stays
    QCOMPARE(copied(), lines.join(QLatin1Char('\n')));
}

void TestCommLogPage::longLineCanBeReadByScrollingSideways()
{
    QScrollBar& bar = *list().horizontalScrollBar();
    QCOMPARE(bar.maximum(), 0);
    const QString longLine(500, QLatin1Char('x'));
    m_rig->link().commLog().append(longLine);
    m_rig->clickRefresh();
    QTRY_VERIFY(bar.maximum() > 0);

    const QFontMetrics metrics(list().font());
    QVERIFY(bar.maximum() + list().viewport()->width() >= metrics.horizontalAdvance(longLine));
    QCOMPARE(metrics.horizontalAdvance(QLatin1Char('i')),
             metrics.horizontalAdvance(QLatin1Char('W')));
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Right);
    const int right = bar.value();
    QVERIFY(right > 0);
    QTest::keyClick(&list(), Qt::Key_Left);
    QVERIFY(bar.value() < right);
}

QTEST_MAIN(TestCommLogPage)
#include "TestCommLogPage.moc"
