#pragma once

#include "link/CommLog.h"
#include "sensor/JournalEntry.h"

#include <QString>

#include <optional>

namespace pelorin {

/// What somebody needs to know who is asked for help: versions, the settings of this program, the
/// last state of a sensor that was kept, and the end of the communications log with its times.
/// Plain text, with headings in the current language.
struct SupportFile
{
    CommLog::Snapshot log{};
    std::optional<JournalEntry> lastState{};
    int language = 1; ///< its code

    [[nodiscard]] QString text() const;
};

} // namespace pelorin
