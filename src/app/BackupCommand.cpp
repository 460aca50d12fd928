#include "app/BackupCommand.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "sensor/BackupFile.h"
#include "sensor/SequenceRunner.h"

namespace pelorin {

namespace {

using Mode = BackupProgressDialog::Mode;

/// @return the chosen path; null if the user gives up
QString askForPath(QWidget& window, Mode mode)
{
    const bool backup = mode == Mode::Backup;
    return chooseFile(
        &window, backup ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
        languageString(backup ? strings::kSaveBackupTitle : strings::kRestoreBackupTitle),
        languageString(strings::kBackupFileFilter), QStringLiteral("dat"));
}

/// What the user is told if there is no sensor to work with; null if there is one.
QString missingSensor(const SensorLink& link, Mode mode)
{
    if (link.isIdentified())
        return {};
    return languageString(mode == Mode::Backup ? strings::kNothingSaved : strings::kNotIdentified);
}

} // namespace

BackupResult runBackupCommand(QWidget& window, SequenceRunner& runner, const FormatRestore& formats,
                              Mode mode)
{
    const SensorLink& link = runner.link();
    if (const QString missing = missingSensor(link, mode); !missing.isNull())
        return {.message = missing};
    const int losses = link.lossCount();
    const QString path = askForPath(window, mode);
    if (path.isNull())
        return {};
    if (link.lossCount() != losses)
        return {.message = languageString(strings::kLinkLost)};
    BackupFile file(path);
    if (mode == Mode::Backup) {
        if (const auto prepared = file.prepareSaving(); !prepared.isDone())
            return {.message = prepared.message()};
    }
    BackupProgressDialog dialog(&window, runner, formats, file, mode);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    return {accepted && mode == Mode::Restore, dialog.message()};
}

} // namespace pelorin
