#pragma once

#include "sensor/OutputSettings.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <map>
#include <optional>

namespace pelorin::cli {

/// Output settings as they are named on the command line: NAME=VALUE each.
class OutputEntries
{
public:
    /// @param fault gets what is wrong with them; null if nothing is
    [[nodiscard]] static OutputEntries of(const QStringList& arguments, QString& fault);

    /// Whether the error skip count is among them, which a password protects.
    [[nodiscard]] bool hasSkipCount() const;
    /// The name of the first that only sensors with an extended output have; empty without one.
    [[nodiscard]] QString extendedName() const;
    /// Millimetres; nothing if it is not named.
    [[nodiscard]] std::optional<double> offset() const { return m_offset; }

    /// The settings with what is named; everything else stays.
    [[nodiscard]] OutputSettings appliedTo(OutputSettings settings) const;

private:
    std::map<std::size_t, int> m_values; ///< by the number of the setting
    std::optional<double> m_offset;
};

} // namespace pelorin::cli
