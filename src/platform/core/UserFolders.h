#pragma once

#include <QString>

namespace pelorin {

/// Where the program keeps what it remembers for its user: below "Korvex Systems" in the user's
/// configuration folder.

/// "Pelorin.ini".
[[nodiscard]] QString profilePath();

/// "formats", a folder.
[[nodiscard]] QString keptFormatsFolder();

/// "PelorinFormats.ini", in which earlier versions kept all formats.
[[nodiscard]] QString formerFormatsPath();

} // namespace pelorin
