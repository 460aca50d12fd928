#pragma once

#include "platform/core/WholeFile.h"
#include "sensor/CompensationEntry.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace pelorin {

/// The text of a whole table: the marker line, then one line an entry, point and value in
/// hexadecimal.
[[nodiscard]] QByteArray lookupTableText(const CompensationTable& table);

/// The entries of a text, one for each line after the marker; nothing without the marker. A line
/// without a comma gives an entry of zeros.
[[nodiscard]] std::optional<CompensationTable> lookupTableOf(const QByteArray& text);

[[nodiscard]] WholeFile::Outcome writeLookupTableFile(const QString& path,
                                                      const CompensationTable& table);

/// What reading has found.
struct LookupTableReading
{
    WholeFile::Outcome outcome;
    std::optional<CompensationTable> table; ///< nothing if it is no lookup table
};

/// Refuses what is larger than any table in use by far (8 MiB).
[[nodiscard]] LookupTableReading readLookupTableFile(const QString& path);

} // namespace pelorin
