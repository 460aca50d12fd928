#pragma once

#include "link/CommLog.h"
#include "platform/core/WholeFile.h"

#include <QString>

namespace pelorin {

/// Saves the lines to a text file, each ended by CR LF.
[[nodiscard]] WholeFile::Outcome saveCommLog(const QString& path, const CommLog::Snapshot& lines);

} // namespace pelorin
