#include "app/SupportFileCommand.h"

#include "app/SupportFile.h"
#include "app/SupportFileDialog.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageManager.h"
#include "sensor/Journal.h"

namespace pelorin {

void SupportFileCommand::run() const
{
    SupportFile content{.log = m_shared.link.commLog().snapshot(),
                        .language = m_shared.languages.getCurrentLanguage()};
    if (const auto entries = m_shared.journal.entries(); !entries.isEmpty())
        content.lastState = entries.first();
    SupportFileDialog dialog(&m_window, content.text());
    (void)dialog.exec();
}

} // namespace pelorin
