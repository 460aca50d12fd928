#pragma once

#include "app/Commands.h"
#include "backup/BackupProgressDialog.h"
#include "sensor/BackupFile.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"
#include "support/TestFolder.h"

#include <string_view>

namespace pelorin::test {

using Mode = BackupProgressDialog::Mode;

/// The parameters that a sensor of a type has, as they are read and written.
inline std::string_view parametersOf(int type)
{
    constexpr std::string_view kAll = "DALUSPZNMJKO";
    return kAll.substr(0, type == 0 ? 8 : type == 1 ? 9 : 12);
}

/// A backup of a sensor of a type, of values that no simulated sensor starts with.
inline QByteArray backupOf(int type)
{
    BackupValues values;
    for (const char id : parametersOf(type))
        values[id] = QByteArray("0000") + id + QByteArray::number(type);
    values['A'] = "00000010"; // a page reads it after the restore
    return BackupFile::textOf(values);
}

/// Backups and restores by the menu of the real main window, in a folder of their own.
class BackupRig : public MainWindowRig
{
public:
    explicit BackupRig(int type = 2) : MainWindowRig({.type = type}) {}

    const TestFolder folder;
    const QString file = QStringLiteral("backup.dat");

    /// Chooses the command and a file in its dialog, and waits until all is over.
    /// @param before what happens while the file dialog is open
    /// @return the texts of the message boxes, or what went wrong with the command
    [[nodiscard]] QStringList run(Mode mode, const QString& name,
                                  const std::function<void(QFileDialog&)>& before = {})
    {
        const FileDialogUser user(folder.path(name), before);
        (void)frames();
        if (!clickCommand(mode == Mode::Backup ? kSaveBackupCommand : kRestoreBackupCommand))
            return {QStringLiteral("greyed")};
        const bool ended = QTest::qWaitFor([&] {
            return (user.wasAsked() || !user.boxes().isEmpty()) &&
                   !QApplication::activeModalWidget() && !window().isBusy();
        });
        return ended ? user.boxes() : user.boxes() << QStringLiteral("does not end");
    }
    [[nodiscard]] QStringList run(Mode mode) { return run(mode, file); }
    [[nodiscard]] QByteArray content() const { return folder.content(file); }
};

} // namespace pelorin::test
