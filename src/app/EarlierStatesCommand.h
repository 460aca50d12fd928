#pragma once

#include "app/BackupCommand.h"

namespace pelorin {

class SafeWriter;

/// Shows the earlier states of sensors, and puts back the one that the user chooses.
/// @param window owns the dialogs
/// @param shown the entry that is selected first; empty for the newest
[[nodiscard]] BackupResult runEarlierStates(QWidget& window, SafeWriter& writer,
                                            const FormatRestore& formats, const QString& shown);

} // namespace pelorin
