#include "link/SensorProtocol.h"

#include "link/CommLog.h"
#include "link/CommLogTexts.h"
#include "link/SensorFrame.h"
#include "link/StreamFollower.h"
#include "platform/core/ComPort.h"
#include "platform/core/Pacing.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr char kVersionId = 'V';
constexpr char kProgFrame[] = "PROG\r";
constexpr int kProgFramesPerConnect = 101;
constexpr int kConnectAttempts = 2;
constexpr auto kSupplyOffTime = 500ms;

constexpr int kReplyMaximum = 10;
constexpr int kReplyMinimumWithTerminator = 7;
constexpr int kReplyMaximumWithTerminator = 9;
constexpr int kWriteDataMaximum = 9;

constexpr std::chrono::milliseconds kPositionLimit = 501ms;
constexpr auto kPositionOfNow = 100ms; ///< old at most

// Of a late answer, counted from its request.
constexpr auto kAnswerLimit = 1500ms;
constexpr auto kAnswerEndLimit = 2000ms;
constexpr std::chrono::milliseconds kSilence = 200ms;

constexpr qsizetype kRawReplyMaximum = qsizetype{1024} * 1024;
constexpr auto kRawReplyTime = 60s;

} // namespace

SensorProtocol::SensorProtocol(ComPort& port, CommLog& log, Callbacks callbacks)
    : m_port(port), m_log(log), m_callbacks(std::move(callbacks))
{
}

std::optional<QByteArray> SensorProtocol::readParameter(char id)
{
    outlastLateAnswer();
    return readReply(id);
}

std::optional<QByteArray> SensorProtocol::readReply(char id)
{
    m_unanswered = Clock::now();
    (void)writeFrame(readFrameOf(id), 1); // a failed write still waits for a reply
    QByteArray reply = readFrame(kReplyMaximum);

    const auto count = static_cast<int>(reply.size());
    if (count < kReplyMinimumWithTerminator || count > kReplyMaximumWithTerminator) {
        m_log.append(QString::asprintf("%s %d", logtexts::kAnswerCount, count));
        return std::nullopt;
    }
    if (reply.back() != kFrameTerminator) {
        const auto last = static_cast<unsigned char>(reply.back());
        m_log.append(QString::asprintf("%s received ($%02X)", logtexts::kAnswerEnd,
                                       static_cast<unsigned>(last)));
        return std::nullopt;
    }
    m_unanswered.reset();
    reply.chop(1);
    return reply;
}

void SensorProtocol::outlastLateAnswer()
{
    if (!m_unanswered)
        return;
    const auto sent = *std::exchange(m_unanswered, std::nullopt);
    const auto rest = [sent](std::chrono::milliseconds limit) {
        return limit - Pacing::timeoutElapsed(Clock::now() - sent);
    };
    if (rest(kAnswerLimit) <= 0ms || isQuietFor(rest(kAnswerLimit)))
        return;
    while (rest(kAnswerEndLimit) > 0ms) {
        if (isQuietFor(std::min(rest(kAnswerEndLimit), kSilence)))
            return;
    }
}

/// Whether nothing comes for a time, as on a port that fails; a byte that comes is discarded.
bool SensorProtocol::isQuietFor(std::chrono::milliseconds time)
{
    ComPort::Timeouts limits;
    limits.readMultiplier = 0;
    limits.readConstant = static_cast<int>(time.count());
    (void)m_port.setTimeouts(limits); // what hinders it hinders the read, too
    const bool quiet = !m_port.read().received;
    (void)m_port.setTimeouts(ComPort::Timeouts());
    return quiet;
}

int SensorProtocol::writeParameter(char id, const QByteArray& value)
{
    if (value.size() > kWriteDataMaximum) {
        m_log.append(
            QString::asprintf("%s %d", logtexts::kValueTooLong, static_cast<int>(value.size())));
        return 0;
    }
    outlastLateAnswer();
    return writeFrame(writeFrameOf(id, value), 1);
}

std::optional<QByteArray> SensorProtocol::connect()
{
    for (int attempt = 0; attempt < kConnectAttempts; ++attempt) {
        const int off = setRts(0);
        if (!m_callbacks.pause(Pacing::pause(kSupplyOffTime)))
            return std::nullopt;
        m_supplySwitched = setRts(1) == 1 && off == 1;

        for (int frame = 0; frame < kProgFramesPerConnect; ++frame) {
            if (!writeFrame(kProgFrame, frame == 0 ? 1 : 0))
                return std::nullopt;
        }
        if (auto version = readReply(kVersionId))
            return version;
    }
    return std::nullopt;
}

void SensorProtocol::sendKeepAlive()
{
    (void)writeFrame(kProgFrame, 0);
}

