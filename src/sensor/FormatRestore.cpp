#include "sensor/FormatRestore.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"

#include <algorithm>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kWriteTime = 250ms;
constexpr auto kRestoreTime = 2500ms;
constexpr int kAttempts = 3;
constexpr int kStepsToClose = 2; ///< of the plan that writes back; no other has as many

} // namespace

std::optional<QByteArray> formatDigits(const QByteArray& reply)
{
    if (!isWellFormed('D', reply))
        return std::nullopt;
    return reply.toUpper();
}

QByteArray streamingFormat(const QByteArray& digits)
{
    DataFormat format = DataFormat::decode(digits);
    format.flags |= DataFormat::kStream;
    return format.encode();
}

FormatRestore::FormatRestore(SequenceRunner& runner, KeptFormats& formats)
    : m_runner(runner), m_formats(formats)
{
}

QList<KeptFormat> FormatRestore::keptForSensor() const
{
    const SensorLink& link = m_runner.link();
    return m_formats.of(ComPortNames::stableName(link.device()), link.versionText());
}

QByteArray FormatRestore::ownFormat(const QByteArray& digits) const
{
    for (const KeptFormat& kept : keptForSensor()) {
        if (kept.streaming == digits)
            return kept.own;
    }
    return digits;
}

bool FormatRestore::isRestoreOpen() const
{
    const auto kept = keptForSensor();
    return std::any_of(kept.begin(), kept.end(),
                       [](const auto& format) { return !format.readBack; });
}

bool FormatRestore::isStreamingFormat(const QByteArray& reply) const
{
    const auto digits = formatDigits(reply);
    return digits && ownFormat(*digits) != *digits;
}

void FormatRestore::begin(QObject& owner, std::function<void(Result)> done,
                          const std::optional<KeptFormat>& own, std::function<void(int)> stepBegun)
{
    m_own = own;
    m_stepBegun = std::move(stepBegun);
    if (!m_runner.link().isIdentified() || candidates().isEmpty()) {
        done(Result::NothingKept);
        return;
    }
    m_owner = &owner;
    m_done = std::move(done);
    m_reads = 0;
    m_writes = 0;
    readFormat();
}

QList<KeptFormat> FormatRestore::candidates() const
{
    QList<KeptFormat> formats = keptForSensor();
    const auto isOwn = [this](const KeptFormat& kept) {
        return kept.streaming == m_own->streaming;
    };
    if (m_own && m_own->version == m_runner.link().versionText() &&
        std::none_of(formats.begin(), formats.end(), isOwn))
        formats << *m_own;
    return formats;
}

void FormatRestore::tellStep(int text)
{
    if (m_owner && m_stepBegun)
        m_stepBegun(text);
}

void FormatRestore::readFormat()
{
    tellStep(strings::kReadingFormat);
    run(readPlan("D"), [this](const Outcome& outcome) { decide(outcome); });
}

void FormatRestore::decide(const Outcome& outcome)
{
    if (!m_answered) {
        if (mayTryAgain(outcome, m_reads)) {
            readFormat();
        } else {
            finish(Result::NotRead);
        }
        return;
    }
    auto result = Result::NothingKept;
    for (const KeptFormat& kept : candidates()) {
        // Another sensor can have the same format: what was not yet read back stays kept.
        const bool concerned = kept.readBack || (m_own && m_own->streaming == kept.streaming);
        if (kept.own == *m_answered && concerned) {
            noteRestored(kept, m_runner.link().wasRestarted());
            result = Result::Restored;
        } else if (kept.streaming == *m_answered) {
            writeBack(kept);
            return;
        }
    }
    finish(result);
}

Plan FormatRestore::planOf(const QByteArray& own, int ssiType)
{
    Plan plan = writePlan("D", {{'D', own}}, sensorType(ssiType).closing, kRestoreTime);
    plan.front().pauseAfter = kWriteTime;
    plan.push_back({.kind = Step::Kind::Read, .id = 'D'});
    return plan;
}

void FormatRestore::writeBack(const KeptFormat& format)
{
    KeptFormat unstored = format; // the sensor shows that it has not kept what was written back
    if (std::exchange(unstored.readBack, false))
        (void)m_formats.keep(unstored); // it is kept in any case
    tellStep(strings::kWritingOwnFormat);
    run(planOf(format.own, m_runner.link().ssiType()),
        [this, unstored](const Outcome& outcome) { check(unstored, outcome); });
}

/// Only a restart shows what the sensor has stored; until then the format stays kept.
void FormatRestore::noteRestored(const KeptFormat& format, bool stored)
{
    if (stored) {
        (void)m_formats.drop(format); // what cannot be dropped is found the next time
        return;
    }
    KeptFormat noted = format;
    noted.readBack = true;
    (void)m_formats.keep(noted); // where it cannot be noted the user is told once too often
}

void FormatRestore::check(const KeptFormat& format, const Outcome& outcome)
{
    if (m_answered == format.own) {
        noteRestored(format, false);
        finish(Result::Restored);
    } else if (mayTryAgain(outcome, m_writes)) {
        writeBack(format);
    } else {
        finish(Result::NotRestored);
    }
}

bool FormatRestore::mayTryAgain(const Outcome& outcome, int& attempts)
{
    const bool lasting =
        outcome.kind == Outcome::Kind::Lost || outcome.kind == Outcome::Kind::Abandoned;
    return !lasting && ++attempts < kAttempts;
}

void FormatRestore::run(Plan plan, std::function<void(const Outcome&)> ended)
{
    m_answered.reset();
    const bool begun =
        m_owner &&
        m_runner.start(
            *m_owner, std::move(plan),
            {.reply = [this](const Reply& reply) { m_answered = formatDigits(reply.text); },
             .progress =
                 [this](int done) {
                     if (done == kStepsToClose)
                         tellStep(strings::kStoringFormat);
                 },
             .ended = std::move(ended)});
    if (!begun)
        finish(Result::NotRestored);
}

void FormatRestore::finish(Result result)
{
    if (m_owner)
        std::exchange(m_done, {})(result);
}

} // namespace pelorin
