#include "app/BackupCommand.h"

#include "backup/ReadSensorDialog.h"
#include "backup/ReviewDialog.h"
#include "backup/SaveBackupDialog.h"
#include "backup/WriteSensorDialog.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"
#include "sensor/BackupFaults.h"
#include "sensor/BackupFile.h"
#include "sensor/Comparison.h"
#include "sensor/Journal.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SafeWriter.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <algorithm>
#include <string>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

using Mode = BackupProgressDialog::Mode;
using Purpose = ReviewDialog::Purpose;

constexpr char kStoreId = 'E';
constexpr auto kStorePause = 500ms;

/// What a command works with.
struct Command
{
    QWidget& window;
    SafeWriter& writer;
    const FormatRestore& formats;
    Mode mode;

    [[nodiscard]] SequenceRunner& runner() const { return writer.runner(); }
    [[nodiscard]] const SensorLink& link() const { return writer.runner().link(); }
};

/// Values that a sensor had, and where they are from.
struct Saved
{
    SensorValues values{};
    QString source{};
};

/// @return the chosen path; null if the user gives up
QString askForPath(const Command& command)
{
    const bool backup = command.mode == Mode::Backup;
    const int title = backup                          ? strings::kSaveBackupTitle
                      : command.mode == Mode::Restore ? strings::kRestoreBackupTitle
                                                      : strings::kCompareTitle;
    return chooseFile(&command.window, backup ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
                      languageString(title), languageString(strings::kBackupFileFilter),
                      QStringLiteral("dat"));
}

BackupResult saveBackup(const Command& command, BackupFile& file)
{
    if (const auto prepared = file.prepareSaving(); !prepared.isDone())
        return {.message = prepared.message()};
    SaveBackupDialog dialog(&command.window, command.runner(), command.formats, file);
    (void)dialog.exec();
    return {.message = dialog.message()};
}

/// Why values cannot be written as a whole; empty if they can.
QString faultsText(const BackupFaults& faults)
{
    if (faults == BackupFaults())
        return {};
    QStringList lines{languageString(strings::kBackupUnfit)};
    if (!faults.missing.isEmpty())
        lines << languageString(strings::kBackupMissing).arg(parametersInWords(faults.missing));
    if (!faults.unfit.isEmpty())
        lines << languageString(strings::kBackupNotUsable).arg(parametersInWords(faults.unfit));
    return lines.join(QLatin1Char('\n'));
}

/// What is no value of its parameter may be what a sensor has, or a reply that was disturbed.
bool confirmValues(QWidget& window, const WriteRequest& request)
{
    QStringList doubtful;
    for (const char id : request.order) {
        if (const QByteArray& value = request.values.at(id); !isWellFormed(id, value))
            doubtful << textInWords(id, value);
    }
    if (doubtful.isEmpty())
        return true;
    const QString question = languageString(strings::kWriteDoubtful) + QLatin1Char('\n') +
                             doubtful.join(QLatin1Char('\n'));
    return messageBox(&window, question, QMessageBox::Yes | QMessageBox::No,
                      QMessageBox::Question) == QMessageBox::Yes;
}

/// What is left to be done. A sensor that was restarted is not connected once more; for one that
/// was lost, that comes by itself.
BackupResult resultOf(const WriteResult& result, bool manualPower)
{
    using Reason = WriteResult::Reason;
    switch (result.reason) {
    case Reason::SwitchedOff:
        return {.restored = result.outcome.isDone()};
    case Reason::NoAnswer:
    case Reason::AnotherSensor:
        return {.restored = true};
    case Reason::LinkLost:
    case Reason::Closed:
        return {};
    case Reason::None:
    case Reason::NotRestarted:
    case Reason::Undivided:
        break;
    }
    return {.restored = manualPower, .written = true};
}

BackupResult write(const Command& command, WriteRequest request)
{
    request.by =
        command.mode == Mode::PutBack ? WriteRequest::By::PutBack : WriteRequest::By::Restore;
    request.closing = kStoreId;
    request.storePause = kStorePause;
    WriteSensorDialog dialog(&command.window, command.writer, command.formats, command.mode,
                             std::move(request));
    if (dialog.exec() != QDialog::Accepted)
        return {.message = dialog.message()};
    return resultOf(dialog.result(), command.writer.settings().manualPower);
}

