#include "Script.h"

#include "app/Commands.h"
#include "app/NoticeStrip.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"
#include "platform/ui/HelpWindow.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QProgressBar>

#include <bit>
#include <memory>

namespace pelorin {

namespace {

using Steps = std::vector<Tour::Step>;
using Sensor = std::shared_ptr<SimulatedSensor>;

// The pages, by the numbers of their captions.
constexpr int kRecordingLines = 10;
constexpr int kInformation = 110;
constexpr int kOutputSetup = 168;
constexpr int kLog = 188;
constexpr int kFactory = 214;
constexpr int kTempComp = 253;
constexpr int kPosition = 261;

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isHalfDone()
{
    const QWidget* dialog = QApplication::activeModalWidget();
    const auto* bar = dialog ? dialog->findChild<QProgressBar*>() : nullptr;
    return bar && bar->value() > bar->maximum() / 2;
}

/// Whether the file of the settings has what is entered in the tour, and nothing else is changed.
bool areEntered()
{
    QByteArray expected = contentOf(programFolder() + QStringLiteral("/demo.reg"));
    expected.replace("\"Type1High\"=dword:0000002f", "\"Type1High\"=dword:0000002e");
    expected.replace("\"SEDistance\"=\"28.0\"", "\"SEDistance\"=\"28.5\"");
    return contentOf(registryFilePath()) == expected;
}

/// Whether a window that is on top of the main window has the control.
std::function<bool()> isShown(const char* control)
{
    return [control] {
        const QWidget* dialog = QApplication::activeModalWidget();
        return dialog && dialog->findChild<QWidget*>(QLatin1String(control)) != nullptr;
    };
}

bool isAsking()
{
    return QApplication::activeModalWidget() != nullptr;
}

bool noDialog()
{
    return !isAsking();
}

std::function<bool()> says(Tour& tour, int text)
{
    return [&tour, text] { return tour.textOf("messagePane") == languageString(text); };
}

Tour::Step holds(const Sensor& sensor, char parameter, const char* text)
{
    return Tour::expect("the sensor holds what was written",
                        [=] { return sensor->parameter(parameter) == text; });
}

Tour::Step printHeld(Tour& tour, const Sensor& sensor, char parameter)
{
    return tour.print([=] {
        return QStringLiteral("the sensor holds %1 = %2")
            .arg(QLatin1Char(parameter))
            .arg(QString::fromStdString(sensor->parameter(parameter)));
    });
}

bool isHelpShown()
{
    return dynamic_cast<HelpWindow*>(QApplication::activeWindow()) != nullptr;
}

QString textOf(const SimulatedDisplayUnit::Settings& settings)
{
    return QString::fromStdString(settings.mode + ", " + settings.dataBits + " bits, " +
                                  settings.resolution + " mm");
}

Steps information(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Sensor information")),
        tour.page(kInformation),
        tour.printList("valueList"),
        tour.picture("information"),
        tour.command(kAboutCommand),
        Tour::when(isAsking, tour.picture("about")),
        tour.click("okButton"),
        Tour::when(noDialog, tour.command(kHelpCommand)),
        Tour::when(isHelpShown, tour.picture("help")),
        tour.key("helpText", Qt::Key_Escape),
        Tour::when([] { return !isHelpShown(); }, tour.page(kInformation)),
        tour.click("refreshButton"),
        Tour::when(says(tour, strings::kReading), tour.picture("reading")),
        Tour::when([] { return true; }, tour.click("refreshButton")), // which cancels
        tour.picture("reading-cancelled"),
    };
}

Steps livePosition(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Magnet position")),
        tour.page(kPosition),
        Tour::when(says(tour, strings::kStoringFormat), tour.picture("position-starting")),
        tour.printChanged("positionBox"),
        tour.printChanged("positionBox"),
        tour.printChanged("positionBox"),
        Tour::expect("the light is green beside a position",
                     [&tour] {
                         const auto& light = tour.find<QLabel>("linkLight");
                         return light.accessibleDescription() ==
                                languageString(strings::kLightConnected);
                     }),
        tour.picture("position"),
        tour.click("recordButton"),
        tour.file(QStringLiteral("recording.csv")),
        tour.printChanged("positionBox"),
        tour.printChanged("positionBox"),
        tour.click("recordButton"),
        tour.print([&tour] {
            const auto lines = contentOf(tour.path(QStringLiteral("recording.csv"))).split('\n');
            return QString::fromUtf8(lines.mid(0, kRecordingLines).join('\n'));
        }),
    };
}

