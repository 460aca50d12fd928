#include "app/ProgramRun.h"

#include "app/Commands.h"
#include "app/PelorinMainWindow.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "platform/core/TerminationSignals.h"
#include "platform/core/TermiosComPort.h"
#include "platform/ui/HelpWindow.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"
#include "support/FileContent.h"
#include "support/FileSizeLimit.h"
#include "support/PortDecorator.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <csignal>
#include <functional>
#include <memory>
#include <vector>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QByteArray kKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";
const QByteArray kPath = kKey + "\"Path\"=\"C:\\\\Pelorin\"\r\n";
const QByteArray kHelp = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Help Files]\r\n";
/// COM5 and COM6 are mapped to devices that are not there.
const QByteArray kPorts = "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                          "\"simulator:sensor?type=0\"=\"COM1\"\r\n"
                          "\"simulator:sensor?type=1\"=\"COM7\"\r\n"
                          "\"simulator:sensor?type=2\"=\"COM12\"\r\n"
                          "\"/nonexistent/ttyA\"=\"COM5\"\r\n"
                          "\"/nonexistent/ttyB\"=\"COM6\"\r\n";
const QByteArray kSettings = kPath + kHelp + kPorts + kSimulatedBounds;

const QString kNoPath = QStringLiteral("Unable to initialize language subsystem. Please "
                                       "reinstall application!");
const QString kNoHelp =
    QStringLiteral("No help files are configured. The program starts without help.");

QString noLanguage(int code)
{
    return QStringLiteral("Unable to load language DLL code language code %1. Please reinstall "
                          "application!")
        .arg(code);
}

/// What is said when a port cannot be opened: first by the link, then with the question.
QStringList notOpen(int port)
{
    return {QStringLiteral("Port \\\\.\\COM%1 could not be opened (system error 2).").arg(port),
            QStringLiteral("COM%1 could not be opened.").arg(port)};
}

QByteArray profileOf(int port, int language)
{
    return QStringLiteral("[Setup]\nCOMPort=%1\nLanguage=%2\n").arg(port).arg(language).toUtf8();
}

/// An answer to a kind of dialog; another one is closed, which shows in what was said.
template <class Dialog>
Answer answerTo(std::function<void(Dialog&)> steps)
{
    return [steps](QDialog& dialog) {
        if (auto* expected = qobject_cast<Dialog*>(&dialog))
            steps(*expected);
        else
            dialog.close();
    };
}

Answer click(QMessageBox::StandardButton button)
{
    return answerTo<QMessageBox>(
        [button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
}

Answer clickInPortDialog(int button)
{
    return answerTo<SelectPortDialog>([button](SelectPortDialog& dialog) {
        QTest::mouseClick(dialog.getControl<QPushButton>(button), Qt::LeftButton);
    });
}

/// Chooses a port by the keyboard.
Answer choosePort(int port)
{
    return answerTo<SelectPortDialog>([port](SelectPortDialog& dialog) {
        auto* list = dialog.getControl<SerialPortComboBox>(1001);
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < list->count() && list->getSelectedPort() != port; ++step)
            QTest::keyClick(list, Qt::Key_Down);
        clickInPortDialog(1)(dialog);
    });
}

const Answer kOk = click(QMessageBox::Ok);
const Answer kAbort = click(QMessageBox::Abort);
const Answer kRetry = click(QMessageBox::Retry);
const Answer kIgnore = click(QMessageBox::Ignore);
const Answer kCancelPorts = clickInPortDialog(2);

/// Chooses an item of the main menu. @return false if there is none, or none that can be chosen
bool choose(const PelorinMainWindow& window, int command)
{
    for (const QAction* menu : window.menuBar()->actions()) {
        for (QAction* item : menu->menu() ? menu->menu()->actions() : QList<QAction*>()) {
            if (item->data().toInt() == command && item->isEnabled()) {
                item->trigger();
                return true;
            }
        }
    }
    return false;
}

} // namespace

class TestPelorinApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Pacing::setSpeeds({100, 200, 2}); }
    void portComesFromTheCommandLineOrTheProfile_data();
    void portComesFromTheCommandLineOrTheProfile();
    void portThatCannotBeOpenedIsAskedFor_data();
    void portThatCannotBeOpenedIsAskedFor();
    void portPluggedInMeanwhileOpensOnRetry();
    void installationThatCannotBeUsedEndsTheStart_data();
    void installationThatCannotBeUsedEndsTheStart();
    void languageChosenHasItsHelpFileAndIsStored();
    void damagedFilesAreNamed_data();
    void damagedFilesAreNamed();
    void profileThatCannotBeWrittenIsToldUnlessTheProgramMustEnd();
    void profileThatCannotBeReadIsToldOnce();
    void endOfTheDesktopSessionClosesTheWindow_data();
    void endOfTheDesktopSessionClosesTheWindow();
    void portThatIsSlowToOpenKeepsNoProgramFromEnding();
    void signalEndsTheStartWhateverIsAsked_data();
    void signalEndsTheStartWhateverIsAsked();
};

