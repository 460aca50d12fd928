#include "app/PelorinApp.h"

#include "app/Commands.h"
#include "app/MainMenu.h"
#include "app/PelorinMainWindow.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "platform/core/TerminationSignals.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"
#include "support/FileSizeLimit.h"
#include "support/PortDecorator.h"
#include "support/Rows.h"
#include "support/TestFolder.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"
#include "system/Program.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>

#include <cerrno>
#include <csignal>
#include <mutex>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

struct Run;
using Answer = std::function<void(QDialog&, Run&)>;

/// What comes up, and what the user does then.
struct Turn
{
    QString said; ///< how a box's text or a dialog's title begins
    Answer answer;
};
using Talk = QList<Turn>;

/// One run of the program on settings and a profile of its own, and its user. SETTINGS and PROFILE
/// stand for the paths of these files in what is said. What is not expected is closed.
struct Run
{
    explicit Run(const QByteArray& settingsText, const Talk& expected = {})
        : settings(settingsText), talk(expected)
    {
        qputenv("XDG_CONFIG_HOME", folder.path({}).toUtf8());
        qputenv("XDG_DATA_HOME", folder.path({}).toUtf8());
        QObject::connect(&poll, &QTimer::timeout, &poll, [this] { look(); });
        poll.start(5);
    }

    /// As the program does it, until there is a main window or the program ends.
    /// @return the port of the main window, 0 without one, -1 if the program ends at once
    [[nodiscard]] int start(const QString& commandLine = {})
    {
        app = std::make_unique<PelorinApp>(factory);
        QObject::connect(&signals, &TerminationSignals::received, app.get(),
                         &PelorinApp::requestClose);
        QObject::connect(app.get(), &PelorinApp::closed, app.get(), [this] { ++closed; });
        if (!app->initInstance(commandLine))
            return -1;
        (void)waitFor([this] { return app->mainWindow() || closed > 0; });
        return app->mainWindow() ? app->link().openedPort() : 0;
    }

    /// Ends the program, unless it has ended, by its window or as a signal does. It tells once that
    /// its window is closed; without one it may tell twice that it ends.
    /// @return what came up unexpectedly, and what did not come up
    [[nodiscard]] QString end(bool byWindow = false)
    {
        if (byWindow)
            app->mainWindow()->close();
        else if (closed == 0)
            app->requestClose();
        if (!waitFor([this] { return closed > 0; }) || (app->mainWindow() && closed > 1))
            misheard << u"closed %1 times"_s.arg(closed);
        app->exitInstance();
        for (const Turn& turn : talk)
            misheard << u"not said: "_s + turn.said;
        return misheard.join(u'|');
    }

    void look()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isActiveWindow())
            return;
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        QString said = box ? box->text() : dialog->windowTitle();
        said.replace(settings.path(), u"SETTINGS"_s).replace(profile, u"PROFILE"_s);
        if (!talk.isEmpty() && said.startsWith(talk.front().said))
            return talk.takeFirst().answer(*dialog, *this);
        misheard << said;
        dialog->close();
    }

    const TestFolder folder;
    const QString profile = folder.path(u"Korvex Systems/Pelorin.ini"_s);
    const TestRegistry settings;
    const TerminationSignals signals;
    Talk talk; ///< what is still to be said
    QStringList misheard;
    QTimer poll;
    SimulatedPorts ports;
    std::shared_ptr<std::mutex> hold = std::make_shared<std::mutex>(); ///< keeps COM10 from opening
    ComPortFactory factory{[this](const QString& device) -> std::unique_ptr<ComPort> {
        auto port = ports.makePort(device);
        if (!device.endsWith(u"type=2"_s))
            return port;
        return std::make_unique<HeldPort>(std::move(port), hold, HeldPort::Call::Open);
    }};
    int closed = 0; ///< how often the program has told it
    std::unique_ptr<PelorinApp> app;
};

const QByteArray kPath = kProductKey + "\"Path\"=\"C:\\\\Pelorin\"\r\n";
const QByteArray kHelp = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Help Files]\r\n";
/// COM5 is mapped to a device that is not there.
const QByteArray kPorts = "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                          "\"simulator:sensor?type=0\"=\"COM1\"\r\n"
                          "\"simulator:sensor?type=1\"=\"COM7\"\r\n"
                          "\"simulator:sensor?type=2\"=\"COM10\"\r\n"
                          "\"/nonexistent/tty\"=\"COM5\"\r\n" +
                          kSimulatedBounds;
