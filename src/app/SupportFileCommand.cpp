#include "app/SupportFileCommand.h"

#include "app/CommandGate.h"
#include "app/SupportFile.h"
#include "app/SupportFileDialog.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/core/WholeFile.h"
#include "platform/ui/FileChooser.h"
#include "sensor/Journal.h"

namespace pelorin {

void SupportFileCommand::run() const
{
    SupportFile content{.log = m_shared.link.commLog().snapshot(),
                        .language = m_shared.languages.getCurrentLanguage()};
    if (const auto entries = m_shared.journal.entries(); !entries.isEmpty())
        content.lastState = entries.first();
    SupportFileDialog dialog(&m_window, content.text());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path =
        chooseFile(&m_window, QFileDialog::AcceptSave, languageString(strings::kSupportTitle),
                   languageString(strings::kTextFileFilter), QStringLiteral("txt"));
    if (!path.isNull())
        m_shared.gate.addNotice(WholeFile(path).save(dialog.text().toUtf8()).message());
}

} // namespace pelorin
