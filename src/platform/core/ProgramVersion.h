#pragma once

#include <QString>

namespace pelorin {

/// The version of this program as its windows show it: "1.06".
[[nodiscard]] QString programVersion();

/// The release that this program is of: programVersion() and a count, as packages and changelog
/// have it.
[[nodiscard]] QString programRelease();

} // namespace pelorin
