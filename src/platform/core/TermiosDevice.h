#pragma once

#include "platform/core/LineSettings.h"
#include "platform/core/PosixCalls.h"

#include <span>
#include <string>
#include <string_view>

namespace pelorin {

/// An opened serial device: its descriptor, and what the system is asked to do with it. Closed when
/// destroyed.
///
/// Functions return the system's error code, 0 for success and always ENODEV for a device that has
/// gone; a signal only shows as EAGAIN, if at all. None waits, except wait, drain and the
/// destructor. Only cancel may be called while another operation runs.
class TermiosDevice
{
public:
    using TimePoint = PosixCalls::TimePoint;

    /// The calls must outlive the device.
    explicit TermiosDevice(const PosixCalls& calls);
    TermiosDevice(const TermiosDevice&) = delete;
    TermiosDevice& operator=(const TermiosDevice&) = delete;
    ~TermiosDevice();

    /// Opens the device for this program alone, sets its line if that is possible, and raises DTR
    /// and RTS. Once only; after a failure the object is of no use but to be destroyed.
    [[nodiscard]] int open(const std::string& path, const LineSettings& line);

    /// EINVAL, with the line as it was, if the device cannot do all of it.
    [[nodiscard]] int setLine(const LineSettings& line);
    [[nodiscard]] int setRts(bool on);
    [[nodiscard]] int discardInput();

    /// Discards what a write left behind that was not followed by a successful drain. A completed
    /// write is never touched: some devices still hold its bytes when they say that it is done.
    [[nodiscard]] int discardPendingOutput();

    /// Waits for one of poll's events, with 0 only for the time to pass.
    /// @return 0 for an event, ETIMEDOUT, or ECANCELED
    [[nodiscard]] int wait(short events, TimePoint deadline);

    /// Ends the running wait and every later one, until it is taken back.
    void cancel(bool on);

    /// What a poll() reports POLLHUP or POLLERR for once the device has gone.
    [[nodiscard]] int descriptor() const { return m_fd; }

    /// @param count how many bytes have come into the room
    /// @return EAGAIN if there are none
    [[nodiscard]] int read(std::span<char> room, std::size_t& count);

    /// @param taken how many of the bytes the system took
    /// @return EAGAIN if there is no room
    [[nodiscard]] int write(std::string_view bytes, std::size_t& taken);

    /// @param count bytes that the system took and that have not left yet
    [[nodiscard]] int countQueued(int& count);

    /// Waits until the device says that everything has left, but only once nothing is queued any
    /// more: a stuck device would never say so.
    /// @return EAGAIN if something is queued, or a signal came
    [[nodiscard]] int drain();

private:
    [[nodiscard]] int openDescriptor(const std::string& path);
    [[nodiscard]] int claim();
    [[nodiscard]] int raiseModemLines();
    [[nodiscard]] int setModemLines(bool on, int lines);

    const PosixCalls& m_calls;
    int m_fd = -1;
    int m_wake = -1; ///< an event that wakes a wait; signalled while cancelled
    bool m_cancelled = false;
    bool m_exclusive = false;
    bool m_outputPending = false;
};

} // namespace pelorin
