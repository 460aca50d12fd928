#pragma once

#include <QPalette>

namespace pelorin {

/// What the toolkit's own style wears on a desktop that has dark colors set.
[[nodiscard]] QPalette darkColors();

} // namespace pelorin