const QByteArray kSettings = kPath + kHelp + kPorts;
const QByteArray kOne = "[Setup]\nCOMPort=1\nLanguage=1\n";
const QByteArray kFive = "[Setup]\nCOMPort=5\nLanguage=1\n";
const QByteArray kSeven = "[Setup]\nCOMPort=7\nLanguage=1\n";

Answer click(QMessageBox::StandardButton button)
{
    return [button](QDialog& dialog, Run& /*run*/) {
        QTest::mouseClick(dynamic_cast<QMessageBox&>(dialog).button(button), Qt::LeftButton);
    };
}

const Answer kOk = click(QMessageBox::Ok);
const Answer kAbort = click(QMessageBox::Abort);
const Answer kRetry = click(QMessageBox::Retry);
const Answer kIgnore = click(QMessageBox::Ignore);

/// The program is asked to end, and what is open goes by itself.
const Answer kSignal = [](QDialog& dialog, Run& /*run*/) {
    QCOMPARE(::raise(SIGTERM), 0);
    QVERIFY(waitFor([&dialog] { return !dialog.isVisible(); }));
};

/// Why a port is not open, from the link, and the question what to do.
Talk notOpen(int port, const Answer& next)
{
    return {{u"Port \\\\.\\COM%1 could not be opened (system error 2)."_s.arg(port), kOk},
            {u"COM%1 could not be opened."_s.arg(port), next}};
}

/// Accepts a port, or cancels without one.
Turn choosePort(int port)
{
    return {u"Select Communications Port"_s, [port](QDialog& dialog, Run& /*run*/) {
                dialog.findChild<SerialPortComboBox*>()->selectPort(port);
                port == 0 ? dialog.reject() : dialog.accept();
            }};
}

/// Clicks what the start offers besides the ports.
Turn start(const QString& button)
{
    return {u"Select Communications Port"_s, [button](QDialog& dialog, Run& /*run*/) {
                QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
            }};
}

/// Chooses an item of the main menu, if that can be chosen.
void choose(const QWidget& window, int command)
{
    for (QAction* item : window.findChildren<QAction*>()) {
        if (item->data().toInt() == command)
            item->trigger();
    }
}

/// A start, and the end of the program when it is through.
struct Start
{
    const char* name;
    QString commandLine;
    QByteArray profile; ///< null for a folder in its place
    int port;           ///< 0 if the user gives up, -1 if the program ends at once
    QByteArray stored;
    Talk talk = {};
    QByteArray settings = kSettings;
};

void check(const std::vector<Start>& starts)
{
    forEachRow(starts, [](const Start& row) {
        Run run(row.settings, row.talk);
        QVERIFY(row.profile.isNull() ? QDir().mkpath(run.profile)
                                     : putContent(run.profile, row.profile));
        QCOMPARE(run.start(row.commandLine), row.port);
        QCOMPARE(run.app->link().hasOpened(), row.port > 0);
        const auto* window = run.app->mainWindow();
        QVERIFY(!window || (window->isVisible() && window->isMaximized()));
        QCOMPARE(run.end(window), QString());
        QCOMPARE(contentOf(run.profile), row.stored);
    });
}

} // namespace

class TestPelorinApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Pacing::setSpeeds({100, 200, 2}); }

    /// The port of the command line is for one run.
    void portComesFromTheCommandLineOrTheProfile()
    {
        check({
            {"empty profile", {}, "", 1, kOne},
            {"profile", {}, kSeven, 7, kSeven},
            {"only a port", {}, "[Setup]\nCOMPort=10\n", 10, "[Setup]\nCOMPort=10\nLanguage=1\n"},
            {"switch", u"/CP:7"_s, "", 7, "[Setup]\nLanguage=1\n"},
            {"one digit", u"/CP:7x"_s, kFive, 7, kFive},
            {"first of two, three digits", u"-x /CP:103 /CP:7"_s, kFive, 10, kFive},
            {"nothing behind the switch", u"/CP:"_s, kSeven, 7, kSeven},
        });
    }

    /// A signal ends the start whatever is asked.
    void portThatCannotBeOpenedIsAskedFor()
    {
        const Talk reason{{notOpen(5, kOk).front().said, kSignal}};
        const Talk which = notOpen(5, kIgnore) << Turn{choosePort(0).said, kSignal};
        check({
            {"Retry, Abort", {}, kFive, 0, kFive, notOpen(5, kRetry) + notOpen(5, kAbort)},
            {"another port", {}, kFive, 7, kSeven, notOpen(5, kIgnore) << choosePort(7)},
            {"Cancel", {}, kFive, 0, kFive, notOpen(5, kIgnore) << choosePort(0)},
            {"for one run", u"/CP:5"_s, kSeven, 10, kSeven, notOpen(5, kIgnore) << choosePort(10)},
            {"no digit", u"/CP:X7"_s, kFive, 7, kFive, notOpen(0, kIgnore) << choosePort(7)},
            {"signal at the reason", {}, kFive, 0, kFive, reason},
            {"signal at the list", {}, kFive, 0, kFive, which},
            {"signal later", {}, kFive, 0, kFive, notOpen(5, kRetry) + notOpen(5, kSignal)},
        });
    }

    /// Nobody has chosen a port that is not there: the list comes at once.
    void firstRunWithoutItsPortOffersAll()
    {
        const QByteArray settings =
            QByteArray(kSettings).replace("type=0\"=\"COM1\"", "type=0\"=\"COM9\"") +
            "\r\n[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
            "\"/nonexistent/tty1\"=\"COM1\"\r\n";
        const QByteArray language = "[Setup]\nLanguage=1\n";
        const QByteArray other = "[Other]\nLanguage=2\n";
        check({
            {"a port", {}, language, 7, kSeven, {choosePort(7)}, settings},
            {"Cancel", {}, language, 0, language, {choosePort(0)}, settings},
            {"demonstration", {}, other, 0, other, {start(u"demonstrationButton"_s)}, settings},
            {"chosen before", {}, kOne, 0, kOne, notOpen(1, kAbort), settings},
        });
    }

    void openingThatTakesLongIsToldAndNeedNotBeWaitedFor()
    {
        const QString said = u"COM10 is being opened."_s;
        const Answer release = [](QDialog& /*box*/, Run& run) {
            run.hold->unlock();
            QVERIFY(waitFor([] { return !QApplication::activeModalWidget(); })); // by itself
        };
        struct Row
        {
            const char* name;
            Talk talk;
            int port;
        };
        forEachRow(std::vector<Row>{{"waited for", {{said, release}}, 10},
                                    {"left", {{said, kOk}, choosePort(7)}, 7}},
                   [](const Row& row) {
                       Run run(kSettings, row.talk);
                       run.hold->lock();
                       QCOMPARE(run.start(u"/CP:10"_s), row.port);
                       if (row.port != 10)
                           run.hold->unlock();
                       QCOMPARE(run.end(), QString());
                   });
    }

    void withoutAPortAllWorksThatNeedsNoSensor()
    {
        Run run(kSettings, notOpen(5, kIgnore) << start(u"withoutPortButton"_s) << choosePort(5)
                                               << notOpen(5, kOk).front() << choosePort(7));
        QVERIFY(putContent(run.profile, kFive));
        QCOMPARE(run.start(), 0);
        const auto& window = *run.app->mainWindow();
        const auto text = [&window](const char* name) {
            return window.findChild<QLabel*>(QLatin1String(name))->text();
        };
        const auto possible = [&window](int command) {
            return window.findChild<MainMenu*>()->isPossible(command);
        };
        QCOMPARE(text("portPane"), u"No port"_s);
        QCOMPARE(window.findChild<QLabel*>(u"linkLight"_s)->accessibleDescription(),
                 u"Gray: no exchange yet"_s);
        QVERIFY(text("noticeText").startsWith(u"No port is open"));
        QVERIFY(!possible(kConnectCommand) && possible(kSelectPortCommand));
        QVERIFY(waitFor([&] { return text("messagePane").startsWith(u"Not connected"); }));
        const auto clickUntilSaid = [&](qsizetype left) { // what comes while it reads is dropped
            return waitFor([&, left] {
                if (!QApplication::activeModalWidget() && run.talk.size() > left)
                    QTest::mouseClick(window.findChild<QPushButton*>(u"noticeButton1"_s),
                                      Qt::LeftButton);
                return run.talk.size() == left;
            });
        };
        QVERIFY(clickUntilSaid(1));
        QVERIFY(clickUntilSaid(0));
        QVERIFY(waitFor([&] { return run.app->link().isIdentified() && !window.isBusy(); }));
        QCOMPARE(text("portPane"), u"COM7"_s);
        QVERIFY(text("noticeText").isEmpty() && possible(kConnectCommand));
        QCOMPARE(run.end(true), QString());
        QCOMPARE(contentOf(run.profile), kSeven);
    }

    void whatCannotBeUsedIsNamed()
    {
        const QByteArray rest = kHelp + kPorts;
        const QByteArray elsewhere = kProductKey + "\"Path\"=\"elsewhere\"\r\n" + rest;
        const QByteArray cut = kProductKey + "\"Path\"=\"C:\\\\Pelorin\r\n" + rest;
        const QByteArray german = "[Setup]\nCOMPort=7\nLanguage=2\n";
        const QByteArray unknown = "[Setup]\nCOMPort=7\nLanguage=3\n";
        const QByteArray broken = "[Setup\nCOMPort=7\n";
        const Turn noPath{u"Unable to initialize language subsystem."_s, kOk};
        const Turn noEnglish{u"Unable to load language DLL code language code 1."_s, kOk};
        const Turn noUnknown{u"Unable to load language DLL code language code 3."_s, kOk};
        const Turn damaged{u"The settings file SETTINGS is damaged in line 4."_s, kOk};
        const Turn inGerman{u"Die Einstellungsdatei SETTINGS ist in Zeile 4"_s, kOk};
        const Turn noHelp{u"Es sind keine Hilfedateien eingetragen."_s, kOk};
        const Turn signal{u"No help files are configured."_s, kSignal};
        const QString noProfile = u"The profile PROFILE is damaged."_s;
        check({
            {"no path", {}, kSeven, -1, kSeven, {noPath}, kProductKey + rest},
            {"no languages", {}, kSeven, -1, kSeven, {noEnglish}, elsewhere},
            {"unknown language", {}, unknown, -1, unknown, {noUnknown}},
            {"settings", {}, unknown, -1, unknown, {damaged, noPath}, cut},
            {"settings in German", {}, german, -1, german, {inGerman, noPath}, cut},
            {"no help", {}, german, 7, german, {noHelp}, kPath + kPorts},
            {"no help, a signal", {}, kSeven, 0, kSeven, {signal}, kPath + kPorts},
            {"profile", {}, broken, 1, kOne, {{noProfile, kOk}}},
            {"unreadable profile", {}, {}, 1, {}, {{u"The file PROFILE cannot be read"_s, kOk}}},
            {"both", {}, broken, -1, broken, {damaged, {noProfile, kOk}, noPath}, cut},
            {"both until a signal", {}, broken, -1, broken, {damaged, {noProfile, kSignal}}, cut},
        });
    }

    void profileThatCannotBeWrittenIsToldUnlessTheProgramMustEnd()
    {
        const Turn told{u"The file PROFILE could not be written: File too large."_s, kSignal};
        for (const bool mustEnd : {false, true}) {
            Run run(kSettings, mustEnd ? Talk() : Talk{told});
            QCOMPARE(run.start(), 1);
            if (mustEnd)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"File too large"_s));
            const FileSizeLimit limit(20);
            QCOMPARE(run.end(!mustEnd), QString());
            QVERIFY(!QFile::exists(run.profile));
        }
    }

    void languageChosenHasItsHelpFileAndIsStored()
    {
        Run run({});
        QVERIFY(run.folder.put(u"16.html"_s, "Aiuto"));
        const QByteArray help = run.folder.path(u"16.html"_s).toUtf8();
        run.settings.write(kPath + kHelp + "\"Lang16\"=\"" + help + "\"\r\n" + kPorts);
        QCOMPARE(run.start(), 1);
        const auto& window = *run.app->mainWindow();
        QVERIFY(waitFor([&] { return window.currentPage() == 0 && !window.isBusy(); }));
        choose(window, kFirstLanguageCommand + 4);
        choose(window, kHelpCommand);
        const auto text = [&window] { return window.findChild<QTextBrowser*>(); };
        QVERIFY(waitFor([&] { return text() && text()->isVisible(); }));
        QCOMPARE(text()->toPlainText(), u"Aiuto"_s);
        QVERIFY(waitFor([&] { return window.windowTitle().contains(u"simulata"_s); }));
        QCOMPARE(run.end(), QString());
        QCOMPARE(contentOf(run.profile), QByteArray("[Setup]\nCOMPort=1\nLanguage=16\n"));
    }

    /// While a question is open above a dialog. What the desktop wants of the session is nothing to
    /// the program, so it gets none here.
    void endOfTheDesktopSessionClosesTheWindow()
    {
        const Answer enterOlderFile = [](QDialog& dialog, Run& run) {
            dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(run.settings.path());
            QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        };
        const Answer endSession = [](QDialog& /*dialog*/, Run& run) {
            const QMetaObject& desktop = QGuiApplication::staticMetaObject;
            const int ending = desktop.indexOfSignal("commitDataRequest(QSessionManager&)");
            void* arguments[] = {nullptr, nullptr};
            const QDeadlineTimer limit(30'000);
            QMetaObject::activate(qApp, ending, arguments);
            QVERIFY(!limit.hasExpired() && !run.app->link().isOpen());
            const auto sensor = run.ports.sensor(u"simulator:sensor?type=0"_s);
            QCOMPARE(sensor->mode(), SimulatedSensor::Mode::Off);
        };
        Run run(kSettings, {{u"Save"_s, enterOlderFile}, {u"test.reg already"_s, endSession}});
        QCOMPARE(run.start(), 1);
        const auto& window = *run.app->mainWindow();
        QVERIFY(waitFor([&] { return window.currentPage() == 0 && !window.isBusy(); }));
        choose(window, kSaveBackupCommand);
        QVERIFY(waitFor([&] { return run.closed == 1 && !window.isVisible(); }));
        run.app->requestClose(); // as a signal might come, too
        QCoreApplication::processEvents();
        QCOMPARE(run.end(), QString());
    }

    void portThatIsSlowToOpenKeepsNoProgramFromEnding()
    {
        const auto hold = std::make_shared<std::mutex>();
        Run run(kSettings);
        run.factory.addScheme(u"simulator:"_s, [&](const QString& name) {
            return std::make_unique<HeldPort>(run.ports.makePort(name), hold, HeldPort::Call::Open);
        });
        std::unique_lock opening(*hold);
        QTimer::singleShot(0, [&run] { run.app->requestClose(); });
        QCOMPARE(run.start(), 0);
        QCOMPARE(run.end(), QString());
        QCOMPARE(contentOf(run.profile), QByteArray("[Setup]\nLanguage=1\n"));
        opening.unlock();
        QVERIFY(waitFor([&hold] { return hold.use_count() == 1; }));
        QCOMPARE(run.closed, 1);
        QVERIFY(!run.app->mainWindow());
    }

    /// The port is stored only if it is open when the signal comes, so the program gets ever more
    /// time for that.
    void signalEndsTheProgramItself()
    {
        const Run run(kSettings);
        int wait = 50; // ms
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            for (; contentOf(run.profile) != kOne; wait *= 2) {
                QVERIFY(wait < 30'000);
                Program pelorin(QStringLiteral(PELORIN_PROGRAM), {});
                QTest::qWait(wait);
                QVERIFY2(pelorin.endBy(signal) == 0, qPrintable(u"signal %1"_s.arg(signal)));
            }
            QVERIFY(QFile::remove(run.profile));
        }
    }

    /// Also when nobody reads and the pipe behind it is full.
    void floodOfSignalsIsOneThatLeavesWhatItInterruptsAlone()
    {
        const TerminationSignals signals;
        const QSignalSpy received(&signals, &TerminationSignals::received);
        for (int count = 0; count < 70'000; ++count) {
            errno = ENODEV;
            (void)::raise(SIGTERM);
        }
        QCOMPARE(errno, ENODEV);
        QVERIFY(waitFor([&received] { return received.size() == 1; }));
    }
};

QTEST_MAIN(TestPelorinApp)
#include "TestPelorinApp.moc"
