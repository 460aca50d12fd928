#pragma once

#include <QString>

namespace pelorin {

/// Where the program keeps what it remembers for its user: below "Korvex Systems" in the user's
/// configuration folder, and what it keeps of sensors in the user's data folder.

/// "Pelorin.ini", or the file that the environment variable PELORIN_PROFILE names.
[[nodiscard]] QString profilePath();

/// "pelorin/demonstration" in the data folder: settings and profile of a demonstration.
[[nodiscard]] QString demonstrationFolder();

/// "formats", a folder.
[[nodiscard]] QString keptFormatsFolder();

/// "pelorin/journal" in the data folder: the states that sensors had before they were changed.
[[nodiscard]] QString journalFolder();

/// "PelorinFormats.ini", in which earlier versions kept all formats.
[[nodiscard]] QString formerFormatsPath();

} // namespace pelorin
