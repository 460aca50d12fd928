#pragma once

#include "platform/core/Cancellation.h"
#include "platform/core/ComPort.h"
#include "platform/core/PosixCalls.h"

#include <cerrno>
#include <memory>
#include <mutex>
#include <string>

namespace pelorin {

class TermiosDevice;

/// A serial device of the system, named by its path: "/dev/ttyUSB0", a link to one, or a
/// pseudo-terminal, whose RTS cannot be switched (ENOTTY).
///
/// EACCES and EBUSY right after an adapter was plugged in pass within a second; who opens again
/// decides when.
class TermiosComPort : public ComPort
{
public:
    explicit TermiosComPort(std::string path, PosixCalls calls = PosixCalls::real());
    ~TermiosComPort() override;

    /// EBUSY also if this port is open already; it then stays as it is. The line is 4800 baud, no
    /// parity, 8 data bits, 1 stop bit, if the device can be set to that.
    [[nodiscard]] int open() override;
    [[nodiscard]] bool isOpen() const override;
    [[nodiscard]] int setLine(const LineSettings& line) override;
    [[nodiscard]] int setTimeouts(const Timeouts& timeouts) override;
    [[nodiscard]] int setQueueSizes(int receive, int transmit) override;
    [[nodiscard]] int purge(Purge what) override;
    [[nodiscard]] int setRts(bool on) override;
    [[nodiscard]] ReadResult read() override;
    [[nodiscard]] TakeResult take() override;
    [[nodiscard]] WriteResult write(std::string_view bytes) override;
    [[nodiscard]] Watch watch() const override;
    [[nodiscard]] Watch watchBytes() const override;
    void beginExchange(std::uint64_t number) override;
    void cutShort(std::uint64_t number) override;
    void interrupt() override;

    /// May block for a long time if the device is stuck: not for the user-interface thread.
    void close() override;

private:
    using TimePoint = PosixCalls::TimePoint;

    template <class Operation>
    [[nodiscard]] int perform(Operation operation);
    [[nodiscard]] int outcome(int error);
    void dropDevice(int absence);
    void showCancellation();

    [[nodiscard]] int receive(TermiosDevice& device, TimePoint deadline, char& byte);
    [[nodiscard]] int handOver(TermiosDevice& device, std::string_view bytes, TimePoint deadline,
                               std::size_t& handed);
    [[nodiscard]] int waitUntilSent(TermiosDevice& device, TimePoint deadline);
    [[nodiscard]] int waitOutLineTime(TermiosDevice& device);
    [[nodiscard]] int pause(TermiosDevice& device, TimePoint deadline);
    [[nodiscard]] std::chrono::nanoseconds timeOnLine(std::size_t bytes) const;

    const std::string m_path;
    const PosixCalls m_calls;
    Timeouts m_timeouts;
    LineSettings m_line;
    TimePoint m_lineFree{}; ///< when the bytes written so far have left
    int m_absence = EBADF;  ///< why there is no device

    std::mutex m_mutex;
    Cancellation m_cancellation; ///< m_mutex
    /// Null while closed. The port's thread uses it, and changes it under m_mutex; other threads
    /// only cancel it, under m_mutex.
    std::unique_ptr<TermiosDevice> m_device;
};

} // namespace pelorin
