#pragma once

#include "cli/Command.h"

namespace pelorin::cli {

// Each stands in the file that is named like it.
[[nodiscard]] Result runPorts(Invocation& invocation);
[[nodiscard]] Result runInfo(Invocation& invocation);
[[nodiscard]] Result runRead(Invocation& invocation);
[[nodiscard]] Result runBackup(Invocation& invocation);
[[nodiscard]] Result runCompare(Invocation& invocation);
[[nodiscard]] Result runRestore(Invocation& invocation);
[[nodiscard]] Result runSet(Invocation& invocation);
[[nodiscard]] Result runWatch(Invocation& invocation);
[[nodiscard]] Result runJournal(Invocation& invocation);
[[nodiscard]] Result runConvert(Invocation& invocation);

// The options of commands themselves.
[[nodiscard]] QList<QCommandLineOption> setOptions();
[[nodiscard]] QList<QCommandLineOption> watchOptions();

} // namespace pelorin::cli
