#include "Chapters.h"

#include "app/Commands.h"
#include "pages/PositionTrace.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/HelpWindow.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QLabel>

namespace pelorin::chapters {

namespace {

constexpr int kRecordingLines = 10;

std::function<bool()> says(Tour& tour, int text)
{
    return [&tour, text] { return tour.textOf("messagePane") == languageString(text); };
}

bool isHelpShown()
{
    return dynamic_cast<HelpWindow*>(QApplication::activeWindow()) != nullptr;
}

} // namespace

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
        Tour::when([] { return true; }, tour.click("cancelReadingButton")), // while it is busy
        tour.picture("reading-cancelled"),
    };
}

Steps livePosition(Tour& tour)
{
    const auto isTraceFull = [&tour] {
        return tour.find<PositionTrace>("positionTrace").from() >= 0;
    };
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
        tour.key("positionTrace", Qt::Key_Plus), // 10 s
        Tour::when(isTraceFull, tour.picture("position")),
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
        tour.answer(1), // the typed value is in no file
        Tour::when(noDialog, tour.printList("lookupList")),
        Tour::expect("the first temperature is that of the file",
                     [&tour] { return tour.textAt("lookupList", 0, 1) == QLatin1String("-40.0"); }),
        tour.picture("temperature-compensation"),
        tour.page(kInformation),
    };
    steps.insert(steps.end(), saving.begin(), saving.end());
    return steps;
}

} // namespace pelorin::chapters
