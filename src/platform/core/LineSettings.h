#pragma once

#include <optional>
#include <string_view>

namespace pelorin {

/// The settings of a serial line.
struct LineSettings
{
    int baud = 0;      ///< bits per second
    char parity = 'N'; ///< 'N' none, 'E' even, 'O' odd
    int dataBits = 8;  ///< 7 or 8
    int stopBits = 1;  ///< 1 or 2

    /// Reads a text such as "4800,N,8,1"; nothing if it is not one.
    [[nodiscard]] static std::optional<LineSettings> parse(std::string_view text) noexcept;

    bool operator==(const LineSettings&) const = default;
};

} // namespace pelorin
