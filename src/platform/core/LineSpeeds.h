#pragma once

#include <array>
#include <utility>

#include <termios.h>

namespace pelorin {

/// The speeds of a serial line in bits per second, and the system's constants for them.
inline constexpr std::array<std::pair<int, speed_t>, 8> kLineSpeeds{{{1200, B1200},
                                                                     {2400, B2400},
                                                                     {4800, B4800},
                                                                     {9600, B9600},
                                                                     {19200, B19200},
                                                                     {38400, B38400},
                                                                     {57600, B57600},
                                                                     {115200, B115200}}};

} // namespace pelorin
