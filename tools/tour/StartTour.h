#pragma once

class QDir;

namespace pelorin {

class ComPortFactory;

/// Starts the program on a port that is not there, as a first run may, goes on without a port, and
/// ends it. Pictures of the offer and of the window go to the folder.
/// @return whether the window has come, and has closed
[[nodiscard]] bool startWithoutPort(const ComPortFactory& factory, const QDir& folder);

} // namespace pelorin
