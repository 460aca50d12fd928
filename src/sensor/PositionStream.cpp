#include "sensor/PositionStream.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"

#include <algorithm>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;
using Kind = Step::Kind;

namespace {

constexpr auto kWriteTime = 250ms;
constexpr auto kRestartTime = 2500ms;
constexpr auto kSupplyOffTime = 1000ms;
constexpr auto kRetryTime = 500ms;
constexpr int kConnectAttempts = 3;

} // namespace

PositionStream::PositionStream(SequenceRunner& runner, KeptFormats& formats, FormatRestore& restore,
                               bool manualPower)
    : m_runner(runner), m_formats(formats), m_restore(restore), m_manualPower(manualPower)
{
}

Plan PositionStream::formatPlan(const QByteArray& format, int ssiType)
{
    Plan plan = writePlan("D", {{'D', format}}, sensorType(ssiType).closing, kStoreTime);
    plan.front().pauseAfter = kWriteTime;
    plan.push_back({.kind = Kind::Read, .id = 'A'});
    return plan;
}

RecordingHead PositionStream::recordingHead() const
{
    const SensorLink& link = m_runner.link();
    return {QString::fromLatin1(link.versionText()), link.ssiType(),
            ComPortNames::stableName(link.device()), m_resolution, QDateTime::currentDateTimeUtc()};
}

bool PositionStream::start()
{
    return m_state != State::Idle || begin();
}

bool PositionStream::begin()
{
    if (!m_runner.link().isIdentified())
        return false;
    m_state = State::Starting;
    m_savedFormat = {};
    m_isKept = false;
    m_resolution = 0.0;
    const bool begun = run(readPlan("D"), [this](const Outcome& outcome) { takeFormat(outcome); });
    if (!begun) {
        m_state = State::Idle;
    } else {
        Q_EMIT stepBegun(strings::kReadingFormat);
    }
    return begun;
}

/// @param closed called when the command that ends a write has been sent
bool PositionStream::run(Plan plan, std::function<void(const Outcome&)> ended,
                         std::function<void()> closed)
{
    m_reply = {};
    const auto close = std::ranges::find(plan, Kind::Close, &Step::kind) - plan.begin();
    return m_runner.start(*this, std::move(plan),
                          {.reply = [this](const Reply& reply) { m_reply = reply; },
                           .progress =
                               [close, closed = std::move(closed)](int done) {
                                   if (closed && done == close + 1)
                                       closed();
                               },
                           .ended = std::move(ended)});
}

/// Nothing but a loss of the link keeps a stream from running its next plan.
void PositionStream::runNext(Plan plan, std::function<void(const Outcome&)> ended,
                             std::function<void()> closed)
{
    if (!run(std::move(plan), std::move(ended), std::move(closed)))
        lose();
}

/// Where the user switches the supply, that is asked for instead.
void PositionStream::tellRestart(int text)
{
    if (m_manualPower) {
        Q_EMIT supplyWanted();
    } else {
        Q_EMIT stepBegun(text);
    }
}

void PositionStream::takeFormat(const Outcome& outcome)
{
    const auto digits = outcome.isDone() ? formatDigits(m_reply.text) : std::nullopt;
    if (!digits) {
        m_state = State::Idle; // nothing was written
        Q_EMIT failed('D');
        Q_EMIT ended();
        return;
    }
    const SensorLink& link = m_runner.link();
    const QByteArray own = m_restore.ownFormat(*digits);
    m_savedFormat = {ComPortNames::stableName(link.device()), link.versionText(), own,
                     streamingFormat(own)};
    writeStreamingFormat();
}

