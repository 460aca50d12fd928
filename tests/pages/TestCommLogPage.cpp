#include "pages/CommLogPage.h"

#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"
#include "support/WaitFor.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

/// The page in the real main window, on a log that the simulated sensor has filled.
class TestCommLogPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_rig = std::make_unique<MainWindowRig>();
        QVERIFY(m_rig->startConnected() && m_rig->choosePage(kLogPage));
        QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
        m_list = m_rig->page<CommLogPage>().getControl<QListView>(1032);
    }
    void cleanup() { m_rig.reset(); }

    void linesAreThoseOfTheMomentWhenThePageWasShownRefreshedOrCleared()
    {
        const QScrollBar& bar = *m_list->horizontalScrollBar();
        const QStringList before = shown();
        QCOMPARE(before.value(0), u"TX: [56][Get][TERM]"_s);
        QCOMPARE(before, m_rig->logged());
        const QString longLine(500, u'x');
        append(longLine);
        QCOMPARE(shown(), before);
        m_rig->clickRefresh();
        const int width = m_list->fontMetrics().horizontalAdvance(longLine);
        QVERIFY(waitFor([&] { return bar.maximum() + m_list->viewport()->width() >= width; }));
        QCOMPARE(shown(), before + QStringList(longLine));
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_Right);
        QVERIFY(bar.value() > 0);
        QTest::keyClick(m_list, Qt::Key_Left);
        QCOMPARE(bar.value(), 0);

        click(kClear);
        QCOMPARE(shown(), QStringList());
        QVERIFY(m_rig->choosePage(0) && m_rig->choosePage(kLogPage));
        QCOMPARE(shown().value(0), u"TX: [44][Get][TERM]"_s);
        QCOMPARE(shown(), m_rig->logged());
        QCOMPARE(bar.maximum(), 0);
    }

    void linesShownAreSavedWhole()
    {
        const TestFolder folder;
        QVERIFY(folder.put(u"log.txt"_s, "older"));
        click(kClear);
        for (int line = 0; line < 50'000; ++line) // is written in several pieces
            append(u"RX: [%1] Ger\u00E4t"_s.arg(line));
        const QByteArray text = (m_rig->logged().join(u"\r\n"_s) + u"\r\n"_s).toUtf8();
        m_rig->clickRefresh();
        QVERIFY(waitFor([this] { return m_list->model()->rowCount() == 50'000; }));
        append(u"RX: later"_s);
        const QString path = folder.path(u"log.txt"_s);
        const auto save = [&](qint64 room) {
            const FileDialogUser user(folder.path(u"log"_s));
            const FileSizeLimit limit(static_cast<rlim_t>(room));
            click(kSave);
            return user.boxes();
        };
        const QStringList boxes = save(text.size() - 1);
        QCOMPARE(boxes.value(0), u"log.txt already exists.\nDo you want to replace it?"_s);
        QVERIFY(boxes.value(1).startsWith(u"The file %1 could not be written"_s.arg(path)));
        QCOMPARE(contentOf(path), QByteArray("older"));
        QCOMPARE(save(text.size()).size(), 1);
        QVERIFY(contentOf(path) == text);
        QCOMPARE(folder.names(), u"log.txt"_s);
    }

    void linesAreCopiedInTheirOrder()
    {
        const QStringList lines = shown();
        auto& selection = *m_list->selectionModel();
        for (const int row : {2, 0})
            selection.select(m_list->model()->index(row, 0), QItemSelectionModel::Select);
        QCOMPARE(copied(), lines[0] + u'\n' + lines[2]);
        QTest::keyClick(m_list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(copied(), lines.join(u'\n'));
        const QDateTime now = QDateTime::currentDateTime();
        m_list->actions().last()->trigger();
        const QStringList timed = QGuiApplication::clipboard()->text().split(u'\n');
        QCOMPARE(timed.size(), lines.size());
        for (qsizetype line = 0; line < lines.size(); ++line) {
            const auto time =
                QDateTime::fromString(timed[line].left(23), u"yyyy-MM-dd HH:mm:ss.zzz"_s);
            QVERIFY(time <= now && time.secsTo(now) < 300);
            QCOMPARE(timed[line].mid(23), u'\t' + lines[line]);
        }
        click(kClear); // nothing to copy: what was copied stays
        QCOMPARE(copied(), timed.join(u'\n'));
    }

    void linesAreFollowedWhileThatIsWanted()
    {
        auto* box = m_rig->page<CommLogPage>().getControl<QCheckBox>(1045);
        m_list->setCurrentIndex(m_list->model()->index(1, 0));
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        for (int line = 0; line < 200; ++line)
            append(u"line %1"_s.arg(line));
        const auto last = [this] { return shown().value(m_list->model()->rowCount() - 1); };
        QVERIFY(waitFor([&] { return last() == u"line 199"_s; }));
        QVERIFY(waitFor([this] {
            const QScrollBar& bar = *m_list->verticalScrollBar();
            return bar.maximum() > 0 && bar.value() == bar.maximum();
        }));
        QCOMPARE(m_list->currentIndex().row(), 1);
        m_rig->link().commLog().clear();
        append(u"after"_s);
        QVERIFY(waitFor([&] { return shown() == QStringList(u"after"_s); }));
        QVERIFY(m_rig->choosePage(0));
        append(u"later"_s); // is not followed by a page that is not shown
        QVERIFY(m_rig->choosePage(kLogPage));
        QVERIFY(shown().size() > 2 && shown()[0] == u"after"_s);
    }

    void linesAreFoundInBothDirections()
    {
        click(kClear);
        for (int line = 0; line < 30'000; ++line)
            append(line % 10'000 == 5 ? u"TX: [41][Get][TERM]"_s : u"RX: [%1]"_s.arg(line));
        m_rig->clickRefresh();
        QVERIFY(waitFor([this] { return m_list->model()->rowCount() == 30'000; }));
        auto* edit = m_rig->page<CommLogPage>().getControl<QLineEdit>(1041);
        const auto isAt = [this](const QString& found, int row) {
            return waitFor([&] {
                return m_rig->page<CommLogPage>().getControl<QLabel>(1044)->text() == found &&
                       m_list->currentIndex().row() == row;
            });
        };
        m_rig->pageList().setFocus(); // where it is after a page was chosen
        QTest::keyClick(&m_rig->pageList(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(edit->hasFocus());
        QTest::keyClicks(edit, u"[get]"_s);
        QVERIFY(isAt(u"1 of 3"_s, 5));
        QCOMPARE(m_rig->page<CommLogPage>().getControl<QLabel>(1047)->text(),
                 u"Read of Resolution (A)."_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(isAt(u"2 of 3"_s, 10'005));
        click(1042);
        click(1042);
        QVERIFY(isAt(u"3 of 3"_s, 20'005)); // from the other end
        append(u"[GET]"_s);
        m_rig->clickRefresh();
        QVERIFY(isAt(u"3 of 4"_s, 20'005));
        click(1043);
        click(1043);
        QVERIFY(isAt(u"1 of 4"_s, 5));
        QTest::keyClicks(edit, u"x"_s);
        QVERIFY(isAt(u"Not found"_s, 5));
    }

    void oldestLinesAreDroppedAndOnlyThePageSaysSo()
    {
        const QString huge(66'000, u'x');
        const auto& note = *m_rig->page<CommLogPage>().getControl<QLabel>(2032);
        QVERIFY(!note.isVisible());
        click(kClear);
        for (int line = 0; line < 4096; ++line) // a block of 2048 takes 130 MB
            append(line == 2048 ? u"oldest"_s : huge);
        append(u"newest"_s);
        m_rig->clickRefresh();
        QVERIFY(waitFor([&note] { return note.isVisible(); }));
        QCOMPARE(note.text().section(u' ', -1), u"2048"_s);
        QCOMPARE(m_list->model()->rowCount(), 2049);
        QCOMPARE(m_list->model()->index(0, 0).data().toString(), u"oldest"_s);
        QCOMPARE(m_list->model()->index(2048, 0).data().toString(), u"newest"_s);
        click(kClear);
        QVERIFY(!note.isVisible());
    }

private:
    static constexpr int kLogPage = 3;
    static constexpr int kClear = 1033;
    static constexpr int kSave = 1034;

    void append(const QString& line) { m_rig->link().commLog().append(line); }
    void click(int control)
    {
        QTest::mouseClick(m_rig->page<CommLogPage>().getControl<QPushButton>(control),
                          Qt::LeftButton);
    }
    [[nodiscard]] QStringList shown() const
    {
        QStringList lines;
        for (int row = 0; row < m_list->model()->rowCount(); ++row)
            lines << m_list->model()->index(row, 0).data().toString();
        return lines;
    }
    [[nodiscard]] QString copied()
    {
        m_list->setFocus();
        QTest::keyClick(m_list, Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    }

    std::unique_ptr<MainWindowRig> m_rig;
    QListView* m_list = nullptr;
};

QTEST_MAIN(TestCommLogPage)
#include "TestCommLogPage.moc"
