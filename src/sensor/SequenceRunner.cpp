#include "sensor/SequenceRunner.h"

#include "link/SensorLink.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "sensor/ParameterCodec.h"

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;
using Kind = Step::Kind;

namespace {

constexpr auto kAnswerLimit = 15s; ///< far beyond every exchange

} // namespace

SequenceRunner::SequenceRunner(SensorLink& link) : m_link(link), m_port(link)
{
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer);
    connect(&m_pause, &QTimer::timeout, this, &SequenceRunner::doStep);
    connect(&m_port, &PortUse::stuck, this, &SequenceRunner::portStuck);
    m_answerLimit.setSingleShot(true);
    connect(&m_answerLimit, &QTimer::timeout, this, &SequenceRunner::giveUpWorker);
    m_link.setReplyTarget(this, WM_LINK_REPLY);
    m_link.setFramesTarget(this);
}

SequenceRunner::~SequenceRunner()
{
    m_link.setReplyTarget(nullptr, 0);
    m_link.setFramesTarget(nullptr);
}

bool SequenceRunner::isBusy() const
{
    return m_run || m_waiting.go || m_ending || m_port.isChanging() ||
           (m_stream && m_stream->stopping);
}

bool SequenceRunner::isRunning(const QObject& owner) const
{
    return (m_run && m_run->owner == &owner) || (m_waiting.go && m_waiting.owner == &owner);
}

bool SequenceRunner::isOfStream(const QObject& owner) const
{
    return m_stream && m_stream->owner == &owner;
}

bool SequenceRunner::start(QObject& owner, Plan plan, Listener listener)
{
    const bool first = isOfStream(owner);
    const bool reserved = m_reservedFor && m_reservedFor != &owner && m_continuing != &owner;
    if (m_run || (!first && (m_waiting.go || m_ending || m_port.isChanging() || reserved)))
        return false;
    Run run{.owner = &owner, .plan = std::move(plan), .listener = std::move(listener)};
    if (m_reservedFor == &owner) {
        m_reservedFor = nullptr;
        noteChange(); // where the user switches the supply no step says so
    }
    if (!m_stream || first) {
        begin(std::move(run));
        return true;
    }
    const auto ended = run.listener.ended;
    const bool waits = endStream(owner, [this, run = std::move(run)](bool restored) {
        if (restored) {
            begin(run);
        } else if (run.listener.ended) {
            run.listener.ended({.kind = Outcome::Kind::StreamNotEnded});
        }
    });
    if (waits && m_waiting.go && ended)
        m_waiting.abandoned = [ended] { ended({.kind = Outcome::Kind::Abandoned}); };
    return waits;
}

void SequenceRunner::abandon(const QObject& owner)
{
    if (m_waiting.go && m_waiting.owner == &owner) {
        const Waiting waiting = std::exchange(m_waiting, {});
        if (waiting.abandoned)
            tell(waiting.abandoned);
    }
    if (m_run && m_run->owner == &owner)
        giveUp();
}

void SequenceRunner::giveUp()
{
    m_run->abandoned = true;
    if (m_outstanding == 0) {
        if (!m_run->wrote)
            end(Outcome::Kind::Abandoned);
        return;
    }
    const Kind kind = m_run->plan[m_run->at].kind;
    if (kind == Kind::Connect || kind == Kind::Raw) {
        m_run->skipped = true;
        m_link.cutShort(m_outstanding);
    }
}

int SequenceRunner::changes() const
{
    return m_changes + m_link.lossCount();
}

void SequenceRunner::begin(Run run)
{
    run.losses = m_link.lossCount();
    run.cutFrames = m_link.cutFrames();
    run.serial = ++m_lastSerial;
    if (run.owner) {
        run.watch = connect(run.owner, &QObject::destroyed, this, [this] {
            m_run->owner.clear(); // of a widget that goes it still points to the rest
            giveUp();
        });
    }
    m_run = std::move(run);
    settle();
    doStep();
}