/// A sensor whose own format streams already needs none kept.
void PositionStream::writeStreamingFormat()
{
    if (m_savedFormat.own != m_savedFormat.streaming) {
        const WholeFile::Outcome stored = m_formats.keep(m_savedFormat);
        if (!stored.isDone()) {
            m_state = State::Idle;
            Q_EMIT noticed(
                languageString(strings::kFormatNotStored).arg(stored.path, stored.reason()));
            Q_EMIT ended();
            return;
        }
        m_isKept = true;
    }
    m_runner.beginStream(*this, {.stop = [this] { stop(); },
                                 .lost = [this] { lose(); },
                                 .position =
                                     [this](bool got) {
                                         if (got) {
                                             Q_EMIT position(m_runner.link().position());
                                         } else {
                                             Q_EMIT missed();
                                         }
                                     },
                                 .frames =
                                     [this](const PositionBatch& batch) {
                                         if (isStreaming())
                                             Q_EMIT frames(batch.samples, batch.malformed);
                                     }});
    Q_EMIT stepBegun(strings::kWritingStreamFormat);
    runNext(
        formatPlan(m_savedFormat.streaming, m_runner.link().ssiType()),
        [this](const Outcome& done) { takeResolution(done); },
        [this] { Q_EMIT stepBegun(strings::kStoringFormat); });
}

/// The sensor starts to stream when its supply returns. Without a resolution every position would
/// be shown as another one.
void PositionStream::takeResolution(const Outcome& outcome)
{
    if (outcome.kind == Outcome::Kind::Lost)
        return lose();
    const int resolutionRaw = integerPrefix(m_reply.text); // micrometres
    if (!outcome.isDone() || !m_reply.wellFormed || resolutionRaw <= 0) {
        failStart(outcome.isDone() || outcome.parameter == 'A' ? 'A' : 'D');
        return;
    }
    m_resolution = decodeResolutionMm(m_reply.text);
    const int dataBits = DataFormat::decode(m_savedFormat.own).dataBits;
    tellRestart(strings::kRestartingSensor);
    const Plan plan{{.kind = Kind::SupplyOff},
                    {.kind = Kind::StreamLine,
                     .pauseAfter = kRestartTime,
                     .dataBits = dataBits,
                     .micrometres = resolutionRaw},
                    {.kind = Kind::SupplyOn}};
    runNext(plan, [this](const Outcome& done) {
        if (!done.isDone())
            return done.kind == Outcome::Kind::Lost ? lose() : failStart('A');
        m_state = State::Streaming;
        if (!m_manualPower)
            Q_EMIT stepBegun(strings::kAwaitingStream);
        Q_EMIT streaming();
    });
}

/// The sensor gets back at once what it had: nothing is shown of it that would need the other
/// format. What is told of the supply meanwhile must not stay in place of the failure.
void PositionStream::failStart(char id)
{
    Q_EMIT failed(id);
    (void)m_runner.endStream(*this, [this, id](bool /*restored*/) { Q_EMIT failed(id); });
}

void PositionStream::stop()
{
    m_state = State::Stopping;
    Q_EMIT stopping();
    tellRestart(strings::kEndingStream);
    m_connectAttempts = 0;
    const Plan plan{{.kind = Kind::SupplyOff},
                    {.kind = Kind::ParameterLine, .pauseAfter = kSupplyOffTime},
                    {.kind = Kind::Connect}};
    runNext(plan, [this](const Outcome& outcome) { connectAgain(outcome); });
}

void PositionStream::connectAgain(const Outcome& outcome)
{
    if (outcome.isDone()) {
        const auto own = m_isKept ? std::optional(m_savedFormat) : std::nullopt;
        m_restore.begin(
            *this,
            [this](FormatRestore::Result result) {
                finish(!m_isKept || result == FormatRestore::Result::Restored);
            },
            own, [this](int text) { Q_EMIT stepBegun(text); });
        return;
    }
    const bool lasting = outcome.kind == Outcome::Kind::Lost;
    const Plan plan{{.kind = Kind::Pause, .pauseAfter = kRetryTime}, {.kind = Kind::Connect}};
    if (lasting || ++m_connectAttempts >= kConnectAttempts)
        return finish(false);
    runNext(plan, [this](const Outcome& next) { connectAgain(next); });
}

/// What could not be written back stays kept, and the user has to know.
void PositionStream::finish(bool restored)
{
    if (!restored && m_isKept) {
        Q_EMIT formatKept(m_savedFormat);
    }
    m_state = State::Idle;
    m_runner.streamEnded(restored);
    Q_EMIT ended();
}

/// The link is gone: the sensor keeps the format that it has until it is connected again.
void PositionStream::lose()
{
    if (m_state == State::Idle)
        return;
    if (m_state != State::Stopping)
        Q_EMIT stopping();
    finish(false);
}

} // namespace pelorin
