#pragma once

#include "cli/Result.h"

#include <QStringList>

namespace pelorin {
class ComPortFactory;
} // namespace pelorin

namespace pelorin::cli {

/// The whole program: understands the command line, prepares settings and language, runs the
/// command and says how it has ended.
/// @param arguments the program's name first
[[nodiscard]] ExitCode run(const ComPortFactory& factory, const QStringList& arguments);

} // namespace pelorin::cli
