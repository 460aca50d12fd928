#include "simulator/SimulatedComPort.h"
#include "support/ComPortContract.h"

#include <QTest>

#include <thread>

using namespace pelorin;

namespace {

/// A device that takes and sends bytes as they are, at any speed.
class PlainDevice final : public SimulatedDevice
{
public:
    /// @return when the last of the bytes arrives
    [[nodiscard]] TimePoint send(std::string_view bytes)
    {
        const std::lock_guard lock(mutex());
        const auto now = Clock::now();
        transmit({}, std::string(bytes), now);
        changed();
        return now + byteTime(line()) * static_cast<long>(bytes.size());
    }

    [[nodiscard]] std::string takeReceived(std::size_t count)
    {
        const std::lock_guard lock(mutex());
        const std::string bytes = m_received.substr(0, count);
        m_received.erase(0, count);
        return bytes;
    }

private:
    int ownBaud() const override { return line().baud; }
    std::string_view commandOf(std::string_view) const override { return {}; }
    void handleByte(char byte, TimePoint) override { m_received += byte; }
    void handleFrame(std::string_view, TimePoint) override {}

    std::string m_received; ///< mutex()
};

class Peer final : public ComPortPeer
{
public:
    std::unique_ptr<ComPort> makePort() override
    {
        return std::make_unique<SimulatedComPort>(m_device);
    }
    // A purge after it must find all of the bytes: those still on the line would outlast it.
    void send(std::string_view bytes) override
    {
        std::this_thread::sleep_until(m_device->send(bytes));
    }
    // A write has given the device its bytes when it returns.
    std::string receive(std::size_t count) override { return m_device->takeReceived(count); }
    void vanish() override { m_device->vanish(); }
    void comeBack() override { m_device->comeBack(); }

private:
    const std::shared_ptr<PlainDevice> m_device = std::make_shared<PlainDevice>();
};

} // namespace

class TestSimulatedComPortContract : public ComPortContract
{
    Q_OBJECT

    std::unique_ptr<ComPortPeer> makePeer() override { return std::make_unique<Peer>(); }
};

QTEST_GUILESS_MAIN(TestSimulatedComPortContract)
#include "TestSimulatedComPortContract.moc"
