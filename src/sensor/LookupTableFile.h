#pragma once

#include "sensor/CompensationEntry.h"

#include <QString>

namespace pelorin {

/// How the writing or reading of a lookup-table file has ended.
struct LookupTableResult
{
    enum class Outcome {
        Done,
        NotOpened,
        NotWritten, ///< an earlier file of that name is as it was
        NotRead,
        NotATable
    };

    Outcome outcome = Outcome::Done;
    QString path;
    int systemError = 0; ///< the system's code of what failed

    /// What failed, in the system's words.
    [[nodiscard]] QString reason() const;
};

/// Writes a whole table: the marker line, then one line an entry, point and value in hexadecimal.
/// The file appears, or replaces an earlier one, only when it is complete; what is there and is no
/// file, such as a device, is not written.
[[nodiscard]] LookupTableResult writeLookupTableFile(const QString& path,
                                                     const CompensationTable& table);

/// Appends the entries of a file to a table, one for each line after the marker. A line without a
/// comma gives an entry of zeros; on failure the table stays as it is. What is no file, or larger
/// than any table in use by far (8 MiB), is no table.
[[nodiscard]] LookupTableResult readLookupTableFile(const QString& path, CompensationTable& table);

} // namespace pelorin