Steps pausedAndRecorded(Tour& tour)
{
    return {
        tour.click("allDecimalsCheck"),
        tour.printChanged("positionBox"),
        tour.click("pauseButton"),
        tour.key("positionTrace", Qt::Key_Home),
        tour.key("positionTrace", Qt::Key_Right),
        tour.printChanged("figure1848"),
        tour.picture("position-paused"),
        tour.click("openRecordingButton"),
        tour.file(QStringLiteral("recording.csv")),
        Tour::when(isAsking, tour.key("positionTrace", Qt::Key_End)),
        tour.printChanged("figure1848"),
        tour.picture("recording"),
        tour.key("positionTrace", Qt::Key_Escape), // the cursor
        tour.key("positionTrace", Qt::Key_Escape),
    };
}

Steps outputSetup(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Output setup")),
        tour.page(kOutputSetup),
        Tour::when(says(tour, strings::kWritingOwnFormat), tour.picture("position-ending")),
        tour.printControls(),
        tour.picture("output-setup"),
        tour.key("modeCombo", Qt::Key_Home), // the reverse direction needs the asynchronous mode
        tour.key("directionCombo", Qt::Key_End),
        tour.click("applyButton"), // asks for the offset that goes with it
        tour.key("packageCombo", Qt::Key_Home),
        tour.picture("offset"),
        tour.click("cancelButton"),
        tour.picture("changes-marked"),
        tour.click("refreshButton"), // asks about the changes
        tour.picture("discard"),
        tour.click("answer1"),
    };
}

/// The first Apply meets a fault of the sensor.
Steps verifiedApply(Tour& tour, const Sensor& sensor)
{
    return {
        tour.click("unlockButton"),
        tour.type("passwordEdit", QStringLiteral("SteadyNow")),
        tour.picture("password"),
        tour.click("okButton"),
        tour.type("errorSkipCountEdit", QStringLiteral("10")),
        tour.print([sensor] {
            sensor->setFault({SimulatedFault::Kind::Deaf}, "DN");
            return QStringLiteral("the sensor does not hear the data format");
        }),
        tour.click("applyButton"), // asks about the offset, which the multiplier would change
        Tour::when(isAsking, tour.picture("offset-question")),
        tour.answer(0),
        tour.picture("differs-marked"),
        tour.print([sensor] {
            sensor->clearFaults();
            return QStringLiteral("the sensor hears all again");
        }),
        tour.type("errorSkipCountEdit", QStringLiteral("10")),
        tour.click("applyButton"),
        Tour::when(isAsking, tour.answer(0)),
        Tour::when([sensor] { return sensor->parameter('D') == "4A0A19"; },
                   printHeld(tour, sensor, 'D')),
        holds(sensor, 'N', "00000A"),
        tour.picture("output-setup-verified"),
    };
}

Steps communicationsLog(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Communications log, its first lines")),
        tour.page(kLog),
        tour.printList("logList", 4),
        tour.type("findEdit", QStringLiteral("[set]")),
        tour.printChanged("wordsLabel"),
        tour.picture("log"),
        tour.click("saveButton"),
        tour.file(QStringLiteral("log.txt")),
        Tour::expect(
            "the log is saved",
            [&tour] { return contentOf(tour.path(QStringLiteral("log.txt"))).contains("\r\n"); }),
        tour.page(kInformation),
    };
}

