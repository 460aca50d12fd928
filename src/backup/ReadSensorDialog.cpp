#include "backup/ReadSensorDialog.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/FormatRestore.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

namespace pelorin {

ReadSensorDialog::ReadSensorDialog(QWidget* parent, SequenceRunner& runner,
                                   const FormatRestore& formats, Mode mode)
    : BackupProgressDialog(parent, runner, formats, mode),
      m_mayStream(mode == Mode::Compare || mode == Mode::Report)
{
}

void ReadSensorDialog::work()
{
    showText(strings::kCheckingSensor);
    run(
        readPlan(sensorType(runner().link().ssiType()).information, true),
        [this](const Reply& reply) { m_values[reply.id] = reply.text; },
        [this](const Outcome& outcome) { onRead(outcome); });
}

void ReadSensorDialog::onRead(const Outcome& outcome)
{
    if (!outcome.isDone())
        return finish(readingFailure(outcome));
    if (!m_mayStream && formats().isStreamingFormat(m_values.at('D')))
        return finish(languageString(strings::kStreamingFormat));
    m_changes = runner().changes();
    succeed();
}

} // namespace pelorin
