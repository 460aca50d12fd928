#include "app/BackupCommand.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/MessageBox.h"
#include "sensor/BackupFile.h"

namespace pelorin {

namespace {

using Mode = BackupProgressDialog::Mode;

constexpr int kFileNotOpenedText = 192;
constexpr int kFilterText = 212;
constexpr int kAbandonedText = 1012;
constexpr int kNothingWrittenText = 1013;
constexpr int kSaveTitle = 1325;
constexpr int kRestoreTitle = 1326;
constexpr int kNothingSavedText = 1328;

/// @return the chosen path; null if the user gives up
QString askForPath(QWidget& window, Mode mode)
{
    const bool backup = mode == Mode::Backup;
    return chooseFile(&window, backup ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
                      languageString(backup ? kSaveTitle : kRestoreTitle),
                      languageString(kFilterText), QStringLiteral("dat"));
}

void report(QWidget& window, const QString& text)
{
    (void)messageBox(&window, text, QMessageBox::Ok, QMessageBox::Warning);
}

/// Tells the user if there is no sensor to work with.
bool isSensorThere(QWidget& window, const SensorLink& link, Mode mode)
{
    if (link.isIdentified())
        return true;
    report(window, languageString(mode == Mode::Backup ? kNothingSavedText : kNothingWrittenText));
    return false;
}

} // namespace

bool runBackupCommand(QWidget& window, SensorLink& link, Mode mode,
                      const std::function<bool()>& useLink)
{
    if (!isSensorThere(window, link, mode))
        return false;
    const int losses = link.lossCount();
    BackupFile file(askForPath(window, mode));
    if (file.path().isNull() || !useLink())
        return false;
    if (link.lossCount() != losses) {
        report(window, languageString(kAbandonedText));
        return false;
    }
    if (!isSensorThere(window, link, mode))
        return false;
    if (const int error = mode == Mode::Backup ? file.openForSaving() : file.openForReading();
        error != 0) {
        report(window, languageString(kFileNotOpenedText).arg(file.path(), QString::number(error)));
        return false;
    }
    return BackupProgressDialog(&window, link, file, mode).exec() == QDialog::Accepted &&
           mode == Mode::Restore;
}

} // namespace pelorin
