#include "app/OpenBackupCommand.h"

#include "app/CommandGate.h"
#include "backup/ReviewDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/FileChooser.h"
#include "sensor/BackupFile.h"

namespace pelorin {

void OpenBackupCommand::run() const
{
    const QString path =
        chooseFile(&m_window, QFileDialog::AcceptOpen, languageString(strings::kBackupFileTitle),
                   languageString(strings::kBackupFileFilter), QStringLiteral("dat"));
    if (path.isNull())
        return;
    BackupFile file(path);
    if (const auto outcome = file.read(); !outcome.isDone())
        return m_gate.addNotice(outcome.message());
    const auto values = file.values();
    if (!values)
        return m_gate.addNotice(file.refusal());
    ReviewDialog dialog(&m_window,
                        {.purpose = ReviewDialog::Purpose::Show, .source = path, .saved = *values});
    (void)dialog.exec();
}

} // namespace pelorin