RawReply SensorProtocol::rawExchange(const QByteArray& bytes)
{
    const auto sent = Clock::now();
    bool portFailed = false;
    const auto observe = [&portFailed](int error) {
        portFailed = portFailed || (error != 0 && error != ECANCELED);
    };
    for (const char& byte : bytes)
        observe(m_port.write({&byte, 1}).error);

    RawReply reply;
    const QDeadlineTimer deadline(Pacing::pause(kRawReplyTime));
    while (!reply.cut) {
        const auto result = m_port.read();
        observe(result.error);
        if (!result.received) {
            reply.cut = result.error == ECANCELED;
            break;
        }
        reply.bytes.append(result.byte);
        reply.cut = reply.bytes.size() >= kRawReplyMaximum || deadline.hasExpired();
    }
    if (portFailed)
        m_callbacks.reportLoss();
    if (reply.cut)
        m_unanswered = sent;
    return reply;
}

std::optional<QByteArray> SensorProtocol::readPositionFrame()
{
    if (!discardInput())
        return std::nullopt;
    StreamFollower follower({}, {}, Clock::now());
    if (!awaitPosition(follower))
        return std::nullopt;
    return QByteArray::fromStdString(follower.newestFrame());
}

bool SensorProtocol::awaitPosition(StreamFollower& follower)
{
    const auto age = [&follower] {
        return Pacing::timeoutElapsed(Clock::now() - follower.lastWhole());
    };
    const auto isOfNow = [&] { return !follower.newestFrame().empty() && age() <= kPositionOfNow; };
    ComPort::Timeouts limits;
    while (!isOfNow() && age() < kPositionLimit) {
        limits.readConstant =
            static_cast<int>((kPositionLimit - age()).count()) - limits.readMultiplier;
        (void)m_port.setTimeouts(limits); // what hinders it hinders the read, too
        const auto result = readByte();
        if (!result.received)
            break;
        follower.take({&result.byte, 1}, Clock::now());
    }
    (void)m_port.setTimeouts(ComPort::Timeouts());
    const bool found = isOfNow();
    logFrame(0, found ? follower.newestFrame() : follower.remainder());
    return found;
}

int SensorProtocol::setRts(int clear)
{
    const bool on = clear != 1;
    const int error = m_port.setRts(on);
    if (error != 0) {
        m_log.append(QString::asprintf("%s %s. Error = %d", logtexts::kSupplyFailed,
                                       on ? "SETRTS" : "CLRRTS", error));
    }
    return error == 0 ? 1 : 0;
}

void SensorProtocol::noticeGone()
{
    (void)purge(ComPort::Purge::Receive); // says why, and closes the port
}

/// @return the system's error code, which is logged and reported as a loss
int SensorProtocol::purge(ComPort::Purge what)
{
    const int error = m_port.purge(what);
    if (error != 0) {
        m_log.append(QString::asprintf("%s. Error = %d", logtexts::kPurgeFailed, error));
        m_callbacks.reportLoss();
    }
    return error;
}

/// @return 0 only when the exchange is cut short; other failures are reported as a loss
int SensorProtocol::writeFrame(QByteArrayView frame, int purgeFirst)
{
    if (purgeFirst == 1)
        (void)purge(ComPort::Purge::Both); // the write is tried all the same

    const auto length = static_cast<int>(frame.size());
    const auto [error, written] = m_port.write({frame.data(), static_cast<std::size_t>(length)});
    if (error == ECANCELED)
        return 0;
    if (error != 0) {
        m_log.append(QString::asprintf("%s. Error = %d", logtexts::kWriteFailed, error));
        m_callbacks.reportLoss();
    } else if (written < length) {
        m_log.append(QString::asprintf("%s. Wrote = %d, Correct = %d,Error = %d",
                                       logtexts::kFrameCut, written, length, error));
        m_callbacks.reportCutFrame();
    } else {
        logFrame(1, frame);
    }
    return 1;
}

ComPort::ReadResult SensorProtocol::readByte()
{
    const auto result = m_port.read();
    if (result.error != 0 && result.error != ECANCELED)
        m_log.append(QString::asprintf("%s. Error = %d", logtexts::kReadFailed, result.error));
    if (result.error == ENODEV)
        m_callbacks.reportLoss();
    return result;
}

QByteArray SensorProtocol::readFrame(int maximum)
{
    QByteArray bytes;
    while (bytes.size() < maximum) {
        const auto result = readByte();
        if (!result.received)
            break;
        bytes.append(result.byte);
        if (result.byte == kFrameTerminator)
            break;
    }
    logFrame(0, bytes);
    return bytes;
}

void SensorProtocol::logFrame(int transmit, QByteArrayView bytes)
{
    if (transmit == 1 && bytes.startsWith("PR"))
        return; // a hundred PROG frames would bury the rest of the log
    const QLatin1String direction(transmit == 1 ? logtexts::kSent : logtexts::kReceived);
    m_log.append(direction + frameText(bytes));
}

} // namespace pelorin
