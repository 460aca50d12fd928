#pragma once

#include <QPixmap>

namespace pelorin {

/// A light that says how something is.
enum class Light { Green, Red, Gray };

/// The picture of a light, sharp on every screen.
[[nodiscard]] QPixmap lightPixmap(Light light);

} // namespace pelorin