Steps manualCommunications(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Manual communications")),
        tour.command(kManualCommCommand),
        Tour::when(isAsking, tour.type("sendEdit", QStringLiteral("56,41,0D"))),
        tour.click("executeButton"),
        tour.printChanged("receiveEdit"),
        tour.picture("manual-communications"),
        tour.type("sendEdit", QStringLiteral("56,4G,0D")),
        tour.printChanged("markLabel"),
        tour.picture("manual-communications-mark"),
        tour.click("okButton"),
    };
}

Steps factoryParameters(Tour& tour, const Sensor& sensor)
{
    return {
        Tour::print(QStringLiteral("Factory parameters, another multiplier and offset")),
        Tour::when(noDialog, tour.page(kFactory)),
        tour.cell("parameterList", 4, 1, QStringLiteral("0")),
        tour.cell("parameterList", 6, 1, QStringLiteral("-0.125")),
        tour.picture("factory-edit"),
        tour.click("applyButton"),
        tour.printList("parameterList"),
        printHeld(tour, sensor, 'N'),
        holds(sensor, 'N', "FFFFE7"),
        tour.picture("factory"),
    };
}

Steps earlierStates(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Earlier states")),
        tour.command(kEarlierStatesCommand),
        Tour::when(isAsking, tour.printList("entryList", 2)),
        Tour::expect(
            "what was written last is the newest entry",
            [&tour] {
                constexpr int kWritten = 6;
                return tour.textAt("entryList", 0, kWritten).contains(QLatin1String("(N)"));
            }),
        tour.printList("detailList"),
        tour.picture("earlier-states"),
        tour.click("closeButton"),
    };
}

Steps backupAndRestore(Tour& tour, const Sensor& sensor)
{
    return {
        Tour::print(QStringLiteral("Backup")),
        Tour::when(noDialog, tour.command(kSaveBackupCommand)),
        tour.file(QStringLiteral("backup.dat")),
        Tour::when(isHalfDone, tour.picture("backup")),
        Tour::when(noDialog, tour.print([&tour] {
            return QString::fromLatin1(contentOf(tour.path(QStringLiteral("backup.dat"))));
        })),
        tour.print([sensor] {
            sensor->setParameter('N', "000123");
            return QStringLiteral("another N is in the sensor");
        }),
        tour.command(kRestoreBackupCommand),
        tour.file(QStringLiteral("backup.dat")),
        Tour::when(isShown("parameterTable"), tour.printList("parameterTable")),
        tour.picture("restore-review"),
        tour.click("writeButton"),
        Tour::when(isHalfDone, tour.picture("restore")),
        Tour::when(noDialog, printHeld(tour, sensor, 'N')),
        holds(sensor, 'N', "FFFFE7"),
        tour.picture("restore-verified"),
    };
}

Steps replacedSensor(Tour& tour, const Sensor& sensor)
{
    return {
        tour.print([sensor] {
            sensor->setParameter('N', "000123");
            sensor->setParameter('U', "281500");
            return QStringLiteral("another sensor is connected");
        }),
        tour.command(kRestoreBackupCommand),
        tour.file(QStringLiteral("backup.dat")),
        Tour::when(isShown("parameterTable"), tour.printList("parameterTable", 1)),
        tour.picture("restore-review-open"),
        tour.click("outputRadio"),
        tour.picture("restore-review-replaced"),
        tour.click("cancelButton"),
    };
}