void TestPelorinApp::portComesFromTheCommandLineOrTheProfile_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QByteArray>("profile");
    QTest::addColumn<int>("port");
    QTest::addColumn<QByteArray>("stored");
    const auto add = [](const char* commandLine, const QByteArray& profile, int port,
                        const QByteArray& stored) {
        QTest::addRow("\"%s\" with %s", commandLine,
                      profile.isEmpty() ? "no profile" : profile.simplified().constData())
            << QString::fromLatin1(commandLine) << profile << port << stored;
    };
    const QByteArray onlyLanguage = "[Setup]\nLanguage=1\n";
    add("", {}, 1, profileOf(1, 1));
    add("", profileOf(7, 1), 7, profileOf(7, 1));
    add("", "[Setup]\nCOMPort=12\nOther=text\n", 12,
        "[Setup]\nCOMPort=12\nLanguage=1\nOther=text\n");
    // The port of the command line is for one run.
    add("/CP:7", {}, 7, onlyLanguage);
    add("/CP:123", profileOf(5, 1), 12, profileOf(5, 1));
    add("/CP:7x", profileOf(5, 1), 7, profileOf(5, 1));
    add("-x /CP:12 file", profileOf(5, 1), 12, profileOf(5, 1));
    add("/CP:7 /CP:12", profileOf(5, 1), 7, profileOf(5, 1));
    // At the very end the switch says nothing.
    add("/CP:", profileOf(7, 1), 7, profileOf(7, 1));
}

void TestPelorinApp::portComesFromTheCommandLineOrTheProfile()
{
    QFETCH(QString, commandLine);
    QFETCH(QByteArray, profile);
    QFETCH(int, port);
    QFETCH(QByteArray, stored);

    Run run(kSettings, profile, {});
    QVERIFY(run.start(commandLine));
    QCOMPARE(run.port(), port);
    QVERIFY(run.app->mainWindow()->isVisible());
    QVERIFY(run.app->mainWindow()->isMaximized());
    QVERIFY(run.end());
    QCOMPARE(run.user.heard(), QStringList());
    QCOMPARE(contentOf(run.profilePath()), stored);
}

void TestPelorinApp::portThatCannotBeOpenedIsAskedFor_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<Answers>("answers");
    QTest::addColumn<QStringList>("said");
    QTest::addColumn<int>("port");
    QTest::addColumn<QByteArray>("stored");
    const QStringList ports{QStringLiteral("Select Communications Port")};
    const QByteArray kept = profileOf(5, 1);

    QTest::newRow("Retry, Abort") << QString() << Answers{kOk, kRetry, kOk, kAbort}
                                  << notOpen(5) + notOpen(5) << 0 << kept;
    QTest::newRow("Ignore, another port") << QString() << Answers{kOk, kIgnore, choosePort(7)}
                                          << notOpen(5) + ports << 7 << profileOf(7, 1);
    QTest::newRow("Ignore, Cancel")
        << QString() << Answers{kOk, kIgnore, kCancelPorts} << notOpen(5) + ports << 0 << kept;
    QTest::newRow("two ports that are not there")
        << QStringLiteral("/CP:6")
        << Answers{kOk, kIgnore, choosePort(6), kOk, kIgnore, choosePort(12)}
        << notOpen(6) + ports + notOpen(6) + ports << 12 << kept;
    QTest::newRow("no digit behind the switch, another port")
        << QStringLiteral("/CP:X7") << Answers{kOk, kIgnore, choosePort(7)} << notOpen(0) + ports
        << 7 << kept;
}

/// The profile names COM5, which is not there.
void TestPelorinApp::portThatCannotBeOpenedIsAskedFor()
{
    QFETCH(QString, commandLine);
    QFETCH(Answers, answers);
    QFETCH(QStringList, said);
    QFETCH(int, port);
    QFETCH(QByteArray, stored);

    Run run(kSettings, profileOf(5, 1), answers);
    QVERIFY(run.start(commandLine)); // giving up is no failure
    QCOMPARE(run.port(), port);
    QVERIFY(run.end());
    QCOMPARE(run.user.heard(), said);
    QCOMPARE(contentOf(run.profilePath()), stored);
}