/// Takes the step that the plan is at, unless something has come in between.
void SequenceRunner::doStep()
{
    if (!m_run || m_outstanding != 0)
        return;
    Run& run = *m_run;
    if (m_link.linkFailed() == 1 || m_link.lossCount() != run.losses)
        return end(Outcome::Kind::Lost);
    if (run.abandoned && !run.wrote)
        return end(Outcome::Kind::Abandoned);
    // Only what has begun to be written is brought to its end.
    for (; run.abandoned && run.at < run.plan.size() && run.plan[run.at].reads(); ++run.at)
        run.skipped = true;
    if (run.at == run.plan.size())
        return end(run.skipped ? Outcome::Kind::Abandoned : Outcome::Kind::Done);

    const Step& step = run.plan[run.at];
    const bool switchesOff = step.kind == Kind::Connect || step.kind == Kind::SupplyOff;
    if (const auto wait = m_port.storeWait(); switchesOff && wait > 0ms) {
        m_pause.start(wait);
        return;
    }
    if (step.writes()) {
        run.wrote = true;
        noteChange();
        m_port.noteWrite();
    }
    m_outstanding = request(step);
    if (m_ending)
        m_answerLimit.start(Pacing::timeout(kAnswerLimit));
    if (m_outstanding == 0)
        takeResult(1);
}

/// @return 0 for a step that the link has no answer to
RequestId SequenceRunner::request(const Step& step)
{
    switch (step.kind) {
    case Kind::Connect:
        noteChange();
        return m_link.requestConnect();
    case Kind::Read:
    case Kind::Verify:
        return m_link.requestRead(step.id);
    case Kind::Write:
    case Kind::Close:
        return m_link.requestWrite(step.id, step.value);
    case Kind::Raw:
        return m_link.requestRawExchange(step.value);
    case Kind::SupplyOff:
    case Kind::SupplyOn:
        noteChange();
        return m_link.requestSupply(step.kind == Kind::SupplyOn);
    case Kind::StreamLine:
        return m_link.requestStreamMode(1, step.dataBits, step.micrometres);
    case Kind::ParameterLine:
        return m_link.requestStreamMode(0);
    case Kind::KeepAliveOff:
        m_link.setKeepAlive(0);
        break;
    case Kind::Pause:
        break;
    }
    return 0;
}

void SequenceRunner::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (message && message->message() == WM_LINK_FRAMES)
        return takeFrames();
    if (!message || message->request() == 0)
        return;
    const int result = static_cast<int>(message->wParam());
    const RequestId answered = message->request();
    if (answered == m_outstanding) {
        m_outstanding = 0;
        takeResult(result);
    } else if (m_port.takeResult(answered, result)) {
        return;
    } else if (answered == m_positionRequest) {
        m_positionRequest = 0;
        if (m_stream && !m_stream->stopping)
            tell([listener = m_stream->listener, result] { listener.position(result == 1); });
    }
}

void SequenceRunner::takeFrames()
{
    const PositionBatch batch = m_link.takeFrames();
    if (m_stream && !m_stream->stopping && m_stream->listener.frames && batch != PositionBatch())
        tell([listener = m_stream->listener, &batch] { listener.frames(batch); });
}

void SequenceRunner::takeResult(int result)
{
    Run& run = *m_run;
    const Step step = run.plan[run.at];
    const quint64 serial = run.serial;
    if (step.writes())
        m_port.noteWrite();
    // Without a port a request to write reports success all the same.
    const bool asked = step.kind != Kind::Pause && step.kind != Kind::KeepAliveOff;
    const bool unasked = asked && (m_link.linkFailed() == 1 || !m_link.isOpen());
    if (m_link.lossCount() != run.losses || unasked)
        return end(Outcome::Kind::Lost);
    if (step.kind == Kind::Connect)
        run.cutFrames = m_link.cutFrames(); // the sensor's answer tells whether PROG was heard
    const bool failed = result != 1 || m_link.cutFrames() != run.cutFrames;
    if (failed && (step.kind != Kind::Verify || run.abandoned))
        return end(run.abandoned ? Outcome::Kind::Abandoned : Outcome::Kind::Failed);
    if (step.reads() && !(failed ? takeSilence(step) : takeReply(step)))
        return;
    if (!m_run || m_run->serial != serial)
        return;
    if (step.kind == Kind::Write)
        m_run->written.append(step.id);
    ++m_run->at;
    tell([this, listener = m_run->listener.progress, owner = m_run->owner] {
        if (listener && owner)
            listener(static_cast<int>(m_run->at));
    });
    if (!m_run || m_run->serial != serial)
        return;
    if (step.pauseAfter > 0ms) {
        m_pause.start(Pacing::pause(step.pauseAfter));
    } else {
        doStep();
    }
}

