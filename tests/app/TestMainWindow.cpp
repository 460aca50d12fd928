#include "app/Commands.h"
#include "app/ConnectionSupervisor.h"
#include "display/DisplayUnitDialog.h"
#include "pages/AboutDialog.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "platform/ui/MessageBox.h"
#include "simulator/PtyServer.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QListWidget>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTextBrowser>

#include <atomic>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// F1 shows what the help says of the page.
    void keysChooseThePagesAndTheirHelp()
    {
        MainWindowRig rig({}, kProductKey + "\"EnableTempComp\"=dword:1\r\n");
        QVERIFY(rig.startConnected());
        const auto press = [&rig](int key, Qt::KeyboardModifiers modifiers) {
            rig.window().activateWindow();
            const bool isActive = QTest::qWaitForWindowActive(&rig.window());
            QTest::keyClick(&rig.window(), Qt::Key(key), modifiers);
            return isActive && rig.waitIdle();
        };
        rig.languages().setHelpFile(1, u"help/none.html"_s);
        QString told;
        const ModalAnswer<QMessageBox> box([&told](QMessageBox& shown) {
            told = shown.text();
            shown.accept();
        });
        QVERIFY(press(Qt::Key_F1, {}) && waitFor([&told] { return !told.isEmpty(); }));
        QVERIFY(told.startsWith(u"The help could not be shown (language 1, error"_s));
        rig.languages().setHelpFile(1, u"help/pelorin_1.html"_s);
        int row = 0;
        for (const QString& chapter : {u"information"_s, u"position"_s, u"output"_s, u"log"_s,
                                       u"factory"_s, u"compensation"_s}) {
            QVERIFY(press(Qt::Key_1 + row, Qt::ControlModifier));
            QVERIFY(waitFor([&] { return rig.window().currentPage() == row; }) && rig.waitIdle());
            QVERIFY(press(Qt::Key_F1, {}));
            const auto* text = rig.window().findChild<QTextBrowser*>(u"helpText"_s);
            QVERIFY(text && text->isVisible() && text->toPlainText().size() > 1000);
            QCOMPARE(text->source().fragment(), chapter);
            QVERIFY(text->window()->close());
            ++row;
        }
        QVERIFY(press(Qt::Key_1 + row, Qt::ControlModifier)); // beyond the list
        QCOMPARE(rig.window().currentPage(), row - 1);
        QCOMPARE(rig.pageList().count(), row);
    }

    /// The selected row is that of the shown page, whatever the list makes of keys and of clicks
    /// that end while the program is busy.
    void pageListMovesByArrowsAndChoosesByEnterAndClick()
    {
        MainWindowRig rig;
        QVERIFY(rig.startConnected());
        auto& list = rig.pageList();
        const auto isShown = [&](int row) {
            return rig.window().currentPage() == row &&
                   list.selectedItems() == QList{list.item(row)};
        };
        for (const auto choose : {Qt::Key_Return, Qt::Key_Space}) {
            for (const auto& [key, row] : {std::pair(Qt::Key_End, 4),
                                           {Qt::Key_Up, 3},
                                           {Qt::Key_Home, 0},
                                           {Qt::Key_Down, 1}}) {
                QTest::keyClick(&list, key);
                QCOMPARE(list.currentRow(), row);
                QVERIFY(isShown(0));
            }
            QTest::keyClick(&list, choose);
            QVERIFY(waitFor([&] { return isShown(1); }) && rig.waitIdle());
            QVERIFY(rig.choosePage(0));
        }

        (void)rig.frames();
        rig.clickPage(0); // is shown already
        QVERIFY(rig.waitIdle());
        const QPoint last = list.visualItemRect(list.item(4)).center();
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, last);
        QVERIFY(isShown(0));
        QTest::keyClick(&rig.window(), Qt::Key_F5);
        QCoreApplication::sendPostedEvents(&rig.window());
        QVERIFY(rig.window().isBusy());
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, last);
        rig.clickPage(1);
        QTest::keyClick(&list, Qt::Key_Down);
        rig.page<QPushButton>("refreshButton").setFocus();
        (void)rig.clickCommand(kAboutCommand);
        QVERIFY(rig.waitIdle() && isShown(0));
        QCOMPARE(list.currentRow(), 0);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(rig.frames().count(u"VA"_s), 1);
    }

    void menuFollowsTheLanguageAndTheSensor()
    {
        MainWindowRig rig;
        QVERIFY(rig.startConnected());
        QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
        QVERIFY(waitFor([&rig] { return rig.statusText() == u"Bereit."_s; }));
        auto* menu = rig.window().menuBar()->actions().at(2)->menu();
        Q_EMIT menu->aboutToShow();
        QStringList shown{rig.pageList().item(0)->text(), rig.lightText().section(u':', 0, 0)};
        for (const auto* action : menu->actions())
            shown << (action->isChecked() ? action->text() : QString()).remove(u'&');
        QCOMPARE(shown.join(u'|'), u"Sensorinformation|Grün||Deutsch|||"_s);

        rig.runner().reserveConnect(*rig.window().findChild<ConnectionSupervisor*>());
        (void)rig.frames();
        const ModalAnswer<QMessageBox> answer([](QMessageBox& box) {
            QVERIFY(box.text().startsWith(u"Der Sensor wird gerade verbunden"_s));
            box.accept();
        });
        QVERIFY(rig.clickCommand(kWriteECommand));
        QVERIFY(waitFor([&answer] { return answer.wasShown(); }) && rig.waitIdle());
        QCOMPARE(rig.frames(), QString());

        MainWindowRig other({.type = 1});
        QVERIFY(other.startConnected());
        QVERIFY(!other.clickCommand(kWriteECommand) && !other.clickCommand(kWriteQCommand));
        QVERIFY(!other.clickCommand(kDisplayUnitCommand)); // is not there
        QVERIFY(other.clickCommand(kExitCommand));
        QVERIFY(waitFor([&other] { return !other.window().isVisible(); }));
    }

    void closingEndsWhatWasBegun()
    {
        struct Row
        {
            const char* name;
            int command;
            const char* sent;
        };
        const std::vector<Row> rows = {
            {"dialog and its question", kAboutCommand, ""},
            {"dialog of the display unit", kDisplayUnitCommand, ""},
            {"connect", kConnectCommand, ""},
            {"command", kWriteECommand, "EN"},
            {"other command", kWriteQCommand, "QN"},
        };
        forEachRow(rows, [](const Row& row) {
            MainWindowRig rig({}, kProductKey + "\"EnableQDL3\"=dword:1\r\n"
                                                "\"QDL3Comport\"=\"simulator:display\"\r\n");
            QVERIFY(rig.startConnected());
            rig.sensor().setFault({SimulatedFault::Kind::Silent});
            const ModalAnswer<QMessageBox> question([&rig](auto&) { rig.window().close(); });
            const ModalAnswer<AboutDialog> about([](auto& dialog) { warn(&dialog, u"!"_s); });
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            (void)rig.frames();
            QVERIFY(rig.clickCommand(row.command));
            QCoreApplication::sendPostedEvents(&rig.window());
            if (row.command == kConnectCommand)
                QVERIFY(waitFor([&rig] { return rig.window().isBusy(); }));
            rig.window().close();
            QVERIFY(rig.window().isVisible());
            QVERIFY(waitFor([&closed] { return closed.size() == 1; }));
            QVERIFY(!rig.window().isVisible() && !rig.link().isOpen());
            QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
            QCOMPARE(rig.frames(), QLatin1String(row.sent));
        });
    }

    /// A wedged adapter holds its driver's calls for half a minute.
    void closingDoesNotWaitForADriverThatHangs()
    {
        struct Hold
        {
            std::mutex mutex;
            std::atomic<int> held = 0;
        };
        for (const bool closes : {false, true}) {
            const auto hold = std::make_shared<Hold>();
            PosixCalls calls = PosixCalls::real();
            auto& call = closes ? calls.close : calls.tcdrain;
            call = [hold, real = call](int fd) {
                ++hold->held;
                const std::lock_guard lock(hold->mutex);
                --hold->held;
                return real(fd);
            };
            MainWindowRig rig({.supply = SimulatedSensor::Supply::ByLineSpeed});
            PtyServer server(std::shared_ptr<SimulatedSensor>(&rig.sensor(), [](auto*) {}));
            QCOMPARE(server.start(), 0);
            rig.wrapPorts([&](std::unique_ptr<ComPort> /*other*/) {
                return std::make_unique<TermiosComPort>(server.path(), calls);
            });
            const auto users = hold.use_count();
            QVERIFY(rig.startConnected());
            std::unique_lock hanging(hold->mutex);
            if (!closes) {
                rig.clickRefresh();
                QVERIFY(waitFor([&] { return hold->held == 1 && rig.window().isBusy(); }));
            }
            Pacing::setSpeeds({100, 200, 50}); // 15 seconds are the limit
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"COM7"_s));
            rig.window().close();
            QVERIFY(waitFor([&rig] { return !rig.window().isVisible(); }));
            QCOMPARE(hold->held, 1);
            hanging.unlock();
            QVERIFY(waitFor([&] { return hold.use_count() == users; })); // what was left has ended
        }
    }

    void portOfTheDisplayUnitThatIsNotClosedIsTold()
    {
        MainWindowRig rig({}, kProductKey + "\"EnableQDL3\"=dword:1\r\n"
                                            "\"QDL3Comport\"=\"simulator:display\"\r\n");
        const auto hold = std::make_shared<std::mutex>();
        rig.wrapPorts([&hold](std::unique_ptr<ComPort> port) {
            return std::make_unique<HeldPort>(std::move(port), hold);
        });
        QVERIFY(rig.startConnected() && rig.clickCommand(kDisplayUnitCommand));
        const auto dialog = [&rig] { return rig.window().findChild<DisplayUnitDialog*>(); };
        QVERIFY(waitFor(dialog));
        const auto& button = *dialog()->findChild<QPushButton*>(u"applyButton"_s);
        QVERIFY(waitFor([&] { return button.isEnabled(); })); // it is set up
        QString told;
        const ModalAnswer<QMessageBox> box([&told](QMessageBox& message) {
            told = message.text();
            message.accept();
        });
        std::unique_lock closing(*hold);
        Pacing::setSpeeds({100, 200, 50});
        dialog()->close();
        QVERIFY(waitFor([&] { return !told.isEmpty() && !dialog(); }));
        QVERIFY(told.startsWith(u"simulator:display could not be closed"_s));
        QVERIFY(!rig.window().isBusy());
    }
};

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
