#include "backup/SaveBackupDialog.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFile.h"
#include "sensor/FailureText.h"
#include "sensor/FormatRestore.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

namespace pelorin {

SaveBackupDialog::SaveBackupDialog(QWidget* parent, SequenceRunner& runner,
                                   const FormatRestore& formats, BackupFile& file)
    : BackupProgressDialog(parent, runner, formats, Mode::Backup), m_file(file)
{
}

void SaveBackupDialog::work()
{
    checkFormat([this] { readAll(); });
}

void SaveBackupDialog::readAll()
{
    run(
        readPlan(sensorType(runner().link().ssiType()).backup, true),
        [this](const Reply& reply) { takeReply(reply); },
        [this](const Outcome& outcome) {
            if (outcome.isDone()) {
                save();
            } else {
                finish(readingFailure(outcome));
            }
        });
}

void SaveBackupDialog::takeReply(const Reply& reply)
{
    m_values[reply.id] = reply.text;
    if (!reply.wellFormed) {
        m_doubts += m_doubts.isEmpty() ? languageString(strings::kSavedDoubtful) : QString();
        m_doubts += QLatin1Char('\n') + textInWords(reply.id, reply.text);
    }
}

void SaveBackupDialog::save()
{
    if (formats().isStreamingFormat(m_values.at('D')))
        return finish(languageString(strings::kStreamingFormat));
    if (const auto saved = m_file.save(m_values); !saved.isDone())
        return finish(saved.message());
    succeed(m_doubts);
}

} // namespace pelorin
