#include "app/EarlierStatesCommand.h"

#include "backup/EarlierStatesDialog.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

namespace pelorin {

namespace {

/// What was left unfinished has been replaced: nobody has to be told of it any more.
BackupResult putBack(QWidget& window, SafeWriter& writer, const FormatRestore& formats,
                     const JournalEntry& entry)
{
    const bool replaced = !entry.end && writer.isConnected(entry);
    BackupResult result = putBackEntry(window, writer, formats, entry);
    if (!replaced || (!result.restored && !result.written))
        return result;
    const QString problem = writer.journal().giveUp(entry).message();
    if (!problem.isEmpty())
        result.message += (result.message.isEmpty() ? QString() : QStringLiteral("\n")) + problem;
    return result;
}

} // namespace

BackupResult runEarlierStates(QWidget& window, SafeWriter& writer, const FormatRestore& formats,
                              const QString& shown)
{
    const SensorLink& link = writer.runner().link();
    const int losses = link.lossCount();
    EarlierStatesDialog dialog(&window, writer, shown);
    if (dialog.exec() != QDialog::Accepted || !dialog.selected())
        return {};
    if (link.lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    return putBack(window, writer, formats, *dialog.selected());
}

} // namespace pelorin
