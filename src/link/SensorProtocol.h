#pragma once

#include "platform/core/ComPort.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>

namespace pelorin {

class CommLog;
class StreamFollower;

/// What a raw exchange collected.
struct RawReply
{
    QByteArray bytes;
    /// The sensor did not fall silent: the collection was ended at 1 MiB, after 60 s, or because
    /// the exchange was cut short.
    bool cut = false;
};

/// The frames exchanged with the sensor over a port, and their lines in the communications log.
/// Lives and runs on the link's worker thread.
///
/// A sensor may answer late. After a read that failed, and a raw exchange that was cut short, the
/// next frame of a read or write waits until that answer cannot come any more, and discards it:
/// it would be taken for the answer to the next read.
class SensorProtocol
{
public:
    /// What the protocol needs of the link.
    struct Callbacks
    {
        std::function<void()> reportLoss; ///< the port failed; the link must be opened again
        /// Time ran out before a frame had left: the port goes on, but the sensor lacks the frame.
        std::function<void()> reportCutFrame;
        /// Waits; returns false at once when the request is cut short or the worker is to stop.
        std::function<bool(std::chrono::milliseconds)> pause;
    };

    SensorProtocol(ComPort& port, CommLog& log, Callbacks callbacks);

    /// @return the reply's 6 to 8 data bytes; nothing if there was no whole reply
    [[nodiscard]] std::optional<QByteArray> readParameter(char id);

    /// Sends a value of at most 9 bytes; a longer one is refused. The line gives no
    /// acknowledgement: a frame that could not be sent is reported as a loss.
    /// @return 1, or 0 when it was refused or cut short
    [[nodiscard]] int writeParameter(char id, const QByteArray& value);

    /// Switches the sensor off and on, takes it into its programming mode and reads its version.
    /// @return the version answer; nothing after two attempts without one
    [[nodiscard]] std::optional<QByteArray> connect();

    /// Whether the last connect has switched the supply: a line may have no RTS.
    [[nodiscard]] bool hasSwitchedSupply() const { return m_supplySwitched; }

    void sendKeepAlive();

    /// Sends bytes as they are and collects what comes until the line falls silent. A port that
    /// fails is reported as a loss, once; nothing is logged.
    [[nodiscard]] RawReply rawExchange(const QByteArray& bytes);

    /// Discards what was received and not read. A port that fails is reported as a loss.
    /// @return whether it was
    [[nodiscard]] bool discardInput() { return purge(ComPort::Purge::Receive) == 0; }

    /// Waits for a whole frame of the position stream, at most 501 ms. One whose beginning came
    /// before is passed over.
    /// @return nothing if none came, or the port failed
    [[nodiscard]] std::optional<QByteArray> readPositionFrame();

    /// Whether a followed stream has a position of now; without one the next frame is waited for,
    /// until 501 ms after the last whole one. The log gets the newest frame.
    [[nodiscard]] bool awaitPosition(StreamFollower& follower);

    /// RTS switches the sensor's supply: set is off, cleared is on.
    /// @param clear 1 clears RTS, any other value sets it
    /// @return 1, or 0 if the line cannot be switched, which is logged
    int setRts(int clear);

    /// Reports a port whose device has gone while nothing was exchanged.
    void noticeGone();

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] std::optional<QByteArray> readReply(char id);
    void outlastLateAnswer();
    [[nodiscard]] bool isQuietFor(std::chrono::milliseconds time);
    [[nodiscard]] int purge(ComPort::Purge what);
    int writeFrame(QByteArrayView frame, int purgeFirst);
    [[nodiscard]] ComPort::ReadResult readByte();
    [[nodiscard]] QByteArray readFrame(int maximum);
    void logFrame(int transmit, QByteArrayView bytes);

    ComPort& m_port;
    CommLog& m_log;
    Callbacks m_callbacks;
    bool m_supplySwitched = false;
    std::optional<Clock::time_point> m_unanswered; ///< when a request was sent whose answer may
                                                   ///< still come
};

} // namespace pelorin
