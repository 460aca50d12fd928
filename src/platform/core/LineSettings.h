#pragma once

namespace pelorin {

/// The settings of a serial line.
struct LineSettings
{
    int baud = 0;      ///< bits per second
    char parity = 'N'; ///< 'N' none, 'E' even, 'O' odd
    int dataBits = 8;  ///< 7 or 8
    int stopBits = 1;  ///< 1 or 2

    bool operator==(const LineSettings&) const = default;
};

} // namespace pelorin
