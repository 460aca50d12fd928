#include "pages/WritingPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/FailureText.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QPushButton>

#include <utility>

namespace pelorin {

WritingPage::WritingPage(QString formName, int applyControl)
    : SensorPage(std::move(formName)), m_applyControl(applyControl)
{
}

void WritingPage::read(std::string_view ids)
{
    m_baseline.reset();
    (void)start(readPlan(ids), strings::kReading);
}

void WritingPage::write(std::string_view order, const SensorValues& values)
{
    const char closing = sensorType(link().ssiType()).closing;
    m_applying = true; // it may end at once
    if (!start(writePlan(order, values, closing), strings::kWriting)) {
        m_applying = false;
        warn(window(), languageString(strings::kBeingConnected));
    }
}

QString WritingPage::hindrance() const
{
    if (!link().isIdentified())
        return languageString(strings::kNotIdentified);
    return isCurrent() ? QString() : languageString(strings::kNotAllRead);
}

bool WritingPage::isCurrent() const
{
    return m_baseline == runner().changes();
}

void WritingPage::enableApply(bool enabled)
{
    getControl<QPushButton>(m_applyControl)->setEnabled(enabled);
}

/// After a failed Apply nobody knows what the sensor has: it must be read again.
void WritingPage::planEnded(const Outcome& outcome)
{
    const bool applied = std::exchange(m_applying, false);
    if (outcome.isDone()) {
        m_baseline = runner().changes();
        enableApply(false);
    } else if (outcome.kind != Outcome::Kind::StreamNotEnded) {
        m_baseline.reset();
    }
    if (applied && outcome.isDone()) {
        showWritten();
    } else if (applied) {
        Q_EMIT noticed(writingFailure(outcome));
    }
}

} // namespace pelorin
