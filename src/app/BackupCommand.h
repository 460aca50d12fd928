#pragma once

#include "backup/BackupProgressDialog.h"

#include <functional>

namespace pelorin {

/// Saves the sensor's parameters to a file that the user chooses, or restores them from one.
/// Whatever hinders it the user is told. Afterwards the link's completions go to nobody.
/// @param window owns the dialogs
/// @param useLink called once a file is chosen, before the link is used; returns false to give up
/// @return true if parameters were restored: the sensor has to be connected and read afresh
[[nodiscard]] bool runBackupCommand(QWidget& window, SensorLink& link,
                                    BackupProgressDialog::Mode mode,
                                    const std::function<bool()>& useLink);

} // namespace pelorin
