#pragma once

namespace pelorin {

/// The main window's commands, by their identifiers.
enum Command : int {
    kSelectPortCommand = 1038,
    kConnectCommand = 1039,
    kRefreshCommand = 1040,
    kDisplayUnitCommand = 1041,
    kFirstLanguageCommand = 1042, ///< language code 1; each next one is the next bit
    kLastLanguageCommand = 1046,  ///< language code 16
    kSaveBackupCommand = 1047,
    kRestoreBackupCommand = 1048,
    kWriteECommand = 1049,
    kWriteQCommand = 1050,
    kManualCommCommand = 1051,
    kHelpCommand = 1053,
    kAboutCommand = 1054,
    kExitCommand = 1055,
    kEarlierStatesCommand = 1056,
    kCompareCommand = 1057,
    kSettingsCommand = 1058
};

[[nodiscard]] constexpr bool isLanguageCommand(int command)
{
    return command >= kFirstLanguageCommand && command <= kLastLanguageCommand;
}

/// Whether a command gives up what is entered on the shown page: it reads anew, leads to a Connect
/// or to another port, or ends the program.
[[nodiscard]] constexpr bool losesEntries(int command)
{
    switch (command) {
    case kSelectPortCommand:
    case kConnectCommand:
    case kRefreshCommand:
    case kRestoreBackupCommand:
    case kWriteECommand:
    case kWriteQCommand:
    case kExitCommand:
        return true;
    default:
        return false;
    }
}

/// The code of a language item, 0 for any other command.
[[nodiscard]] constexpr int languageCodeOf(int command)
{
    return isLanguageCommand(command) ? 1 << (command - kFirstLanguageCommand) : 0;
}

} // namespace pelorin
