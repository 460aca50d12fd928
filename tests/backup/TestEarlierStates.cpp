#include "app/CommandGate.h"
#include "app/Commands.h"
#include "app/LinkStatusBar.h"
#include "app/WriteReport.h"
#include "backup/EarlierStatesDialog.h"
#include "backup/ReviewDialog.h"
#include "pages/OutputSetupPage.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "sensor/SafeWriter.h"
#include "support/FileContent.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;
using End = JournalEntry::End;

void click(QWidget* parent, const char* name)
{
    auto* button = parent->findChild<QAbstractButton*>(QLatin1String(name));
    QTest::mouseClick(button, Qt::LeftButton, {}, {10, button->height() / 2});
}

/// The window as a user sees it.
struct Window
{
    EarlierStatesDialog& dialog;

    template <class Control>
    [[nodiscard]] Control& find(const char* name) const
    {
        return *dialog.findChild<Control*>(QLatin1String(name));
    }
    [[nodiscard]] bool isEnabled(const char* name) const { return find<QWidget>(name).isEnabled(); }
    [[nodiscard]] QStringList rows(const char* name = "entryList") const
    {
        const QAbstractItemModel& model = *find<QTableWidget>(name).model();
        QStringList texts(model.rowCount());
        for (int cell = 0; cell < model.rowCount() * model.columnCount(); ++cell) {
            const int row = cell / model.columnCount();
            texts[row] += model.index(row, cell % model.columnCount()).data().toString() + u'|';
        }
        return texts;
    }
    void clickRow(int row) const
    {
        auto& list = find<QTableWidget>("entryList");
        const QPoint point = list.visualItemRect(list.item(row, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, point);
    }
};

/// The state of the sensor that is going to be connected.
JournalEntry state(int minute)
{
    JournalEntry entry{.time = QDateTime({2026, 3, 4}, {5, minute, 7}, Qt::LocalTime).toUTC()};
    entry.device = ComPortNames::stableName(ComPortNames().devicePath(QStringLiteral("COM7")));
    entry.port = 7;
    entry.version = "3A0102";
    entry.ssiType = 2;
    entry.typeChosen = true;
    entry.values = {{'A', "00000005"}, {'F', "SN012345"}, {'N', "000064"}};
    entry.written = {{'N', "0000C8"}};
    return entry;
}

/// The main window, and a journal that earlier runs have left.
class StatesRig : public MainWindowRig
{
public:
    StatesRig() : MainWindowRig({.type = 2}, kSafeWrites) {}

    /// @param end nothing for a run that has died
    void keep(const JournalEntry& entry, const std::optional<End>& end = {}) const
    {
        const auto begun = journal.begin(entry);
        QVERIFY(begun.writing && (!end || begun.writing->finish(*end).isDone()));
    }
    /// Opens the window, takes the steps and closes it.
    [[nodiscard]] bool look(
        const std::function<void(const Window&)>& steps,
        const std::function<void(StatesRig&)>& open = [](StatesRig& rig) {
            QVERIFY(rig.clickCommand(kEarlierStatesCommand));
        })
    {
        const ModalAnswer<EarlierStatesDialog> user([&](EarlierStatesDialog& dialog) {
            steps({dialog});
            click(&dialog, "closeButton");
        });
        open(*this);
        return waitFor([&] { return user.wasShown() && !QApplication::activeModalWidget(); });
    }

    const Journal journal;
};

} // namespace

