#include "app/Commands.h"
#include "app/PagePane.h"
#include "display/DisplayUnitDialog.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "pages/SettingsDialog.h"
#include "platform/core/SettingsLocation.h"
#include "support/ChangedVariable.h"
#include "support/FileContent.h"
#include "support/FileDialogUser.h"
#include "support/FileSizeLimit.h"
#include "support/MainWindowRig.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

enum Tab { kTypes, kGeneral, kPorts, kPackages, kDisplay };

constexpr int kTempCompPage = 5;

/// The settings dialog as a user has it.
struct Dialog
{
    SettingsDialog& dialog;

    template <class Control>
    [[nodiscard]] Control& find(const char* name) const
    {
        return *dialog.findChild<Control*>(QLatin1String(name));
    }
    void chooseTab(Tab tab) const
    {
        QTabBar& bar = *find<QTabWidget>("tabs").tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(tab).center());
    }
    void click(const char* button) const
    {
        auto& control = find<QAbstractButton>(button);
        QTest::mouseClick(&control, Qt::LeftButton, {}, {10, control.height() / 2});
    }
    void type(const char* edit, const QString& text) const
    {
        typeInto(find<QLineEdit>(edit), text);
    }
    /// Opens a cell and types.
    void type(const char* list, int row, int column, const QString& text) const
    {
        auto& table = find<QTableWidget>(list);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                          table.visualItemRect(table.item(row, column)).center());
        typeInto(*qobject_cast<QLineEdit*>(table.indexWidget(table.model()->index(row, column))),
                 text);
    }
    void accept() const { click("okButton"); }
    [[nodiscard]] QString problem() const { return find<QLabel>("noteLabel").text(); }

private:
    static void typeInto(QLineEdit& edit, const QString& text)
    {
        edit.setFocus();
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        QTest::keyClicks(&edit, text);
    }
};

class SettingsRig : public MainWindowRig
{
public:
    using MainWindowRig::MainWindowRig;

    /// Opens the dialog, takes the steps and gives up what they have left open.
    [[nodiscard]] bool change(const std::function<void(const Dialog&)>& steps)
    {
        const ModalAnswer<SettingsDialog> user([&](SettingsDialog& dialog) {
            steps({dialog});
            if (dialog.isVisible())
                dialog.reject();
        });
        return waitIdle() && clickCommand(kSettingsCommand) &&
               waitFor([&] { return user.wasShown() && !QApplication::activeModalWidget(); });
    }
    [[nodiscard]] QByteArray file() const { return contentOf(settings().path()); }
    [[nodiscard]] int shownPages() { return pageList().count(); }
    [[nodiscard]] bool isDisplayOpen() { return window().findChild<DisplayUnitDialog*>(); }
};

} // namespace

