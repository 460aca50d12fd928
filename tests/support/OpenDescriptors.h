#pragma once

#include <vector>

namespace pelorin {

/// The file descriptors that this program has open, for tests that nothing stays open.
[[nodiscard]] std::vector<int> openDescriptors();
[[nodiscard]] int countOpenDescriptors();

} // namespace pelorin
