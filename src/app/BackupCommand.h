#pragma once

#include "backup/BackupProgressDialog.h"

namespace pelorin {

/// How a backup or restore has ended.
struct BackupResult
{
    bool restored = false; ///< the sensor has to be connected and read afresh
    QString message;       ///< what the user has to be told; empty for nothing
};

/// Saves the sensor's parameters to a file that the user chooses, or restores them from one.
/// @param window owns the dialogs
[[nodiscard]] BackupResult runBackupCommand(QWidget& window, SequenceRunner& runner,
                                            const FormatRestore& formats,
                                            BackupProgressDialog::Mode mode);

} // namespace pelorin