/// The settings, changed by clicks while the program runs.
class TestSettingsCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsChangedHoldsAtOnce()
    {
        struct Row
        {
            const char* name;
            std::function<void(const Dialog&)> steps;
            QByteArray inFile;
            std::function<bool(SettingsRig&)> follows;
        };
        const std::vector<Row> rows{
            {"a range that leaves the sensor out",
             [](const Dialog& dialog) { dialog.type("low2Edit", u"3b"_s); },
             "\"Type2Low\"=dword:0000003b\r\n",
             [](SettingsRig& rig) { return rig.logged().contains(u"SSY Type: Unknown"_s); }},
            {"supply by hand",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kGeneral);
                 dialog.click("manualPowerBox");
             },
             "\"ManualPowerMode\"=dword:00000001\r\n",
             [](SettingsRig& rig) { return rig.connects() == 2; }},
            {"page for temperature compensation",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kGeneral);
                 dialog.click("tempCompBox");
             },
             "\"EnableTempComp\"=dword:00000001\r\n",
             [](SettingsRig& rig) { return rig.choosePage(kTempCompPage); }},
            {"display unit",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kDisplay);
                 dialog.click("displayBox");
                 dialog.find<QComboBox>("displayPortCombo").setEditText(u"COM9"_s);
             },
             "\"EnableQDL3\"=dword:00000001\r\n\"QDL3Comport\"=\"COM9\"\r\n",
             [](SettingsRig& rig) {
                 return rig.clickCommand(kDisplayUnitCommand) &&
                        waitFor([&rig] { return rig.isDisplayOpen(); });
             }},
            {"packages of another file",
             [](const Dialog& dialog) {
                 const TestFolder folder;
                 dialog.chooseTab(kPackages);
                 const auto problemOf = [&](const QByteArray& packages) {
                     const FileDialogUser user(folder.path(u"other.reg"_s));
                     const bool there = folder.put(u"other.reg"_s, "REGEDIT4\n" + packages);
                     dialog.click("importButton");
                     return there ? dialog.problem() : u"not there"_s;
                 };
                 QVERIFY(problemOf({}).contains(u"no sensor packages"_s));
                 QVERIFY(problemOf("?\n").contains(u"damaged in line 2"_s));
                 const QByteArray key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\"
                                        "Package Parameters\\Package";
                 QCOMPARE(problemOf(key + "0]\n\"Name\"=\"A\"\n" + key + "1]\n\"Name\"=\"B\"\n" +
                                    key + "2]\n\"Name\"=\"B\"\n" + // replaces it
                                    "\"SEDistance\"=\"5\"\n"),
                          QString());
                 dialog.type("packageList", 1, 2, u"6"_s);
                 dialog.type("packageList", 0, 0, {}); // goes
                 dialog.click("removeButton");
             },
             "\\Package0]\r\n\"Name\"=\"B\"\r\n\"SEDistance\"=\"5\"\r\n\"InactiveZone\"=\"6\"",
             [](SettingsRig& rig) { return !rig.file().contains("Package1"); }},
            {"package",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kPackages);
                 dialog.click("addButton");
                 dialog.type("packageList", 0, 0, u"Rod"_s);
                 dialog.type("packageList", 0, 1, u"50.80"_s);
                 dialog.type("packageList", 0, 2, u"63"_s);
             },
             "\\Package0]\r\n\"Name\"=\"Rod\"\r\n\"SEDistance\"=\"50.8\"\r\n"
             "\"InactiveZone\"=\"63\"\r\n",
             [](SettingsRig& rig) { return rig.link().isIdentified(); }}};
        forEachRow(rows, [](const Row& row) {
            SettingsRig rig;
            QVERIFY(rig.startConnected());
            const ModalAnswer<QMessageBox> supply( // switched by hand
                [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, false);
            QVERIFY(rig.change([&row](const Dialog& dialog) {
                row.steps(dialog);
                dialog.accept();
                QVERIFY2(!dialog.dialog.isVisible(), qPrintable(dialog.problem()));
            }));
            QVERIFY2(rig.file().contains(row.inFile), rig.file());
            QVERIFY(waitFor([&] { return row.follows(rig); }));
        });
    }

    void whatCannotBeUsedIsRefusedAtItsField()
    {
        struct Row
        {
            const char* name;
            std::function<void(const Dialog&)> steps;
            Tab tab;
            const char* problem;
        };
        const std::vector<Row> rows{
            {"low above high", [](const Dialog& dialog) { dialog.type("high1Edit", u"1f"_s); },
             kTypes, "Type 1: "},
            {"two devices",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kPorts);
                 dialog.type("portList", 1, PortNumberList::kNumberColumn, u"8"_s);
             },
             kPorts, "COM8 "},
            {"package without a name",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kPackages);
                 dialog.click("addButton");
             },
             kPackages, "row 1 "},
            {"sensor and display unit",
             [](const Dialog& dialog) {
                 dialog.chooseTab(kDisplay);
                 dialog.click("displayBox");
                 dialog.find<QComboBox>("displayPortCombo").setEditText(u"COM7"_s);
             },
             kDisplay, "COM7"}};
        SettingsRig rig({.type = 2}, "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                     "\"/dev/a\"=\"COM8\"\r\n\"/dev/b\"=\"COM9\"\r\n");
        QVERIFY(rig.startConnected());
        const QByteArray before = rig.file();
        forEachRow(rows, [&](const Row& row) {
            QVERIFY(rig.change([&row](const Dialog& dialog) {
                row.steps(dialog);
                dialog.chooseTab(kGeneral);
                dialog.accept();
                QVERIFY(dialog.dialog.isVisible());
                QVERIFY2(dialog.problem().contains(QLatin1String(row.problem)),
                         qPrintable(dialog.problem()));
                QCOMPARE(dialog.find<QTabWidget>("tabs").currentIndex(), int{row.tab});
                QVERIFY(QApplication::focusWidget() != &dialog.find<QWidget>("okButton"));
            }));
            QCOMPARE(rig.file(), before);
        });
    }

    void anotherDeviceUnderTheOpenPortIsNotTalkedTo()
    {
        SettingsRig rig({.type = 2}, "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                     "\"/dev/a\"=\"COM8\"\r\n");
        QVERIFY(rig.startConnected() && rig.choosePage(2));
        QTest::keyClick(&rig.page<QComboBox>("dataBitsCombo"), Qt::Key_Home);
        const int attempts = rig.openAttempts();
        int asked = 0;
        const ModalAnswer<QMessageBox> told(
            [](QMessageBox& box) { // that the port has moved, then whether to discard
                auto* discard = box.findChild<QAbstractButton*>(u"answer1"_s);
                QTest::mouseClick(discard ? discard : box.button(QMessageBox::Ok), Qt::LeftButton);
            },
            false);
        const ModalAnswer<SelectPortDialog> user(
            [&](SelectPortDialog& dialog) {
                QVERIFY(!rig.link().isOpen() && !rig.link().isIdentified());
                const bool again = ++asked == 2;
                dialog.findChild<SerialPortComboBox*>()->selectPort(7);
                QTest::keyClick(&dialog, again ? Qt::Key_Return : Qt::Key_Escape);
            },
            false);
        QVERIFY(rig.change([](const Dialog& dialog) {
            dialog.chooseTab(kPorts);
            dialog.type("portList", 0, PortNumberList::kNumberColumn, u"com7"_s);
            dialog.accept();
        }));
        QVERIFY(waitFor([&] { return asked == 1 && !QApplication::activeModalWidget(); }));
        QVERIFY(rig.waitIdle() && rig.openAttempts() == attempts && rig.link().openedPort() == 0);
        QVERIFY(rig.noticeText().startsWith(u"No port is open"));
        QVERIFY(rig.change([](const Dialog& dialog) {
            dialog.type("high2Edit", u"3e"_s);
            dialog.accept(); // after which there is nothing to connect
        }));
        QVERIFY(rig.waitIdle() && !rig.runner().isConnectWanted());
        QVERIFY(rig.clickCommand(kSelectPortCommand));
        QVERIFY(waitFor([&] { return rig.link().openedPort() == 7 && rig.link().isIdentified(); }));
    }

    void streamAndDisplayUnitGiveWay()
    {
        SettingsRig rig({.type = 2}, kProductKey +
                                         "\"EnableQDL3\"=dword:1\r\n\"QDL3Comport\"=\"COM9\"\r\n"
                                         "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                         "\"simulator:display\"=\"COM9\"\r\n");
        QVERIFY(rig.startConnected() && rig.clickCommand(kDisplayUnitCommand));
        QVERIFY(waitFor([&rig] { return rig.isDisplayOpen(); }));
        QString told;
        const ModalAnswer<QMessageBox> box([&told](QMessageBox& shown) {
            told = shown.text();
            shown.accept();
        });
        const ModalAnswer<SelectPortDialog> ports([](SelectPortDialog& dialog) {
            dialog.findChild<SerialPortComboBox*>()->selectPort(9);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        QVERIFY(rig.clickCommand(kSelectPortCommand));
        QVERIFY(waitFor([&] { return told.startsWith(u"COM9 is the port of the display"_s); }));
        rig.window().activateWindow();
        rig.clickPage(1);
        const std::string own = rig.sensor().parameter('D');
        QVERIFY(waitFor([&] { return rig.sensor().parameter('D') != own && rig.waitIdle(); }));
        QVERIFY(rig.change([&](const Dialog& dialog) {
            QVERIFY(waitFor([&] { return rig.sensor().parameter('D') == own && rig.waitIdle(); }));
            dialog.chooseTab(kDisplay);
            dialog.find<QSpinBox>("nodeSpin").setValue(3);
            dialog.accept();
        }));
        QVERIFY(waitFor([&] { return !rig.isDisplayOpen(); }));
        QVERIFY(waitFor([&] { return rig.sensor().parameter('D') != own; })); // and goes on
    }

    void tablesAreGivenUpByTheUserAlone()
    {
        const QByteArray own = kProductKey + "\"EnableTempComp\"=dword:1\r\n";
        SettingsRig rig({.type = 2}, own);
        QVERIFY(rig.startConnected() && rig.choosePage(kTempCompPage));
        rig.page<QTableWidget>("lookupList").item(2, 1)->setText(u"20"_s);
        int asked = 0;
        const ModalAnswer<QMessageBox> user(
            [&](QMessageBox& box) {
                const auto answer = ++asked == 3 ? QMessageBox::Yes : QMessageBox::No;
                QTest::mouseClick(box.button(answer), Qt::LeftButton);
            },
            false);
        rig.settings().write({}); // by another window
        QVERIFY(rig.change([&](const Dialog& dialog) {
            dialog.accept();
            QVERIFY(asked == 1 && dialog.dialog.isVisible());
        }));
        rig.settings().write(own);
        QVERIFY(rig.change([&](const Dialog& dialog) {
            dialog.chooseTab(kGeneral);
            dialog.click("tempCompBox");
            dialog.accept();
            QVERIFY(asked == 2 && dialog.dialog.isVisible());
            QCOMPARE(rig.shownPages(), 6);
            dialog.accept();
        }));
        QVERIFY(asked == 3 && rig.shownPages() == 5);
        QVERIFY(waitFor([&] { return rig.window().currentPage() == 0; }) && rig.waitIdle());
    }

    void fileThatHasChangedOrIsDamagedIsLeftAlone()
    {
        SettingsRig rig;
        QVERIFY(rig.startConnected());
        int answer = 0;
        const ModalAnswer<QMessageBox> user(
            [&](QMessageBox& box) {
                auto* button = box.findChild<QPushButton*>(u"answer%1"_s.arg(answer));
                QTest::mouseClick(button, Qt::LeftButton);
            },
            false);
        const QByteArray others = kSimulatedBounds + "\"Others\"=\"1\"\r\n";
        QVERIFY(rig.change([&](const Dialog& dialog) {
            rig.settings().write(kSimulatedBounds + "; newer");
            dialog.accept(); // nothing was changed here
            QVERIFY(!dialog.dialog.isVisible());
        }));
        QVERIFY(rig.file().endsWith("; newer"));
        for (const bool readAgain : {true, false}) {
            answer = readAgain ? 1 : 0;
            QVERIFY(rig.change([&](const Dialog& dialog) {
                rig.settings().write(others);
                dialog.type("high2Edit", u"3e"_s);
                dialog.accept();
                QVERIFY(dialog.dialog.isVisible() == readAgain);
                QCOMPARE(dialog.find<QLineEdit>("high2Edit").text(), readAgain ? u"3F"_s : u"3e"_s);
            }));
            QVERIFY(rig.file().endsWith(others) == readAgain);
        }
        QVERIFY(rig.change([&rig](const Dialog& dialog) {
            dialog.type("high2Edit", u"3d"_s);
            const FileSizeLimit limit(20);
            dialog.accept();
            QVERIFY(dialog.problem().contains(u"could not be written"_s));
            QVERIFY(rig.runner().start(dialog.dialog, readPlan("A"), {})); // whatever has begun it
            static_cast<QDialog&>(dialog.dialog).accept(); // as assistive technology does
            QVERIFY(dialog.problem().startsWith(u"The sensor is in use"_s));
        }));
        rig.settings().write(others + "damaged\r\n");
        QVERIFY(rig.change([](const Dialog& dialog) {
            QVERIFY(dialog.problem().contains(u"line 11"_s));
            QVERIFY(!dialog.find<QWidget>("okButton").isEnabled());
            QVERIFY(dialog.find<QLineEdit>("low0Edit").isReadOnly());
        }));
    }

    void ownFileIsMadeAndGivenUpAgain()
    {
        const TestFolder folder;
        SettingsRig rig;
        QVERIFY(rig.startConnected());
        const ChangedVariable config("XDG_CONFIG_HOME", folder.path({}).toUtf8());
        qunsetenv("PELORIN_REGISTRY");
        const QString own = folder.path(u"pelorin/pelorin.reg"_s);
        QVERIFY(rig.change([&](const Dialog& dialog) {
            const QString text = dialog.find<QLabel>("fileLabel").text();
            QVERIFY(text.contains(own) && text.contains(programFolder()));
            QVERIFY(!dialog.find<QWidget>("siteButton").isVisible());
            dialog.type("low1Edit", u"20"_s);
            dialog.type("high1Edit", u"2F"_s);
            dialog.chooseTab(kGeneral);
            dialog.click("tempCompBox");
            dialog.accept();
        }));
        QVERIFY(rig.waitIdle() && rig.choosePage(kTempCompPage));
        rig.page<QTableWidget>("lookupList").item(2, 1)->setText(u"20"_s);
        QVERIFY(contentOf(own).contains("\"Type1Low\"=dword:00000020"));
        QVERIFY(folder.put(u"pelorin/pelorin.reg.old"_s, "former"));
        int asked = 0;
        const ModalAnswer<QMessageBox> user(
            [&](QMessageBox& box) { // the tables go only at the second time
                const auto answer = ++asked == 2 ? QMessageBox::No : QMessageBox::Yes;
                QTest::mouseClick(box.button(answer), Qt::LeftButton);
            },
            false);
        QVERIFY(rig.change([&](const Dialog& dialog) {
            dialog.click("siteButton");
            QVERIFY(asked == 2 && dialog.dialog.isVisible() && QFileInfo::exists(own));
            dialog.click("siteButton");
        }));
        QVERIFY(!QFileInfo::exists(own) && QFileInfo::exists(own + u".old2"_s));
        QCOMPARE(contentOf(own + u".old"_s), "former");
    }
};

QTEST_MAIN(TestSettingsCommand)
#include "TestSettingsCommand.moc"