/// @return false if the step is not over, or the plan has ended
bool SequenceRunner::takeReply(const Step& step)
{
    const Reply reply{step.id, m_link.lastReply(), isWellFormed(step.id, m_link.lastReply())};
    Run& run = *m_run;
    const bool verifies = step.kind == Kind::Verify;
    const bool differs =
        verifies && !step.value.isNull() && !isSameValue(step.id, step.value, reply.text);
    const bool unclear = !reply.wellFormed && (step.confirmed || verifies);
    if ((differs || unclear) && readOnceMore(reply.text))
        return false;
    const auto doubted = std::exchange(run.doubted, std::nullopt);
    if (unclear && !(doubted == reply.text && isPrintable(reply.text))) {
        if (verifies)
            return takeSilence(step); // an answer, but nobody knows which
        end(Outcome::Kind::Failed);
        return false;
    }
    if (differs)
        run.differences.append({step.id, step.value, reply.text});
    run.silent = false;
    if (reply.wellFormed || unclear) { // the same twice by now
        m_known[step.id] = reply.text;
    } else {
        m_known.erase(step.id);
    }
    tell([listener = run.listener.reply, owner = run.owner, reply] {
        if (listener && owner)
            listener(reply);
    });
    return true;
}

/// @return false if the step is not over: what was heard once may have been disturbed
bool SequenceRunner::readOnceMore(const QByteArray& text)
{
    if (m_run->doubted)
        return false;
    m_run->doubted = text;
    m_pause.start(Pacing::pause(kPauseBetweenRequests));
    return true;
}

/// A Verify step has no answer that can be used; a sensor that is silent twice in a row is gone.
/// @return false if the plan has ended
bool SequenceRunner::takeSilence(const Step& step)
{
    Run& run = *m_run;
    run.cutFrames = m_link.cutFrames();
    run.doubted.reset();
    run.unanswered.append(step.id);
    if (std::exchange(run.silent, true)) {
        end(Outcome::Kind::Failed);
        return false;
    }
    return true;
}

void SequenceRunner::end(Outcome::Kind kind)
{
    const Run run = std::move(*m_run);
    m_run.reset();
    m_outstanding = 0;
    m_pause.stop();
    disconnect(run.watch);
    Outcome outcome{.kind = kind,
                    .written = run.written,
                    .differences = run.differences,
                    .unanswered = run.unanswered};
    if (run.at < run.plan.size()) {
        outcome.parameter = run.plan[run.at].id;
    } else if (kind == Outcome::Kind::Lost) {
        outcome.parameter = run.plan.back().id;
    }
    if (kind == Outcome::Kind::Lost)
        m_known.clear();
    tell([this, &run, &outcome] {
        if (!run.owner || !run.listener.ended)
            return;
        m_continuing = outcome.kind == Outcome::Kind::Lost ? nullptr : run.owner;
        run.listener.ended(outcome);
        m_continuing = nullptr;
    });
}

/// Calls an owner, which may end anything. What waits is looked after once nobody is being told
/// anything any more.
void SequenceRunner::tell(const std::function<void()>& call)
{
    ++m_depth;
    call();
    --m_depth;
    settle();
}

