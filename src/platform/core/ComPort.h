#pragma once

#include "platform/core/LineSettings.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace pelorin {

/// A serial device, opened exclusively.
///
/// Every operation that can fail returns the system's error code, 0 for success, EBADF on a port
/// that is not open. A port belongs to one thread; only interrupt and cutShort may be called from
/// any other, at any time, also while that one waits in a read or a write.
///
/// A device that vanished is closed at once by the operation that noticed; this and every later
/// operation fail with ENODEV until the port is opened again.
class ComPort
{
public:
    /// Time limits in milliseconds. A read waits for one byte at most readConstant + 1 *
    /// readMultiplier, a write of n bytes at most writeConstant + n * writeMultiplier.
    struct Timeouts
    {
        int readInterval = 100;
        int readMultiplier = 1;
        int readConstant = 500;
        int writeMultiplier = 1;
        int writeConstant = 1000;
    };

    enum class Purge {
        Receive, ///< discard what was received and not read
        Both     ///< also discard a write that ended short, never a completed one
    };

    struct ReadResult
    {
        int error = 0;         ///< 0 or the system's error code
        bool received = false; ///< false with error 0: nothing came within the time limit
        char byte = 0;
    };

    struct TakeResult
    {
        int error = 0;       ///< 0 or the system's error code
        std::string bytes{}; ///< all that had been received; empty if nothing had
    };

    struct WriteResult
    {
        int error = 0;   ///< 0 or the system's error code
        int written = 0; ///< bytes that left on the line; fewer than asked when time ran out
    };

    /// What a poll() waits on. No descriptor (-1) while the port is closed or the device has been
    /// found gone, or where only the clock says it.
    struct Watch
    {
        using TimePoint = std::chrono::steady_clock::time_point;

        int descriptor = -1;
        short events = 0;
        TimePoint due = TimePoint::max(); ///< when it ends by the clock at the latest
    };

    ComPort() = default;
    ComPort(const ComPort&) = delete;
    ComPort& operator=(const ComPort&) = delete;
    virtual ~ComPort() = default;

    /// Opens the device for reading and writing, EBUSY if somebody else has it. RTS is set.
    [[nodiscard]] virtual int open() = 0;
    [[nodiscard]] virtual bool isOpen() const = 0;
    [[nodiscard]] virtual int setLine(const LineSettings& line) = 0;
    [[nodiscard]] virtual int setTimeouts(const Timeouts& timeouts) = 0;
    /// Sizes of the queues in bytes; a port whose system has fixed ones accepts what fits them.
    [[nodiscard]] virtual int setQueueSizes(int receive, int transmit) = 0;
    [[nodiscard]] virtual int purge(Purge what) = 0;
    [[nodiscard]] virtual int setRts(bool on) = 0;
    [[nodiscard]] virtual ReadResult read() = 0;
    /// Reads what has been received already, without waiting.
    [[nodiscard]] virtual TakeResult take() = 0;
    /// Returns when the bytes have left on the line, or time ran out.
    [[nodiscard]] virtual WriteResult write(std::string_view bytes) = 0;

    /// To notice that the device has gone, without touching its bytes.
    [[nodiscard]] virtual Watch watch() const = 0;
    /// To notice that there are bytes to take. It may end without any.
    [[nodiscard]] virtual Watch watchBytes() const = 0;

    /// Begins an exchange: every read and write until the next begin belongs to it. Numbers grow.
    virtual void beginExchange(std::uint64_t number) = 0;
    /// Cuts one exchange short, whether it runs or is still to begin: its waits end, and its reads
    /// and writes fail with ECANCELED; later exchanges are not touched. Any thread.
    virtual void cutShort(std::uint64_t number) = 0;

    /// Ends a running wait and makes every later read and write fail at once with ECANCELED,
    /// until the port is closed. Does nothing while it is closed. Any thread.
    virtual void interrupt() = 0;
    virtual void close() = 0;
};

} // namespace pelorin
