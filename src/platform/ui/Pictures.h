#pragma once

#include <QIcon>

namespace pelorin {

/// The program's icon, in every size that a desktop asks for.
[[nodiscard]] QIcon programIcon();

/// A picture by its resource name, such as "BMP_PELORIN_GREENLED"; sharp on every screen. An
/// icon without pictures if there is none of that name.
[[nodiscard]] QIcon picture(QLatin1String name);

} // namespace pelorin