/// Without help files, which is said once, in the language of the profile.
void TestPelorinApp::portPluggedInMeanwhileOpensOnRetry()
{
    std::shared_ptr<SimulatedSensor> sensor;
    Run run(kPath + kPorts, profileOf(7, 2), {kOk, kOk, [&sensor](QDialog& box) {
                                                  sensor->comeBack();
                                                  kRetry(box);
                                              }});
    sensor = run.ports.sensor(QStringLiteral("simulator:sensor?type=1"));
    sensor->vanish();
    QVERIFY(run.start());
    QCOMPARE(run.port(), 7);
    QCOMPARE(run.user.heard().size(), 3);
    QVERIFY(run.user.heard().first().startsWith(QStringLiteral("Es sind keine Hilfe")));
    QCOMPARE(run.user.heard().last(), QStringLiteral("COM7 konnte nicht ge\u00f6ffnet werden."));
    QVERIFY(run.end());
}

void TestPelorinApp::installationThatCannotBeUsedEndsTheStart_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("profile");
    QTest::addColumn<QString>("said");
    const QByteArray rest = kHelp + kPorts;
    QTest::newRow("no installation path") << kKey + rest << profileOf(7, 1) << kNoPath;
    QTest::newRow("empty installation path")
        << kKey + "\"Path\"=\"\"\r\n" + rest << profileOf(7, 1) << kNoPath;
    QTest::newRow("path without languages")
        << kKey + "\"Path\"=\"elsewhere\"\r\n" + rest << profileOf(7, 1) << noLanguage(1);
    QTest::newRow("unknown language") << kSettings << profileOf(7, 3) << noLanguage(3);
}

void TestPelorinApp::installationThatCannotBeUsedEndsTheStart()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, profile);
    QFETCH(QString, said);

    Run run(settings, profile, {kOk});
    QVERIFY(!run.start());
    QCOMPARE(run.user.heard(), QStringList(said));
    QVERIFY(!run.app->mainWindow());
    QVERIFY(!run.app->link().hasOpened());
    QCOMPARE(contentOf(run.profilePath()), profile);
}

/// Goes through the languages of the menu; the last one is that of the next start.
void TestPelorinApp::languageChosenHasItsHelpFileAndIsStored()
{
    const QTemporaryDir folder;
    QByteArray help = kHelp;
    for (const QByteArray code : {"1", "2", "4", "8", "16"}) {
        const QString path = folder.filePath(QString::fromLatin1(code + ".html"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("<p>Help " + code + "</p>") > 0);
        help += "\"Lang" + code + "\"=\"" + path.toUtf8() + "\"\r\n";
    }
    Run run(kPath + help + kPorts + kSimulatedBounds, profileOf(7, 2), {});
    QVERIFY(run.start());
    auto& window = *run.app->mainWindow();
    for (int language = 4; language >= 0; --language) {
        QTRY_VERIFY(window.currentPage() == 0 && !window.isBusy());
        QVERIFY(choose(window, kFirstLanguageCommand + language));
        QVERIFY(choose(window, kHelpCommand));
        QTRY_VERIFY(window.findChild<HelpWindow*>() &&
                    window.findChild<HelpWindow*>()->isVisible());
        const QTextBrowser* const text = window.findChild<QTextBrowser*>();
        QCOMPARE(text->toPlainText(), QStringLiteral("Help %1").arg(1 << language));
        text->window()->close();
    }
    QVERIFY(choose(window, kFirstLanguageCommand + 3));
    QTRY_VERIFY(!window.isBusy() && window.windowTitle().contains(QStringLiteral("simulado")));
    QVERIFY(run.end());
    QCOMPARE(contentOf(run.profilePath()), profileOf(7, 8));
}

void TestPelorinApp::damagedFilesAreNamed_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("profile");
    QTest::addColumn<QStringList>("said"); // %1 is the settings file, %2 the profile
    QTest::addColumn<int>("port");
    const QString damaged =
        QStringLiteral("The settings file %1 is damaged in line 4. None of its settings are used.");
    const QString geschaedigt = QStringLiteral(
        "Die Einstellungsdatei %1 ist in Zeile 4 besch\u00e4digt. Keine ihrer Einstellungen wird "
        "verwendet.");
    const QString damagedProfile = QStringLiteral(
        "The profile %2 is damaged. Standard values are used; a copy is kept beside it.");
    const QByteArray cut = kKey + "\"Path\"=\"C:\\\\Pelorin\r\n" + kHelp + kPorts;

    QTest::newRow("settings, in German")
        << cut << profileOf(7, 2) << QStringList{geschaedigt, kNoPath} << 0;
    QTest::newRow("settings, without a known language")
        << cut << profileOf(7, 3) << QStringList{damaged, kNoPath} << 0;
    QTest::newRow("profile") << kSettings << QByteArray("[Setup\nCOMPort=7\n")
                             << QStringList{damagedProfile} << 1;
    QTest::newRow("both") << cut << QByteArray("COM7")
                          << QStringList{damaged, damagedProfile, kNoPath} << 0;
}