bool isEverythingEqual(const ReviewDialog::Review& review)
{
    const auto rows = compare(sensorType(review.ssiType).information, review.sensor, review.saved);
    return std::none_of(rows.begin(), rows.end(), [](const ComparedParameter& row) {
        return row.state == ComparedParameter::State::Differs;
    });
}

/// Reads the sensor, shows it beside what was saved, and writes what the user chooses of that.
BackupResult review(const Command& command, Purpose purpose, const Saved& saved)
{
    ReadSensorDialog reading(&command.window, command.runner(), command.formats, command.mode);
    if (reading.exec() != QDialog::Accepted)
        return {.message = reading.message()};
    const ReviewDialog::Review shown{.purpose = purpose,
                                     .source = saved.source,
                                     .ssiType = command.link().ssiType(),
                                     .sensor = reading.values(),
                                     .saved = saved.values};
    if (purpose != Purpose::Compare && isEverythingEqual(shown))
        return {.message = languageString(strings::kNothingDiffers)};
    ReviewDialog dialog(&command.window, shown);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    WriteRequest request;
    request.order = dialog.choice().order;
    request.values = dialog.choice().values;
    request.base = shown.sensor;
    if (request.order.isEmpty())
        return {.message = languageString(strings::kNothingDiffers)};
    if (!confirmValues(command.window, request))
        return {};
    if (command.runner().changes() != reading.changes())
        return {.message = languageString(strings::kLinkLost)};
    return write(command, std::move(request));
}

/// Without safe writes everything is written that the file has, unseen.
BackupResult restoreUnseen(const Command& command, const SensorValues& values)
{
    const int losses = command.link().lossCount();
    const std::string_view order = sensorType(command.link().ssiType()).backup;
    WriteRequest request;
    request.order = QByteArray(order.data(), static_cast<qsizetype>(order.size()));
    request.values = values;
    if (!confirmValues(command.window, request))
        return {};
    if (command.link().lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    return write(command, std::move(request));
}

} // namespace

BackupResult runBackupCommand(QWidget& window, SafeWriter& writer, const FormatRestore& formats,
                              Mode mode)
{
    const Command command{window, writer, formats, mode};
    const SensorLink& link = command.link();
    if (!link.isIdentified()) {
        return {.message = languageString(mode == Mode::Backup ? strings::kNothingSaved
                                                               : strings::kNotIdentified)};
    }
    const int losses = link.lossCount();
    const QString path = askForPath(command);
    if (path.isNull())
        return {};
    if (link.lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    BackupFile file(path);
    if (mode == Mode::Backup)
        return saveBackup(command, file);
    if (const auto outcome = file.read(); !outcome.isDone())
        return {.message = outcome.message()};
    const auto values = file.values();
    if (!values)
        return {.message = languageString(strings::kNoBackupFile)};
    if (mode == Mode::Compare)
        return review(command, Purpose::Compare, {*values, path});
    const auto faults = BackupFaults::of(*values, sensorType(link.ssiType()).backup);
    if (const QString problem = faultsText(faults); !problem.isEmpty())
        return {.message = problem};
    return writer.settings().enabled ? review(command, Purpose::Restore, {*values, path})
                                     : restoreUnseen(command, *values);
}

BackupResult putBackEntry(QWidget& window, SafeWriter& writer, const FormatRestore& formats,
                          const JournalEntry& entry)
{
    const Command command{window, writer, formats, Mode::PutBack};
    if (!command.link().isIdentified())
        return {.message = languageString(strings::kNotIdentified)};
    if (command.link().ssiType() != entry.ssiType)
        return {.message = languageString(strings::kStateOfOtherType)};
    const std::string order = "F" + std::string(sensorType(entry.ssiType).backup);
    if (const QByteArray unfit = BackupFaults::of(entry.values, order).unfit; !unfit.isEmpty()) {
        return {.message = languageString(strings::kNothingWritten) + QLatin1Char('\n') +
                           languageString(strings::kBackupNotUsable).arg(parametersInWords(unfit))};
    }
    Saved saved{entry.values, QStringList{entry.time.toLocalTime().toString(
                                              QStringLiteral("yyyy-MM-dd hh:mm:ss")),
                                          entry.device, QString::fromLatin1(entry.version)}
                                  .join(QStringLiteral(", "))};
    saved.values.emplace('V', entry.version);
    return review(command, Purpose::PutBack, saved);
}

} // namespace pelorin
