#pragma once

#include "cli/Result.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>

#include <limits>
#include <span>

namespace pelorin::cli {

class Invocation;

/// What the program can be asked for.
struct Command
{
    enum class Port {
        None,
        Optional, ///< it stands for the last of the arguments
        Needed,
        Own ///< the command itself knows when it needs one
    };
    static constexpr int kAnyNumber = std::numeric_limits<int>::max();

    const char* name;
    const char* syntax; ///< what follows the name, for the help
    int description;    ///< number of the text
    Port port;
    int fewest; ///< arguments behind the name, as the next
    int most;
    Result (*run)(Invocation&);
    QList<QCommandLineOption> (*options)() = nullptr; ///< of its own; null without any
};

/// All commands, in the order of the help.
[[nodiscard]] std::span<const Command> commands();

/// @return null if there is none of that name
[[nodiscard]] const Command* findCommand(const QString& name);

/// How a command is called, for the help.
[[nodiscard]] QString commandLineOf(const Command& command);

} // namespace pelorin::cli
