#include "cli/Commands.h"

#include "cli/Restoration.h"
#include "platform/core/Strings.h"

#include <algorithm>
#include <array>

namespace pelorin::cli {

namespace {

using Port = Command::Port;

constexpr std::array kCommands = {
    Command{"ports", "", strings::kPortsDescription, Port::None, 0, 0, runPorts},
    Command{"info", "--port PORT", strings::kInfoDescription, Port::Needed, 0, 0, runInfo},
    Command{"read", "--port PORT [ID ...]", strings::kReadDescription, Port::Needed, 0,
            Command::kAnyNumber, runRead},
    Command{"backup", "--port PORT FILE", strings::kBackupDescription, Port::Needed, 1, 1,
            runBackup},
    Command{"compare", "--port PORT FILE | FILE FILE", strings::kCompareDescription, Port::Optional,
            1, 2, runCompare},
    Command{"restore", "--port PORT FILE --all | --output-only", strings::kRestoreDescription,
            Port::Needed, 1, 1, runRestore, Restoration::options},
    Command{"set", "--port PORT NAME=VALUE ...", strings::kSetDescription, Port::Needed, 1,
            Command::kAnyNumber, runSet, setOptions},
    Command{"watch", "--port PORT [--seconds N] [--csv FILE]", strings::kWatchDescription,
            Port::Needed, 0, 0, runWatch, watchOptions},
    Command{"journal", "list | show ID | put-back ID --all | --output-only --port PORT",
            strings::kJournalDescription, Port::Own, 1, 2, runJournal, Restoration::options},
    Command{"convert", "FILE", strings::kConvertDescription, Port::None, 1, 1, runConvert},
};

} // namespace

std::span<const Command> commands()
{
    return kCommands;
}

const Command* findCommand(const QString& name)
{
    const auto found =
        std::find_if(kCommands.begin(), kCommands.end(), [&name](const Command& command) {
            return name == QLatin1String(command.name);
        });
    return found == kCommands.end() ? nullptr : &*found;
}

QString commandLineOf(const Command& command)
{
    return QStringLiteral("  pelorin-cli %1 %2")
        .arg(QLatin1String(command.name), QLatin1String(command.syntax))
        .trimmed();
}

} // namespace pelorin::cli