void SequenceRunner::settle()
{
    if (m_depth == 0 && !m_run) {
        if (m_ending && m_stream && !m_stream->stopping) {
            stopStream();
        } else if (!m_stream && m_waiting.go) {
            const Waiting waiting = std::exchange(m_waiting, {});
            return tell([&] {
                if (waiting.owner)
                    waiting.go(m_streamRestored && !m_ending);
            });
        } else if (!m_stream && m_whenEnded) {
            std::exchange(m_whenEnded, {})();
        }
    }
    if (isBusy() != m_announcedBusy) {
        m_announcedBusy = isBusy();
        Q_EMIT busyChanged(m_announcedBusy);
    }
}

/// The sensor is not what it was when it was last read.
void SequenceRunner::noteChange()
{
    m_known.clear();
    ++m_changes;
}

void SequenceRunner::beginStream(QObject& owner, StreamListener listener)
{
    m_stream = Stream{.owner = &owner, .listener = std::move(listener)};
    m_stream->watch = connect(&owner, &QObject::destroyed, this, [this] { streamEnded(false); });
    m_positionRequest = 0;
}

void SequenceRunner::requestPosition()
{
    if (m_stream && !m_stream->stopping && !m_run && m_positionRequest == 0)
        m_positionRequest = m_link.requestPosition();
}

void SequenceRunner::stopStream()
{
    m_stream->stopping = true;
    settle(); // tells that it is busy
    tell([stop = m_stream->listener.stop] { stop(); });
}

void SequenceRunner::streamEnded(bool restored)
{
    if (m_stream)
        disconnect(m_stream->watch);
    m_stream.reset();
    m_streamRestored = restored;
    settle();
}

bool SequenceRunner::endStream(QObject& owner, std::function<void(bool)> then)
{
    if (m_run || m_waiting.go || m_port.isChanging() || m_ending ||
        (m_stream && m_stream->stopping))
        return false;
    if (!m_stream) {
        then(true);
        return true;
    }
    m_waiting = Waiting{&owner, std::move(then)};
    stopStream();
    return true;
}

void SequenceRunner::linkLost()
{
    m_known.clear();
    if (m_run && m_run->losses != m_link.lossCount())
        end(Outcome::Kind::Lost);
    if (m_stream && m_link.linkFailed() == 1)
        loseStream();
}

void SequenceRunner::loseStream()
{
    disconnect(m_stream->watch);
    const auto lost = m_stream->listener.lost;
    m_stream.reset();
    m_streamRestored = false;
    tell(lost);
}

/// A wedged driver never answers; the end of the program must not wait for it.
void SequenceRunner::giveUpWorker()
{
    if (m_run && m_outstanding != 0)
        end(Outcome::Kind::Lost);
    if (m_stream && !m_run)
        loseStream();
}

void SequenceRunner::openPort(int number, std::function<void(bool)> done)
{
    m_port.open(number, tellingOf(std::move(done)));
    settle(); // tells that it is busy
}

void SequenceRunner::openPort(int number, const QString& device, std::function<void(bool)> done)
{
    m_port.open(number, device, tellingOf(std::move(done)));
    settle(); // tells that it is busy
}

void SequenceRunner::reopenPort(std::function<void(bool)> done)
{
    m_port.reopen(tellingOf(std::move(done)));
}

void SequenceRunner::closePort(bool supplyOff, std::function<void()> done)
{
    m_port.close(supplyOff, tellingOf([done = std::move(done)](bool /*opened*/) { done(); }));
}

/// The sensor that was known is not the one behind the port any more.
PortUse::Done SequenceRunner::tellingOf(PortUse::Done done)
{
    return [this, done = std::move(done)](bool opened) {
        noteChange();
        tell([&done, opened] { done(opened); });
    };
}

void SequenceRunner::windDown(std::function<void()> done)
{
    m_ending = true;
    m_whenEnded = std::move(done);
    m_reservedFor = nullptr;
    m_answerLimit.start(Pacing::timeout(kAnswerLimit));
    if (m_run && !(m_stream && m_stream->stopping))
        giveUp();
    settle();
}

} // namespace pelorin
