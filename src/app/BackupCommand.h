#pragma once

#include "backup/BackupProgressDialog.h"

namespace pelorin {

class SafeWriter;
struct JournalEntry;

/// How a backup, a restore, a comparison or a putting back has ended.
struct BackupResult
{
    bool restored = false; ///< the sensor has to be connected and read afresh
    QString message{};     ///< what the user has to be told; empty for nothing
    bool written = false;  ///< the sensor has been written to, and is connected: page 0 is to be
                           ///< read
};

/// Saves the sensor's parameters to a file that the user chooses, restores them from one, or shows
/// both beside each other.
/// @param window owns the dialogs
/// @param mode any but PutBack
[[nodiscard]] BackupResult runBackupCommand(QWidget& window, SafeWriter& writer,
                                            const FormatRestore& formats,
                                            BackupProgressDialog::Mode mode);

/// Writes a state that a sensor had before back to the one that is connected, after the user has
/// seen both.
/// @param window owns the dialogs
[[nodiscard]] BackupResult putBackEntry(QWidget& window, SafeWriter& writer,
                                        const FormatRestore& formats, const JournalEntry& entry);

} // namespace pelorin
