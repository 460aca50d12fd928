#include "sensor/SafeWriter.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <algorithm>
#include <utility>

namespace pelorin {

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;

namespace {

constexpr char kFactoryText = 'F';

/// What the user is told where the sensor is not as the user has seen it.
int changedText(WriteRequest::By by)
{
    const bool reviewed = by == WriteRequest::By::Restore || by == WriteRequest::By::PutBack;
    return reviewed ? strings::kChangedSinceReview : strings::kSensorHasChanged;
}

} // namespace

/// A request that is under way.
struct SafeWriter::Job
{
    QPointer<QObject> asker;
    Listener listener{};
    WriteRequest request{};
    WriteResult result{};
    JournalEntry state{}; ///< the sensor as it was before
    std::unique_ptr<Journal::Writing> writing{};
    int changes = 0; ///< the runner's when the state was read
    bool wrote = false;
    bool restarted = false;
    bool reconnected = false; ///< after the link was lost
    bool readAgain = false;   ///< what had no answer when it was compared
};

SafeWriter::SafeWriter(SequenceRunner& runner, const Journal& journal, Settings settings)
    : m_runner(runner), m_journal(journal), m_settings(settings)
{
}

SafeWriter::~SafeWriter() = default;

Plan SafeWriter::writingPlan(const WriteRequest& request) const
{
    const auto pause =
        m_settings.enabled ? std::max(request.storePause, kStoreTime) : request.storePause;
    return writePlan(request.order, request.values, request.closing, pause);
}

Plan SafeWriter::planOf(const WriteRequest& request) const
{
    Plan plan = writingPlan(request);
    if (!m_settings.enabled)
        return plan;
    if (!m_settings.manualPower)
        plan = joined(std::move(plan), connectPlan());
    return joined(std::move(plan), verifyPlan(request.order, request.values));
}

bool SafeWriter::write(QObject& asker, WriteRequest request, Listener listener)
{
    if (m_job || m_runner.isBusy() || m_runner.isConnectWanted())
        return false;
    m_job = std::make_unique<Job>();
    m_job->asker = &asker;
    m_job->listener = std::move(listener);
    m_job->request = std::move(request);
    m_job->result.request = m_job->request;
    Q_EMIT began();
    if (m_settings.enabled) {
        check();
    } else {
        writeAll();
    }
    return true;
}

/// What will be written is read anew, and all else of the sensor that is not known.
void SafeWriter::check()
{
    const SensorLink& link = m_runner.link();
    if (!link.isIdentified())
        return refuse(languageString(strings::kNotIdentified));
    tell(Phase::Checking);
    const std::string_view all = sensorType(link.ssiType()).information;
    const QByteArray& order = m_job->request.order;
    QByteArray others;
    for (const char id : all) {
        if (!order.contains(id) && m_runner.known().find(id) == m_runner.known().end())
            others.append(id);
    }
    const Plan plan = joined(readPlan(order, true), tolerantReadPlan(others));
    run(plan, [this](const Outcome& outcome) { takeState(outcome); });
}

void SafeWriter::takeState(const Outcome& outcome)
{
    Job& job = *m_job;
    job.result.outcome = outcome;
    const bool read = outcome.isDone() ||
                      (outcome.kind == Outcome::Kind::Failed && !outcome.unanswered.isEmpty());
    if (outcome.kind == Outcome::Kind::Abandoned)
        return refuse(QString());
    if (!read)
        return refuse(readingFailure(outcome));
    const SensorLink& link = m_runner.link();
    job.state.time = QDateTime::currentDateTimeUtc();
    job.state.device = ComPortNames::stableName(link.device());
    job.state.port = link.portNumber();
    job.state.version = link.versionText();
    job.state.ssiType = link.ssiType();
    job.state.typeChosen = link.isTypeByHand();
    job.state.values = m_runner.known();
    job.state.written = job.request.values;
    job.state.by = job.request.by;
    job.result.before = job.state.values;
    job.result.device = job.state.device;
    job.result.version = job.state.version;
    job.result.ssiType = job.state.ssiType;
    job.changes = m_runner.changes();
    if (const QByteArray changed = changedSinceSeen(); !changed.isEmpty()) {
        return refuse(languageString(changedText(job.request.by)).arg(parametersInWords(changed)));
    }
    QByteArray missing;
    for (const char id : sensorType(link.ssiType()).information) {
        if (job.state.values.find(id) == job.state.values.end())
            missing.append(id);
    }
    if (missing.isEmpty()) {
        keepState();
    } else {
        ask(languageString(strings::kNotAllKept).arg(parametersInWords(missing)),
            &SafeWriter::keepState);
    }
}

QByteArray SafeWriter::changedSinceSeen() const
{
    QByteArray changed;
    for (const auto& [id, seen] : m_job->request.base) {
        const auto now = m_job->state.values.find(id);
        if (now != m_job->state.values.end() && now->second != seen)
            changed.append(id);
    }
    return changed;
}

/// Stored before the first write: from here on it can be put back.
void SafeWriter::keepState()
{
    auto [outcome, writing] = m_journal.begin(m_job->state);
    if (!outcome.isDone())
        return ask(languageString(strings::kNotKept).arg(outcome.message()), &SafeWriter::writeAll);
    m_job->writing = std::move(writing);
    m_job->result.entry = m_job->writing->entry().id;
    writeAll();
}

/// Whether to go on without what can be put back. From the event loop: the runner is just telling
/// how a plan has ended.
void SafeWriter::ask(const QString& reason, void (SafeWriter::*goOn)())
{
    if (!m_question)
        return refuse(reason);
    const auto answered = [this, guard = QPointer(this), goOn](bool yes) {
        if (!guard || !m_job)
            return;
        if (!yes) {
            refuse(QString());
        } else if (m_runner.changes() != m_job->changes) {
            refuse(languageString(strings::kLinkLost));
        } else {
            (this->*goOn)();
        }
    };
    QMetaObject::invokeMethod(
        this, [this, reason, answered] { m_question(reason, answered); }, Qt::QueuedConnection);
}

void SafeWriter::writeAll()
{
    tell(Phase::Writing);
    m_job->changes = m_runner.changes();
    run(writingPlan(m_job->request), [this](const Outcome& outcome) { onWritten(outcome); });
}

void SafeWriter::onWritten(const Outcome& outcome)
{
    Job& job = *m_job;
    job.result.outcome = outcome;
    // A frame may have left though its parameter does not count as written.
    const bool began = outcome.kind != Outcome::Kind::StreamNotEnded &&
                       (outcome.isDone() || m_runner.changes() != job.changes);
    const bool refused = outcome.kind == Outcome::Kind::StreamNotEnded;
    if (!began)
        return refuse(refused ? writingFailure(outcome) : QString());
    job.wrote = true;
    if (!m_settings.enabled)
        return stopUnchecked(Reason::SwitchedOff);
    if (outcome.kind == Outcome::Kind::Lost)
        return stopUnchecked(Reason::LinkLost);
    if (outcome.kind == Outcome::Kind::Abandoned)
        return stopUnchecked(Reason::Closed);
    restart();
}

/// What a sensor answers before it was restarted it may not have stored.
void SafeWriter::restart()
{
    if (m_settings.manualPower) {
        m_job->restarted = false;
        return compare();
    }
    tell(Phase::Restarting);
    run(connectPlan(), [this](const Outcome& outcome) {
        if (outcome.kind == Outcome::Kind::Lost)
            return stopUnchecked(Reason::LinkLost);
        if (outcome.kind == Outcome::Kind::Abandoned)
            return stopUnchecked(Reason::Closed);
        if (!outcome.isDone())
            return stopUnchecked(Reason::NoAnswer);
        m_job->restarted = m_runner.link().wasRestarted();
        compare();
    });
}

void SafeWriter::compare()
{
    if (const Reason unlike = unlikeness(m_job->state); unlike != Reason::None)
        return stopUnchecked(unlike);
    tell(Phase::Comparing);
    readBack(proof() + m_job->request.order);
}

/// What tells sensors of one version from each other, where another may have been connected since
/// and the text was known: read first.
QByteArray SafeWriter::proof() const
{
    const auto known = m_job->state.values.find(kFactoryText);
    const bool proves = m_job->reconnected && known != m_job->state.values.end() &&
                        !m_job->request.order.contains(kFactoryText);
    return proves ? QByteArray(1, kFactoryText) : QByteArray();
}

void SafeWriter::readBack(const QByteArray& ids)
{
    const Plan plan = verifyPlan(ids, overlaid(m_job->state.values, m_job->request.values));
    run(
        plan, [this](const Outcome& outcome) { onCompared(outcome); },
        [this](const Reply& reply) {
            if (m_job->asker && m_job->listener.comparing)
                m_job->listener.comparing(reply);
        });
}

Reason SafeWriter::unlikeness(const JournalEntry& state) const
{
    const SensorLink& link = m_runner.link();
    if (link.versionText() != state.version || link.ssiType() != state.ssiType)
        return Reason::AnotherSensor;
    const bool samePort = ComPortNames::stableName(link.device()) == state.device;
    return samePort ? Reason::None : Reason::AnotherPort;
}

bool SafeWriter::isSensorOf(const JournalEntry& entry) const
{
    if (!m_runner.link().isIdentified() || !isConnected(entry))
        return false;
    const QByteArray has = textOf(m_runner.known(), kFactoryText);
    const QByteArray had = textOf(entry.values, kFactoryText);
    return has.isEmpty() || had.isEmpty() || has == had ||
           has == textOf(entry.written, kFactoryText);
}

void SafeWriter::onCompared(const Outcome& outcome)
{
    if (outcome.kind == Outcome::Kind::Lost)
        return stopUnchecked(Reason::LinkLost);
    if (outcome.kind == Outcome::Kind::Abandoned)
        return stopUnchecked(Reason::Closed);
    const auto& differences = outcome.differences;
    const auto isProof = [this](auto& one) { return !m_job->request.order.contains(one.id); };
    if (std::any_of(differences.begin(), differences.end(), isProof))
        return stopUnchecked(Reason::AnotherSensor);
    m_job->result.differences += differences;
    if (outcome.isDone() && !outcome.unanswered.isEmpty() && !m_job->readAgain) {
        m_job->readAgain = true; // one answer may have been late or disturbed
        return readBack(outcome.unanswered);
    }
    judge(outcome);
    finish();
}

/// The worst of the parameters counts.
void SafeWriter::judge(const Outcome& outcome)
{
    Job& job = *m_job;
    WriteResult& result = job.result;
    const WriteRequest& request = job.request;
    const QByteArray format = textOf(overlaid(job.state.values, request.values), 'D');
    const int multiplier = DataFormat::decode(format).multiplier();
    const auto isUndivided = [multiplier](const Difference& difference) {
        return difference.id == 'N' && multiplier > 1 && isWellFormed('N', difference.has) &&
               decodeOffsetCounts(difference.has) * multiplier ==
                   decodeOffsetCounts(difference.written);
    };
    result.unanswered = outcome.unanswered;
    result.has = m_runner.known();
    const auto& differences = result.differences;
    const bool all = std::all_of(differences.begin(), differences.end(), isUndivided);
    if (!all) {
        result.kind = Kind::Differs;
        // Before a restart it may only not have taken effect yet.
        result.nothingChanged =
            job.restarted && std::all_of(request.order.begin(), request.order.end(), [&](char id) {
                const auto now = result.has.find(id);
                const auto before = job.state.values.find(id);
                return now != result.has.end() && before != job.state.values.end() &&
                       isSameValue(id, now->second, before->second);
            });
    } else {
        result.kind = Kind::NotChecked;
        result.reason = !result.unanswered.isEmpty() || !outcome.isDone() ? Reason::NoAnswer
                        : !differences.isEmpty()                          ? Reason::Undivided
                        : !job.restarted                                  ? Reason::NotRestarted
                                                                          : Reason::None;
        if (result.reason == Reason::None)
            result.kind = Kind::Verified;
    }
}

void SafeWriter::stopUnchecked(Reason reason)
{
    m_job->result.kind = Kind::NotChecked;
    m_job->result.reason = reason;
    finish();
}

void SafeWriter::refuse(const QString& problem)
{
    m_job->result.kind = Kind::NotWritten;
    m_job->result.problem = problem;
    finish();
}

/// What was written when the link was lost is kept for the next Connect; told when it was compared,
/// or by a later run.
void SafeWriter::finish()
{
    std::unique_ptr<Job> job = std::exchange(m_job, nullptr);
    const auto compared = std::exchange(m_compared, {});
    if (job->writing) {
        const Reason reason = job->result.reason;
        const bool told = reason != Reason::Closed && reason != Reason::LinkLost;
        const auto noted = job->writing->finish({job->result.kind, reason, told});
        if (!noted.isDone())
            job->result.problem += noted.message();
    }
    const WriteResult result = job->result;
    const Listener listener = std::exchange(job->listener, {});
    const auto asker = job->asker;
    if (result.reason == Reason::LinkLost)
        m_unchecked = std::move(job);
    if (asker && listener.ended)
        listener.ended(result);
    Q_EMIT ended(result);
    if (compared)
        compared();
}

void SafeWriter::compareAfterConnect(bool untouched, std::function<void()> done)
{
    if (m_job || !m_unchecked || !m_runner.link().isIdentified())
        return done();
    m_job = std::exchange(m_unchecked, nullptr);
    WriteResult& result = m_job->result;
    result.reason = Reason::None;
    result.outcome = {};
    result.differences.clear(); // of a comparison that was cut short
    result.unanswered.clear();
    m_job->readAgain = false;
    m_job->reconnected = true;
    m_compared = std::move(done);
    m_job->restarted = untouched && m_runner.link().wasRestarted();
    compare();
}

void SafeWriter::tell(Phase phase)
{
    if (m_job->asker && m_job->listener.phase)
        m_job->listener.phase(phase);
}

/// A plan that cannot begin ends the job.
void SafeWriter::run(Plan plan, std::function<void(const Outcome&)> done,
                     std::function<void(const Reply&)> reply)
{
    const int steps = static_cast<int>(plan.size());
    const auto progress = [this, steps](int taken) {
        if (m_job->asker && m_job->listener.progress)
            m_job->listener.progress(taken, steps);
    };
    if (m_runner.start(*this, std::move(plan),
                       {.reply = std::move(reply), .progress = progress, .ended = std::move(done)}))
        return;
    if (m_job->wrote)
        return stopUnchecked(m_runner.isEnding() ? Reason::Closed : Reason::LinkLost);
    refuse(languageString(strings::kBeingConnected));
}

} // namespace pelorin
