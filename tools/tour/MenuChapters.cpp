#include "Chapters.h"

#include "app/Commands.h"
#include "app/NoticeStrip.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QDialog>
#include <QProgressBar>

namespace pelorin::chapters {

namespace {

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

QString textOf(const SimulatedDisplayUnit::Settings& settings)
{
    return QString::fromStdString(settings.mode + ", " + settings.dataBits + " bits, " +
                                  settings.resolution + " mm");
}

} // namespace

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

} // namespace pelorin::chapters
