#include "app/BackupCommands.h"

#include "app/CommandGate.h"
#include "app/PagePane.h"
#include "backup/EarlierStatesDialog.h"
#include "backup/ReadSensorDialog.h"
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
#include "sensor/JournalWords.h"
#include "sensor/ParameterWords.h"
#include "sensor/SafeWriter.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <algorithm>
#include <utility>

namespace pelorin {

namespace {

using Mode = BackupProgressDialog::Mode;
using Purpose = ReviewDialog::Purpose;

Purpose purposeOf(Mode mode)
{
    switch (mode) {
    case Mode::Restore:
        return Purpose::Restore;
    case Mode::PutBack:
        return Purpose::PutBack;
    case Mode::Backup:
    case Mode::Compare:
    case Mode::Report:
        break;
    }
    return Purpose::Compare;
}

bool isEverythingEqual(const ReviewDialog::Review& review)
{
    const auto rows = compare(sensorType(review.ssiType).information, review.sensor, review.saved);
    return std::none_of(rows.begin(), rows.end(), [](const ComparedParameter& row) {
        return row.state == ComparedParameter::State::Differs;
    });
}

} // namespace

BackupCommands::BackupCommands(QWidget& window, const Shared& shared)
    : QObject(&window), m_window(window), m_writer(shared.writer), m_formats(shared.formats),
      m_gate(shared.gate), m_pages(shared.pages)
{
}

SequenceRunner& BackupCommands::runner() const
{
    return m_writer.runner();
}

const SensorLink& BackupCommands::link() const
{
    return m_writer.runner().link();
}

void BackupCommands::run(Mode mode)
{
    finish(runWithFile(mode));
}

void BackupCommands::showEarlierStates()
{
    const int losses = link().lossCount();
    EarlierStatesDialog dialog(&m_window, m_writer, std::exchange(m_entryToShow, {}));
    if (dialog.exec() != QDialog::Accepted || !dialog.selected())
        return;
    finish(link().lossCount() == losses ? putBackEntry(*dialog.selected())
                                        : End{.message = languageString(strings::kLinkLost)});
}

void BackupCommands::putBack(const QString& entry)
{
    if (runner().isBusy() || m_writer.isRunning() || !m_gate.isFree() || m_gate.isCloseWanted())
        return;
    const CommandGate::Scope scope(m_gate);
    const auto kept = m_writer.journal().find(entry);
    finish(kept ? putBackEntry(*kept) : End{.message = languageString(strings::kNothingWritten)});
}

void BackupCommands::finish(const End& end)
{
    m_gate.addNotice(end.message);
    if (end.next == Next::Connect) {
        Q_EMIT connectWanted();
    } else if (end.next == Next::Read && !m_gate.isCloseWanted()) {
        Q_EMIT readWanted();
    }
}

BackupCommands::End BackupCommands::runWithFile(Mode mode)
{
    if (!link().isIdentified()) {
        return {.message = languageString(mode == Mode::Backup ? strings::kNothingSaved
                                                               : strings::kNotIdentified)};
    }
    const int losses = link().lossCount();
    const QString path = chooseFile(
        &m_window, mode == Mode::Backup ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
        languageString(BackupProgressDialog::titleOf(mode)),
        languageString(strings::kBackupFileFilter), QStringLiteral("dat"), true);
    if (path.isNull())
        return {};
    if (link().lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    BackupFile file(path);
    if (mode == Mode::Backup)
        return saveBackup(file);
    if (const auto outcome = file.read(); !outcome.isDone())
        return {.message = outcome.message()};
    const auto values = file.values();
    if (!values) {
        return {.message = mode == Mode::Compare ? file.refusal()
                                                 : languageString(strings::kNoBackupFile)};
    }
    if (mode == Mode::Compare)
        return review(mode, {*values, path});
    const auto faults = BackupFaults::of(*values, sensorType(link().ssiType()).backup);
    if (const QString problem = textOf(faults); !problem.isEmpty())
        return {.message = problem};
    return m_writer.settings().enabled ? review(mode, {*values, path}) : restoreUnseen(*values);
}

BackupCommands::End BackupCommands::saveBackup(BackupFile& file)
{
    if (const auto prepared = file.prepareSaving(); !prepared.isDone())
        return {.message = prepared.message()};
    SaveBackupDialog dialog(&m_window, runner(), m_formats, file);
    (void)dialog.exec();
    if (dialog.isCancelled())
        file.giveUpSaving(); // of one that was saved all the same nothing is taken back
    return {.message = dialog.message()};
}

/// Without safe writes everything is written that the file has, unseen.
BackupCommands::End BackupCommands::restoreUnseen(const SensorValues& values)
{
    const int losses = link().lossCount();
    const std::string_view order = sensorType(link().ssiType()).backup;
    WriteRequest request;
    request.order = QByteArrayView(order).toByteArray();
    request.values = values;
    if (!confirmValues(request))
        return {};
    if (link().lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    return write(Mode::Restore, std::move(request));
}

/// What was left unfinished has been replaced then: nobody has to be told of it any more.
BackupCommands::End BackupCommands::putBackEntry(const JournalEntry& entry)
{
    if (!link().isIdentified())
        return {.message = languageString(strings::kNotIdentified)};
    if (const auto refusal = putBackRefusal(entry, link().ssiType()); !refusal.text.isEmpty())
        return {.message = refusal.text};
    if (!m_pages.mayDiscard(m_gate))
        return {};
    const bool replaces = !entry.end && m_writer.isSensorOf(entry);
    Saved saved{entry.values, entryInWords(entry)};
    saved.values.emplace('V', entry.version);
    End end = review(Mode::PutBack, saved);
    if (replaces && end.replaced)
        m_gate.addNotice(m_writer.journal().giveUp(entry).message());
    return end;
}

/// Reads the sensor, shows it beside what was saved, and writes what the user chooses of that.
BackupCommands::End BackupCommands::review(Mode mode, const Saved& saved)
{
    ReadSensorDialog reading(&m_window, runner(), m_formats, mode);
    if (reading.exec() != QDialog::Accepted)
        return {.message = reading.message()};
    if (mode != Mode::Compare && textOf(reading.values(), 'V') != link().versionText())
        return {.message = languageString(strings::kOtherAnswers)};
    const ReviewDialog::Review shown{.purpose = purposeOf(mode),
                                     .source = saved.source,
                                     .ssiType = link().ssiType(),
                                     .sensor = reading.values(),
                                     .saved = saved.values};
    if (mode != Mode::Compare && isEverythingEqual(shown))
        return {.message = languageString(strings::kNothingDiffers), .replaced = true};
    ReviewDialog dialog(&m_window, shown);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    WriteRequest request;
    request.order = dialog.choice().order;
    request.values = dialog.choice().values;
    request.base = shown.sensor;
    if (request.order.isEmpty())
        return {.message = languageString(strings::kNothingDiffers)};
    if (!confirmValues(request))
        return {};
    if (runner().changes() != reading.changes())
        return {.message = languageString(strings::kLinkLost)};
    return write(mode, std::move(request));
}

/// What is no value of its parameter may be what a sensor has, or a reply that was disturbed.
bool BackupCommands::confirmValues(const WriteRequest& request)
{
    const QString doubtful = doubtsInWords(request.order, request.values);
    if (doubtful.isEmpty())
        return true;
    const QString question = languageString(strings::kWriteDoubtful) + QLatin1Char('\n') + doubtful;
    return messageBox(&m_window, question, QMessageBox::Yes | QMessageBox::No,
                      QMessageBox::Question) == QMessageBox::Yes;
}

BackupCommands::End BackupCommands::write(Mode mode, WriteRequest request)
{
    request.by = mode == Mode::PutBack ? WriteRequest::By::PutBack : WriteRequest::By::Restore;
    request.closing = kRestoreClosing;
    request.storePause = kRestorePause;
    WriteSensorDialog dialog(&m_window, m_writer, m_formats, mode, std::move(request));
    if (dialog.exec() != QDialog::Accepted)
        return {.message = dialog.message()};
    const Next next = nextAfter(dialog.result());
    return {.next = next, .replaced = next != Next::Nothing};
}

/// A sensor that was restarted is not connected once more; for one that was lost, that comes by
/// itself.
BackupCommands::Next BackupCommands::nextAfter(const WriteResult& result) const
{
    using Reason = WriteResult::Reason;
    switch (result.reason) {
    case Reason::SwitchedOff:
        return result.outcome.isDone() ? Next::Connect : Next::Nothing;
    case Reason::NoAnswer:
    case Reason::AnotherSensor:
    case Reason::AnotherPort:
        return Next::Connect;
    case Reason::LinkLost:
    case Reason::Closed:
        return Next::Nothing;
    case Reason::None:
    case Reason::NotRestarted:
    case Reason::Undivided:
        break;
    }
    return m_writer.settings().manualPower ? Next::Connect : Next::Read;
}

} // namespace pelorin
