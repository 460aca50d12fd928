#pragma once

#include <QString>

namespace pelorin {

/// A text of the loaded language module. Its arguments are %1, %2 and %3: fill them in with one
/// arg(a, b, c) call, so that an argument that holds a percent sign stays as it is. Any thread.
/// @return the text, or a null string if the module has none of that number
[[nodiscard]] QString languageString(int number);

} // namespace pelorin
