#pragma once

#include "link/CommLog.h"

#include <QString>

namespace pelorin {

/// What a line of the communications log says, in the current language: which parameter was asked
/// for or written and what its text means, which answer that got, or what failed. The lines above
/// it are looked at where it takes them.
/// @param index of a line
/// @return empty for a line that says all itself
[[nodiscard]] QString logLineInWords(const CommLog::Snapshot& lines, int index);

} // namespace pelorin