class TestEarlierStates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesAreShownAsTheyWereKept()
    {
        StatesRig rig;
        JournalEntry other = state(2);
        other.device = QStringLiteral("/dev/other");
        other.version = "1E0100";
        other.ssiType = 0;
        other.typeChosen = false;
        other.by = WriteRequest::By::CommandLine;
        other.values.erase('F');
        rig.keep(state(1), End{Kind::NotChecked, Reason::LinkLost});
        rig.keep(other, End{Kind::Verified});
        rig.keep(state(3));
        QVERIFY(putContent(QDir(rig.journal.folder()).filePath(QStringLiteral("x.json")), "{"));
        QVERIFY(rig.startConnected());
        const QString row = QStringLiteral("4 Mar 2026 05:0%1:07|COM7, %2|%3|Offset (N)|%4|");
        const QString mine = QStringLiteral("2, chosen by hand|3A (3A0102)|SN012345|Output Setup");
        const QString others = QStringLiteral("0|1E (1E0100)||Command line");
        const auto outcome = [](int number) { return languageString(number); };
        const QStringList rows{
            row.arg(3).arg(state(1).device, mine, outcome(1771)),
            row.arg(2).arg(other.device, others, outcome(1703)),
            row.arg(1).arg(state(1).device, mine, outcome(1705) + u' ' + outcome(1012))};
        QVERIFY(rig.look([&](const Window& window) {
            QCOMPARE(window.rows(), rows);
            QCOMPARE(
                window.find<QLabel>("noteLabel").text(),
                QStringLiteral("Files in %1 that could not be read: 1").arg(rig.journal.folder()));
            QCOMPARE(window.rows("detailList").join(QString()),
                     QStringLiteral("Resolution (A)|0.005 mm|00000005|||"
                                    "Factory Text (F)|SN012345|SN012345|||"
                                    "Offset (N)|100 counts, 0.500 mm|000064|200 counts, "
                                    "1.000 mm|0000C8|"));
            QVERIFY(window.isEnabled("putBackButton"));
            window.clickRow(1); // of another type
            QVERIFY(window.find<QLabel>("summaryLabel").text().contains(other.device));
            QVERIFY(!window.isEnabled("putBackButton"));
            click(&window.dialog, "onlyConnectedBox");
            QCOMPARE(window.rows(), QStringList({rows[0], rows[2]}));

            rig.sensor().vanish();
            QVERIFY(waitFor([&] { return !rig.link().isIdentified(); }));
            click(&window.dialog, "putBackButton");
            QVERIFY(window.dialog.isVisible() && !window.isEnabled("putBackButton"));
            rig.sensor().comeBack();
        }));
    }

    void entryIsDeletedOnlyIfTheUserWantsWithoutASensorToo()
    {
        StatesRig rig;
        rig.keep(state(2), End{Kind::Verified});
        const auto atWork = rig.journal.begin(state(1));
        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "");
        rig.start();
        QVERIFY(waitFor([&] { return rig.statusText().startsWith(QStringLiteral("Not conn")); }));
        QVERIFY(rig.waitIdle() && rig.look([&](const Window& window) {
            const QStringList rows = window.rows();
            const auto remove = [&](int row, QMessageBox::StandardButton button) {
                const ModalAnswer<QMessageBox> answer([&](QMessageBox& box) {
                    QVERIFY(box.text().contains(rows[row].section(u'|', 0, 0)));
                    QTest::mouseClick(box.button(button), Qt::LeftButton);
                });
                window.clickRow(row);
                click(&window.dialog, "deleteButton");
                QVERIFY(answer.wasShown());
            };
            QVERIFY(!window.isEnabled("putBackButton") && !window.isEnabled("onlyConnectedBox"));
            remove(0, QMessageBox::No);
            remove(1, QMessageBox::Yes);
            QVERIFY(window.find<QLabel>("noteLabel").text().contains(atWork.writing->entry().id));
            QCOMPARE(window.rows(), rows);
            remove(0, QMessageBox::Yes);
            QCOMPARE(window.rows(), QStringList(rows[1]));
        }));
    }

    void unfinishedWriteIsOfferedForItsSensorAlone()
    {
        struct Row
        {
            const char* name;
            std::function<void(JournalEntry&)> change;
            bool offered = false;
        };
        forEachRow(
            std::vector<Row>{
                {"another version", [](auto& entry) { entry.version = "3A0101"; }},
                {"another device", [](auto& entry) { entry.device += u'x'; }},
                {"another sensor", [](auto& entry) { entry.values['F'] = "SN012346"; }},
                {"text not known", [](auto& entry) { entry.values.erase('F'); }, true},
                {"its text written",
                 [](auto& entry) {
                     entry.values['F'] = "SN012346";
                     entry.written['F'] = "SN012345";
                 },
                 true}},
            [](const Row& row) {
                StatesRig rig;
                JournalEntry entry = state(1);
                row.change(entry);
                rig.keep(entry);
                QVERIFY(rig.startConnected());
                QCOMPARE(rig.noticeText().contains(QStringLiteral("4 Mar 2026 05:01:07")),
                         row.offered);
            });
    }

    void putBackFromTheListSettlesWhatWasUnfinished()
    {
        struct Row
        {
            const char* name;
            const char* offset; ///< that the sensor has
            const char* answer; ///< to the question about what is entered on the page
            const char* written;
            bool settled;
        };
        forEachRow(std::vector<Row>{{"written back", "00000A", "answer1", "NN000064 EN", true},
                                    {"already as it was", "000064", "answer1", "", true},
                                    {"entries kept", "00000A", "answer0", "", false}},
                   [](const Row& row) {
                       StatesRig rig;
                       rig.keep(state(1));
                       rig.sensor().setParameter('N', row.offset);
                       QVERIFY(rig.startConnected() && rig.choosePage(2));
                       QTest::keyClick(rig.page<OutputSetupPage>().getControl<QWidget>(1004),
                                       Qt::Key_Home);
                       (void)rig.frames();
                       const ModalAnswer<EarlierStatesDialog> list(
                           [](auto& dialog) { click(&dialog, "putBackButton"); });
                       const ModalAnswer<QMessageBox> boxes(
                           [&row](QMessageBox& box) {
                               auto* answer =
                                   box.findChild<QAbstractButton*>(QLatin1String(row.answer));
                               QTest::mouseClick(answer ? answer : box.button(QMessageBox::Ok),
                                                 Qt::LeftButton);
                           },
                           false);
                       const ModalAnswer<ReviewDialog> review([](ReviewDialog& dialog) {
                           QTest::mouseClick(dialog.getControl<QWidget>(1), Qt::LeftButton);
                       });
                       QVERIFY(rig.clickCommand(kEarlierStatesCommand));
                       QVERIFY(waitFor([&] { return list.wasShown() && boxes.wasShown(); }));
                       QVERIFY(rig.waitIdle());
                       QVERIFY(waitFor([] { return !QApplication::activeModalWidget(); }));
                       QCOMPARE(rig.writtenFrames(), QLatin1String(row.written));
                       QCOMPARE(rig.journal.unfinished().isEmpty(), row.settled);
                       QCOMPARE(rig.window().currentPage(), *row.written ? 0 : 2);
                   });
    }

    void everythingIsToldOneAfterTheOtherAndOnceInARun()
    {
        StatesRig rig;
        for (const int minute : {3, 4})
            rig.keep(state(minute), End{Kind::NotChecked, Reason::Closed, false});
        for (const int minute : {1, 2})
            rig.keep(state(minute));
        rig.start();
        const QString untold = rig.noticeText();
        QVERIFY(untold.contains(QStringLiteral("05:03:07, ")));
        QVERIFY(untold.contains(QStringLiteral("05:04:07, ")));
        QVERIFY(waitFor([&] { return rig.window().currentPage() == 0; }) && rig.waitIdle());
        QCOMPARE(rig.noticeText(), untold);
        for (const int row : {0, 2}) { // the newest of them, then the unfinished one
            QVERIFY(rig.look(
                [row](const Window& window) {
                    QCOMPARE(window.find<QTableWidget>("entryList").currentRow(), row);
                },
                [](StatesRig& opened) { click(&opened.window(), "noticeButton1"); }));
            QVERIFY(rig.noticeText().contains(QStringLiteral("05:02:07")));
        }
        click(&rig.window(), "noticeButton2"); // Forget
        QVERIFY(rig.noticeText().contains(QStringLiteral("05:01:07")));
        for (const JournalEntry& entry : rig.journal.entries().mid(0, 3))
            QVERIFY((entry.end == End{Kind::NotChecked, Reason::Closed, true}));

        rig.keep(state(5), End{Kind::Differs, Reason::None, false});
        auto& strip = rig.page<NoticeStrip>();
        CommandGate gate(rig.window());
        WriteReport later(rig.window(),
                          {rig.page<SafeWriter>(), gate, strip, rig.page<LinkStatusBar>()});
        later.tellUntold();
        QVERIFY(rig.noticeText().contains(QStringLiteral("05:01:07")));
        QCOMPARE(rig.journal.untold().size(), 1); // it waits, and was not seen
        QTest::keyClick(&rig.window(), Qt::Key_Escape);
        QVERIFY(rig.noticeText().contains(QStringLiteral("05:05:07")));
        QCOMPARE(rig.journal.untold().size(), 0);

        QTest::keyClick(&rig.window(), Qt::Key_Escape);
        QVERIFY(rig.clickCommand(kConnectCommand));
        QVERIFY(waitFor([&] { return rig.connects() == 2; }));
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.noticeText(), QString());
    }
};

QTEST_MAIN(TestEarlierStates)
#include "TestEarlierStates.moc"
