#pragma once

#include <QPalette>

namespace pelorin {

/// The colors of the toolkit's own style on a dark desktop.
[[nodiscard]] QPalette darkColors();

} // namespace pelorin
