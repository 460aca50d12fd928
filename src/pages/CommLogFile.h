#pragma once

#include "link/CommLog.h"

#include <QString>

namespace pelorin {

/// How the saving of a log has ended.
struct CommLogSaving
{
    enum class Outcome {
        Done,
        NotOpened,
        NotWritten ///< a file that was there before is as it was
    };

    Outcome outcome = Outcome::Done;
    int systemError = 0; ///< the system's code of what failed

    /// What failed, in the system's words.
    [[nodiscard]] QString reason() const;
};

/// Saves the lines to a text file, each ended by CR LF. The file appears, or replaces an earlier
/// one, only when it is complete; what is there and is no file, such as a device, is not written.
[[nodiscard]] CommLogSaving saveCommLog(const QString& path, const CommLog::Snapshot& lines);

} // namespace pelorin
