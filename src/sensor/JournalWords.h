#pragma once

#include "sensor/WriteResult.h"

#include <QString>

namespace pelorin {

struct JournalEntry;

/// What the user is shown of entries of the journal, in the current language.

/// When an entry was made: local time, to the second, as the user's locale has it.
[[nodiscard]] QString timeInWords(const JournalEntry& entry);

/// Where the sensor was connected then.
[[nodiscard]] QString deviceInWords(const JournalEntry& entry);

/// Which entry it is: when it was made, where, and the sensor's version.
[[nodiscard]] QString entryInWords(const JournalEntry& entry);

/// What has written, or was about to.
[[nodiscard]] QString writerInWords(WriteRequest::By by);

/// Why the state of an entry cannot be put back.
struct PutBackRefusal
{
    QString text{};     ///< empty if it can
    char parameter = 0; ///< that is not usable
};
[[nodiscard]] PutBackRefusal putBackRefusal(const JournalEntry& entry, int ssiType);

/// How the writing has ended, in one or more lines.
[[nodiscard]] QString outcomeInWords(const JournalEntry& entry);

/// That the sensor may be changed by halves.
[[nodiscard]] QString unfinishedInWords(const JournalEntry& entry);

} // namespace pelorin
