#pragma once

#include "platform/core/Cancellation.h"
#include "platform/core/ComPort.h"
#include "platform/core/EventDescriptor.h"
#include "simulator/SimulatedDevice.h"

#include <deque>
#include <memory>
#include <mutex>

namespace pelorin {

/// A port whose line leads to a simulated device in this process.
class SimulatedComPort final : public ComPort
{
public:
    /// @param device null stands for a device that is not there: open fails with ENOENT
    explicit SimulatedComPort(std::shared_ptr<SimulatedDevice> device);
    ~SimulatedComPort() override;

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
    /// By the clock: no byte comes before its time on the line is over.
    [[nodiscard]] Watch watchBytes() const override;
    void beginExchange(std::uint64_t number) override;
    void cutShort(std::uint64_t number) override;
    void interrupt() override;
    void close() override;

private:
    using Clock = SimulatedDevice::Clock;
    using TimePoint = SimulatedDevice::TimePoint;

    enum class State { Closed, Open, Gone };
    enum class Use { Control, Transfer };

    [[nodiscard]] int errorFor(Use use);
    [[nodiscard]] int waitUntil(TimePoint limit);
    [[nodiscard]] std::chrono::nanoseconds byteTime() const;
    void fetch(TimePoint now);

    const std::shared_ptr<SimulatedDevice> m_device;
    std::mutex m_mutex;
    Cancellation m_cancellation; ///< m_mutex

    EventDescriptor m_vanished; ///< the device signals it from the claim to the release
    State m_state = State::Closed;
    LineSettings m_line{9600};
    Timeouts m_timeouts;
    std::deque<char> m_received;
};

} // namespace pelorin
