#include "pages/WritingPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/OffsetChoice.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QPushButton>

#include <algorithm>
#include <utility>
#include <vector>

namespace pelorin {

WritingPage::WritingPage(QString formName, int applyControl, SafeWriter& writer,
                         WriteRequest::By by)
    : SensorPage(std::move(formName)), m_writer(writer), m_by(by), m_applyControl(applyControl)
{
}

void WritingPage::translate()
{
    SensorPage::translate();
    updateEntries();
}

int WritingPage::entryCount() const
{
    if (m_writing)
        return 0;
    const auto all = fields();
    return static_cast<int>(
        std::count_if(all.begin(), all.end(), [](const Field& field) { return field.changed; }));
}

void WritingPage::discardEntries()
{
    restoreRead();
    updateEntries();
}

/// For each field what was written and what the sensor has; empty where that is the same.
QStringList WritingPage::differencesOf(const std::vector<Field>& fields) const
{
    QStringList texts(static_cast<qsizetype>(fields.size()));
    if (!m_differing)
        return texts;
    const QStringList written = fieldTexts(overlaid(m_seen, m_differing->request.values));
    const QStringList has = fieldTexts(overlaid(m_seen, m_differing->has));
    for (const Difference& difference : m_differing->differences) {
        for (qsizetype at = 0; at < texts.size(); ++at) {
            const Field& field = fields[static_cast<std::size_t>(at)];
            if (field.id == difference.id && written[at] != has[at]) {
                texts[at] =
                    languageString(strings::kDifference).arg(field.caption, written[at], has[at]);
            }
        }
    }
    return texts;
}

void WritingPage::updateEntries()
{
    const auto all = fields();
    const QStringList differences = differencesOf(all);
    for (std::size_t at = 0; at < all.size(); ++at) {
        const QString& difference = differences[static_cast<qsizetype>(at)];
        FieldMark fieldMark{.changed = all[at].changed && !m_writing,
                            .differs = !difference.isEmpty()};
        QStringList lines;
        if (fieldMark.changed) {
            lines << (all[at].read.isEmpty()
                          ? languageString(strings::kNoneRead)
                          : languageString(strings::kValueRead).arg(all[at].read));
        }
        if (fieldMark.differs)
            lines << difference;
        fieldMark.explanation = lines.join(QLatin1Char('\n'));
        mark(static_cast<int>(at), fieldMark);
    }
    const int count = entryCount();
    const QString text = count == 0 ? QString() : languageString(strings::kEntryCount).arg(count);
    auto* apply = getControl<QPushButton>(m_applyControl);
    apply->setToolTip(text);
    apply->setAccessibleDescription(text);
    Q_EMIT entriesChanged();
}

void WritingPage::read(QByteArrayView ids)
{
    m_baseline.reset();
    m_differing.reset();
    m_seen.clear();
    m_ids = ids.toByteArray();
    updateEntries();
    (void)start(readPlan(ids), strings::kReading);
}

void WritingPage::write(QByteArrayView order, const SensorValues& values)
{
    if (entryCount() == 0 && !confirmWithoutChange())
        return;
    WriteRequest request;
    request.by = m_by;
    request.order = order.toByteArray();
    request.values = values;
    request.closing = sensorType(link().ssiType()).closing;
    request.base = m_seen;
    const bool begun =
        m_writer.write(*this, std::move(request),
                       {.phase = [this](SafeWriter::Phase phase) { onPhase(phase); },
                        .ended = [this](const WriteResult& result) { onWritten(result); }});
    if (!begun)
        warn(window(), languageString(strings::kBeingConnected));
}

bool WritingPage::confirmWithoutChange()
{
    return messageBox(window(), languageString(strings::kNothingChangedHere),
                      QMessageBox::Yes | QMessageBox::No, QMessageBox::Question,
                      QMessageBox::No) == QMessageBox::Yes &&
           isLinkKept();
}

void WritingPage::onPhase(SafeWriter::Phase phase)
{
    setStatusText(textNumberOf(phase));
    if (phase != SafeWriter::Phase::Writing)
        return;
    m_writing = true;
    m_differing.reset();
    updateEntries();
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

bool WritingPage::isLinkKept()
{
    if (isCurrent())
        return true;
    warn(window(), languageString(strings::kLinkLost));
    return false;
}

bool WritingPage::isBusy() const
{
    return runner().isBusy() || m_writer.isRunning();
}

void WritingPage::enableApply(bool enabled)
{
    getControl<QPushButton>(m_applyControl)->setEnabled(enabled);
}

std::optional<QByteArray> WritingPage::askForOffset(const OffsetChoice& choice)
{
    struct Answer
    {
        int caption;
        std::optional<QByteArray> value;
    };
    std::vector<Answer> answers{{strings::kKeepLength, choice.kept},
                                {strings::kWriteMultiplied, choice.multiplied}};
    std::erase_if(answers, [](const Answer& answer) { return !answer.value; });
    answers.push_back({strings::kCancel, std::nullopt});
    QStringList captions;
    for (const Answer& answer : answers)
        captions << languageString(answer.caption);
    const int index = askWithButtons(window(), choice.question(), captions);
    return index < 0 ? std::nullopt : answers[static_cast<std::size_t>(index)].value;
}

void WritingPage::planEnded(const Outcome& outcome)
{
    if (outcome.isDone()) {
        m_baseline = runner().changes();
        for (const auto& [id, value] : runner().known()) {
            if (m_ids.contains(id))
                m_seen[id] = value;
        }
        enableApply(false);
    } else if (outcome.kind != Outcome::Kind::StreamNotEnded) {
        m_baseline.reset();
    }
    updateEntries();
}

/// Where nothing was read back nobody knows what the sensor has: it must be read again.
void WritingPage::onWritten(const WriteResult& result)
{
    using Kind = WriteResult::Kind;
    using Reason = WriteResult::Reason;
    setStatusText(headlineOf(result));
    const bool written = result.outcome.isDone() && result.kind != Kind::NotWritten;
    const bool unchecked = result.reason == Reason::SwitchedOff;
    const bool gone = result.reason == Reason::NoAnswer || result.reason == Reason::LinkLost;
    postLinkResult(result.outcome.isDone() && !gone ? 1 : 0);
    m_writing = false;
    if (result.kind == Kind::NotWritten)
        return updateEntries();
    m_baseline.reset();
    acceptEntries();
    if (unchecked && written) {
        m_baseline = runner().changes();
        for (const auto& [id, value] : result.request.values)
            m_seen[id] = value;
        enableApply(false);
        showWritten();
    } else {
        showReadBack(result);
    }
    updateEntries();
}

void WritingPage::showReadBack(const WriteResult& result)
{
    const bool differs = result.kind == WriteResult::Kind::Differs;
    if (differs)
        m_differing = result;
    for (const char id : result.request.order) {
        const auto has = result.has.find(id);
        if (has == result.has.end())
            continue;
        m_seen[id] = has->second;
        showReadValue({id, has->second, isWellFormed(id, has->second)});
    }
    if (!result.has.empty() && result.unanswered.isEmpty()) {
        m_baseline = runner().changes();
        enableApply(differs);
    }
}

} // namespace pelorin