void TestPelorinApp::damagedFilesAreNamed()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, profile);
    QFETCH(QStringList, said);
    QFETCH(int, port);

    Run run(settings, profile, Answers(said.size(), kOk));
    said.replaceInStrings(QStringLiteral("%1"), run.settingsPath());
    said.replaceInStrings(QStringLiteral("%2"), run.profilePath());
    QCOMPARE(run.start(), port != 0);
    QCOMPARE(run.user.heard(), said);
    QCOMPARE(run.port(), port);
    QCOMPARE(contentOf(run.profilePath()), profile);
    if (port != 0) {
        QVERIFY(run.end());
        QCOMPARE(contentOf(run.profilePath()), profileOf(port, 1));
        QCOMPARE(contentOf(run.profilePath() + QStringLiteral(".damaged")), profile);
    }
}

void TestPelorinApp::profileThatCannotBeWrittenIsToldUnlessTheProgramMustEnd()
{
    const QByteArray profile = "[Setup]\nCOMPort=7\n";
    for (const bool mustEnd : {false, true}) {
        // What asks the program to end while the box is shown closes it.
        Run* current = nullptr;
        bool wentByItself = false;
        Run run(kSettings, profile, {[&](QDialog& dialog) {
                    current->app->requestClose();
                    wentByItself = !dialog.isVisible();
                }});
        current = &run;
        QVERIFY(run.start());
        const QString message =
            QStringLiteral("The file %1 could not be written: File too large. A file of this name "
                           "that was there before is unchanged.")
                .arg(run.profilePath());
        const FileSizeLimit limit(20);
        const QSignalSpy closed(run.app.get(), &PelorinApp::closed);
        if (mustEnd) {
            run.app->requestClose();
            QTest::ignoreMessage(QtWarningMsg, qPrintable(message));
        } else {
            run.app->mainWindow()->close();
        }
        QTRY_COMPARE(closed.size(), 1);
        run.app->exitInstance();
        QCOMPARE(run.user.heard(), mustEnd ? QStringList() : QStringList(message));
        QCOMPARE(wentByItself, !mustEnd);
        QCOMPARE(contentOf(run.profilePath()), profile);
    }
}

void TestPelorinApp::profileThatCannotBeReadIsToldOnce()
{
    Run run(kSettings, {}, {kOk});
    QVERIFY(QDir().mkpath(run.profilePath()));
    run.restart();
    QVERIFY(run.start());
    QVERIFY(run.end());
    QCOMPARE(
        run.user.heard(),
        QStringList(QStringLiteral("The file %1 cannot be read: Is a directory. Its settings are "
                                   "not used.")
                        .arg(run.profilePath())));
}

void TestPelorinApp::endOfTheDesktopSessionClosesTheWindow_data()
{
    QTest::addColumn<int>("command"); // that has something open
    QTest::addColumn<QString>("open");
    QTest::newRow("nothing open") << 0 << QString();
    QTest::newRow("the About dialog") << int{kAboutCommand} << "About Pelorin";
    QTest::newRow("a message") << int{kHelpCommand} << "The help could";
    QTest::newRow("a question of the restore")
        << int{kRestoreBackupCommand} << "The file holds texts";
}

