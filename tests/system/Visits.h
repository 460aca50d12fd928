#pragma once

namespace pelorin {

class Tour;

/// The stops of the tour, each in a file of its own. Each returns false where the program does
/// not behave.
[[nodiscard]] bool visitInformation(Tour& tour);
[[nodiscard]] bool visitPosition(Tour& tour);
[[nodiscard]] bool visitTempComp(Tour& tour);
[[nodiscard]] bool visitOutputSetup(Tour& tour);
[[nodiscard]] bool visitFactory(Tour& tour);
[[nodiscard]] bool visitBackup(Tour& tour);
[[nodiscard]] bool visitDisplayUnit(Tour& tour);

} // namespace pelorin