Steps savedFiles(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("The backup file alone, a report and a support file")),
        Tour::when(noDialog, tour.command(kOpenBackupCommand)),
        tour.file(QStringLiteral("backup.dat")),
        Tour::when(isShown("parameterTable"), tour.picture("backup-file")),
        tour.click("cancelButton"),
        Tour::when(noDialog, tour.command(kReportCommand)),
        Tour::when(isShown("fileNameEdit"), Tour::print(QStringLiteral("the sensor is read"))),
        tour.file(QStringLiteral("report.pdf")),
        Tour::when(
            [&tour] { return contentOf(tour.path(QStringLiteral("report.pdf"))).contains("%PDF"); },
            Tour::print(QStringLiteral("the report is saved"))),
        Tour::when(noDialog, tour.command(kSupportFileCommand)),
        Tour::when(isAsking, tour.picture("support-file")),
        tour.click("cancelButton"),
    };
}

Steps comparison(Tour& tour, const Sensor& sensor)
{
    return {
        Tour::print(QStringLiteral("Comparison with the backup")),
        Tour::when(noDialog, tour.command(kCompareCommand)),
        tour.file(QStringLiteral("backup.dat")),
        Tour::when(isShown("parameterTable"), tour.picture("comparison")),
        tour.click("saveButton"),
        tour.file(QStringLiteral("comparison.csv")),
        Tour::when(isShown("parameterTable"), tour.print([&tour] {
            return QString::fromUtf8(contentOf(tour.path(QStringLiteral("comparison.csv"))));
        })),
        tour.click("cancelButton"),
        Tour::when(noDialog, tour.print([sensor] {
            sensor->setParameter('N', "FFFFE7");
            sensor->setParameter('U', "283000");
            return QStringLiteral("the first sensor is connected again");
        })),
    };
}

Steps temperatureCompensation(Tour& tour)
{
    Steps steps = {
        Tour::print(QStringLiteral("Temperature compensation, saved and read back")),
        tour.page(kTempComp),
    };
    constexpr int kEntries = 6;
    for (int row = 0; row < kEntries; ++row) {
        steps.push_back(tour.cell("lookupList", row, 1, QString::number(-40 + row * 24.5, 'f', 1)));
        steps.push_back(tour.cell("lookupList", row, 2, QString::number(-12 + row * 5)));
    }
    const Steps saving = {
        tour.click("lookupToFileButton"),
        tour.file(QStringLiteral("lookup-table.csv")),
        Tour::when(noDialog, tour.cell("lookupList", 0, 1, QStringLiteral("999"))),
        tour.picture("temperature-edit"),
        tour.cell("lookupList", 0, 0),
        tour.click("lookupFromFileButton"),
        tour.file(QStringLiteral("lookup-table.csv")),
        Tour::when(noDialog, tour.printList("lookupList")),
        Tour::expect("the first temperature is that of the file",
                     [&tour] { return tour.textAt("lookupList", 0, 1) == QLatin1String("-40.0"); }),
        tour.picture("temperature-compensation"),
        tour.page(kInformation),
    };
    steps.insert(steps.end(), saving.begin(), saving.end());
    return steps;
}

Steps settings(Tour& tour)
{
    return {
        Tour::print(QStringLiteral("Settings")),
        tour.command(kSettingsCommand),
        Tour::when(isShown("tabs"), tour.picture("settings")),
        tour.type("high1Edit", QStringLiteral("3F")),
        tour.printChanged("overlapLabel"),
        tour.type("low1Edit", QStringLiteral("40")),
        tour.click("okButton"), // is refused
        tour.printChanged("noteLabel"),
        tour.picture("settings-refused"),
        tour.type("low1Edit", QStringLiteral("20")),
        tour.type("high1Edit", QStringLiteral("2E")),
        tour.tab(1),
        tour.picture("settings-general"),
        tour.tab(2),
        tour.printList("portList"),
        tour.picture("settings-ports"),
        tour.tab(3),
        tour.cell("packageList", 2, 1, QStringLiteral("28.5")),
        tour.picture("settings-packages"),
        tour.tab(4),
        tour.picture("settings-display"),
        tour.click("okButton"),
        Tour::expect("the settings are stored and all else is left",
                     [] { return noDialog() && areEntered(); }),
    };
}

