#pragma once

#include <cstdint>

namespace pelorin {

/// How the display unit decodes the sensor's SSI output.
struct DisplaySettings
{
    static constexpr std::uint8_t kBinary = 0x42;
    static constexpr std::uint8_t kGray = 0x47;

    std::uint8_t mode = kBinary; ///< kBinary; any other value is Gray code
    std::uint8_t dataBits = 25;  ///< of the SSI word
    std::uint8_t resolution = 5; ///< thousandths of a millimetre
};

} // namespace pelorin
