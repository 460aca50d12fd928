#pragma once

#include <QString>

namespace pelorin {

/// The version of this program, as the user is shown it.
[[nodiscard]] inline QString programVersion()
{
    constexpr int kMajorVersion = 1;
    constexpr int kMinorVersion = 6;
    return QString::asprintf("%01d.%02d", kMajorVersion, kMinorVersion);
}

} // namespace pelorin
