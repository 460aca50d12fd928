#pragma once

#include <QString>
#include <QtGlobal>

#include <vector>

namespace pelorin {

/// One row of a temperature-compensation table.
struct CompensationEntry
{
    qint16 point = 0; ///< in half units
    qint32 value = 0;

    bool operator==(const CompensationEntry&) const = default;
};

using CompensationTable = std::vector<CompensationEntry>;

/// The half units of a number, cut towards zero. Their low 16 bits are an entry's point: a number
/// outside -16384.0 to 16383.5 wraps around. What is not finite gives 0.
[[nodiscard]] qint32 pointFromNumber(double number);

/// The number that a point stands for.
[[nodiscard]] double pointToNumber(qint16 point);

/// An entry as a list shows it.
struct EntryTexts
{
    QString point; ///< a number with one decimal and a point, in every locale
    QString value; ///< an integer
};

[[nodiscard]] EntryTexts textsOf(const CompensationEntry& entry);

/// The entry that the user typed. A point that is not wholly a number counts as 0. The value is the
/// integer that its text begins with, else 0; one that does not fit becomes the nearest.
[[nodiscard]] CompensationEntry entryOf(const EntryTexts& texts);

} // namespace pelorin
