#pragma once

#include <QByteArray>

#include <chrono>
#include <functional>
#include <optional>
#include <string_view>

namespace pelorin {

class ComPort;
class CommLog;

/// What a raw exchange collected.
struct RawReply
{
    QByteArray bytes;
    /// The sensor did not fall silent: the collection was ended at 1 MiB, after 60 s, or because
    /// the worker is stopping.
    bool cut = false;
};

/// The frames exchanged with the sensor over a port, and their lines in the communications log.
/// Lives and runs on the link's worker thread, except setRts.
class SensorProtocol
{
public:
    /// What the protocol needs of the link.
    struct Callbacks
    {
        std::function<void()> reportLoss; ///< the port failed; the link must be opened again
        /// Time ran out before a frame had left: the port goes on, but the sensor lacks the frame.
        std::function<void()> reportCutFrame;
        /// Waits; returns false at once when the worker is asked to stop.
        std::function<bool(std::chrono::milliseconds)> pause;
    };

    SensorProtocol(ComPort& port, CommLog& log, Callbacks callbacks);

    /// @return the reply's 6 to 8 data bytes; nothing if there was no whole reply
    [[nodiscard]] std::optional<QByteArray> readParameter(char id);

    /// Sends a value of at most 9 bytes; a longer one is refused. The line gives no
    /// acknowledgement: a frame that could not be sent is reported as a loss.
    /// @return 1, or 0 when it was refused or the worker is stopping
    [[nodiscard]] int writeParameter(char id, const QByteArray& value);

    /// Switches the sensor off and on, takes it into its programming mode and reads its version.
    /// @return the version answer; nothing after two attempts without one
    [[nodiscard]] std::optional<QByteArray> connect();

    void sendKeepAlive();

    /// Sends bytes as they are and collects what comes until the line falls silent. A port that
    /// fails is reported as a loss, once; nothing is logged.
    [[nodiscard]] RawReply rawExchange(const QByteArray& bytes);

    /// Waits for the next whole frame of the position stream.
    /// @return the bytes that came, whether or not they are a frame; nothing if the port failed
    [[nodiscard]] std::optional<QByteArray> readPositionFrame();

    /// RTS switches the sensor's supply: set is off, cleared is on.
    /// @param clear 1 clears RTS, any other value sets it. Any thread.
    static void setRts(ComPort& port, CommLog& log, int clear);

private:
    int writeFrame(std::string_view frame, int purge);
    [[nodiscard]] QByteArray readFrame(int maximum);
    void logFrame(int transmit, std::string_view bytes);

    ComPort& m_port;
    CommLog& m_log;
    Callbacks m_callbacks;
};

} // namespace pelorin