/// What the desktop wants of the session is nothing to the program, so it gets none here.
void TestPelorinApp::endOfTheDesktopSessionClosesTheWindow()
{
    QFETCH(int, command);
    QFETCH(QString, open);
    const QTemporaryDir folder;
    const QString backup = folder.filePath(QStringLiteral("odd.dat"));
    QFile file(backup);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("~~~PELORIN_BACKUP_FILE~~~\r\n41:00000010\r\n44:020018\r\n4C:0A0500\r\n"
               "4E:000000\r\n50:0000A5F0\r\n53:02 60X\r\n55:283000\r\n5A:068332\r\n");
    file.close();
    Answers answers;
    if (command == kRestoreBackupCommand) {
        answers << answerTo<QFileDialog>([&backup](QFileDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(backup);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }
    Run* current = nullptr;
    QElapsedTimer lasted;
    bool isLeft = false;
    const auto endSession = [&] {
        const int ending =
            QGuiApplication::staticMetaObject.indexOfSignal("commitDataRequest(QSessionManager&)");
        void* arguments[] = {nullptr, nullptr};
        lasted.start();
        QMetaObject::activate(qApp, ending, arguments);
        isLeft = !lasted.hasExpired(10'000) && !current->app->link().isOpen() &&
                 current->ports.sensor(QStringLiteral("simulator:sensor?type=0"))->mode() ==
                     SimulatedSensor::Mode::Off;
    };
    answers << [&endSession](QDialog&) { endSession(); };
    Run run(kSettings, profileOf(1, 1), answers);
    current = &run;
    QVERIFY(run.start());
    const auto& window = *run.app->mainWindow();
    QTRY_VERIFY(window.currentPage() == 0 && !window.isBusy());
    const QSignalSpy closed(run.app.get(), &PelorinApp::closed);
    if (command != 0)
        QVERIFY(choose(window, command));
    else
        endSession();
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(lasted.isValid() && isLeft);
    QVERIFY2(command == 0 || run.user.heard().last().startsWith(open),
             qPrintable(run.user.heard().join(u'|')));
    QVERIFY(!window.isVisible());
    run.app->requestClose(); // as a signal might come, too
    QCoreApplication::processEvents();
    QCOMPARE(closed.size(), 1);
}

void TestPelorinApp::portThatIsSlowToOpenKeepsNoProgramFromEnding()
{
    for (const bool returns : {true, false}) {
        const auto hold = std::make_shared<std::mutex>();
        Run run(kSettings, profileOf(7, 1), {});
        run.wrapper = [&hold](std::unique_ptr<ComPort> port) {
            return std::make_unique<HeldPort>(std::move(port), hold, HeldPort::Call::Open);
        };
        std::unique_lock opening(*hold);
        const QSignalSpy closed(run.app.get(), &PelorinApp::closed);
        QVERIFY(run.app->initInstance({}));
        run.app->requestClose();
        QVERIFY(closed.isEmpty());
        if (returns)
            opening.unlock();
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(!run.app->mainWindow());
        run.app->exitInstance();
        QCOMPARE(contentOf(run.profilePath()), profileOf(7, 1));
        if (!returns)
            opening.unlock();
        QTRY_COMPARE(hold.use_count(), 1);
        QCOMPARE(closed.size(), 1);
    }
}

void TestPelorinApp::signalEndsTheStartWhateverIsAsked_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("profile");
    QTest::addColumn<Answers>("answers"); // up to what is asked when the signal comes
    QTest::addColumn<QString>("asked");
    const QByteArray kept = profileOf(5, 1);
    const QByteArray damaged = "[Setup\nCOMPort=7\n";
    const auto add = [](const char* name, const QByteArray& settings, const QByteArray& profile,
                        const Answers& answers, const QString& asked) {
        QTest::newRow(name) << settings << profile << answers << asked;
    };
    add("settings, then profile", "damaged", damaged, {kOk}, QStringLiteral("The profile"));
    add("no help files", kPath + kPorts, kept, {}, kNoHelp);
    add("why the port is not open", kSettings, kept, {}, notOpen(5).first());
    add("which port", kSettings, kept, {kOk, kIgnore}, QStringLiteral("Select Comm"));
    add("after a retry", kSettings, kept, {kOk, kRetry, kOk}, notOpen(5).last());
}

/// Nothing more is asked then, and no port is opened.
void TestPelorinApp::signalEndsTheStartWhateverIsAsked()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, profile);
    QFETCH(Answers, answers);
    QFETCH(QString, asked);

    const auto answered = answers.size();
    bool wentByItself = false;
    answers << [&wentByItself](QDialog& dialog) {
        QCOMPARE(::raise(SIGTERM), 0);
        wentByItself = QTest::qWaitFor([&dialog] { return !dialog.isVisible(); });
    };
    Run run(settings, profile, answers);
    const bool started = run.start();
    QVERIFY(wentByItself);
    QCOMPARE(run.user.heard().size(), answered + 1);
    QVERIFY2(run.user.heard().last().startsWith(asked), qPrintable(run.user.heard().last()));
    QVERIFY(!run.app->mainWindow());
    QVERIFY(!run.app->link().hasOpened());
    if (started && profile == profileOf(5, 1)) {
        QVERIFY(run.end());
        QCOMPARE(contentOf(run.profilePath()), profile);
    }
}

QTEST_MAIN(TestPelorinApp)
#include "TestPelorinApp.moc"