Steps displayUnit(Tour& tour, const std::shared_ptr<SimulatedDisplayUnit>& unit)
{
    return {
        Tour::print(QStringLiteral("Display unit")),
        tour.command(kDisplayUnitCommand),
        Tour::when([] { return qobject_cast<QDialog*>(QApplication::activeWindow()) != nullptr; },
                   tour.print([unit] { return textOf(unit->settings()); })),
        tour.printChanged("displayBox"),
        tour.printChanged("displayBox"),
        tour.picture("display-unit"),
        tour.key("modeCombo", Qt::Key_Down),
        tour.click("applyButton"),
        Tour::expect("the unit has its settings",
                     [unit] { return unit->settings().resolution == "0.005"; }),
        tour.print([unit] { return textOf(unit->settings()); }),
        tour.printChanged("displayBox"),
        tour.picture("display-unit-applied"),
        tour.key("modeCombo", Qt::Key_Escape),
        Tour::expect(
            "the display unit's window has closed",
            [] { return qobject_cast<QDialog*>(QApplication::activeWindow()) == nullptr; }),
    };
}

Steps portsAndRevisions(Tour& tour, const Sensor& sensor)
{
    const auto noticed = [&tour] { return tour.find<NoticeStrip>("noticeStrip").text(); };
    return {
        Tour::print(QStringLiteral("The ports of this machine")),
        tour.command(kSelectPortCommand),
        Tour::when(isShown("portCombo"), tour.picture("port-list")),
        tour.click("cancelButton"),

        Tour::print(QStringLiteral("A sensor of a revision that is in no range")),
        Tour::when(noDialog, tour.print([sensor] {
            sensor->setParameter('V', "4A0203");
            return QStringLiteral("the next sensor is connected");
        })),
        tour.command(kConnectCommand),
        Tour::expect("the strip tells the revision, 4A",
                     [noticed] { return noticed().contains(QLatin1String("74")); }),
        tour.printChanged("noticeText"),
        tour.picture("not-identified"),
        tour.item("noticeButton2", 2),
        Tour::expect("the strip tells what was chosen",
                     [noticed] { return !noticed().contains(QLatin1String("74")); }),
        tour.printChanged("noticeText"),
        tour.picture("chosen-by-hand"),

        Tour::print(QStringLiteral("The adapter is unplugged")),
        tour.print([sensor] {
            sensor->vanish();
            return QStringLiteral("its device is gone");
        }),
        Tour::when(
            [&tour] { return tour.textOf("headerState") == languageString(strings::kHeaderLost); },
            tour.picture("lost")),
    };
}

} // namespace

std::vector<Tour::Step> script(Tour& tour, SimulatedPorts& simulators, int language)
{
    for (const char* name : {"log.txt", "backup.dat", "comparison.csv", "lookup-table.csv",
                             "recording.csv", "report.pdf"}) // of an earlier tour
        (void)QFile::remove(tour.path(QLatin1String(name)));

    const auto sensor = simulators.sensor(QStringLiteral("simulator:sensor?type=2&moving=1"));
    const auto unit = simulators.displayUnit(QStringLiteral("simulator:display"));
    Steps steps = {
        tour.command(kFirstLanguageCommand + std::countr_zero(static_cast<unsigned>(language)))};
    for (const Steps& chapter :
         {information(tour), livePosition(tour), pausedAndRecorded(tour), outputSetup(tour),
          verifiedApply(tour, sensor), communicationsLog(tour), manualCommunications(tour),
          factoryParameters(tour, sensor), earlierStates(tour), backupAndRestore(tour, sensor),
          replacedSensor(tour, sensor), savedFiles(tour), comparison(tour, sensor),
          temperatureCompensation(tour), settings(tour), displayUnit(tour, unit),
          portsAndRevisions(tour, sensor)})
        steps.insert(steps.end(), chapter.begin(), chapter.end());
    return steps;
}

} // namespace pelorin
