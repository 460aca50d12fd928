#pragma once

#include "platform/core/ComPort.h"

#include <atomic>
#include <cerrno>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>

namespace pelorin::test {

/// A port that does what another one does, but for what a test overrides.
class PortDecorator : public ComPort
{
public:
    explicit PortDecorator(std::unique_ptr<ComPort> port) : m_port(std::move(port)) {}

    int open() override { return m_port->open(); }
    bool isOpen() const override { return m_port->isOpen(); }
    int setLine(const LineSettings& line) override { return m_port->setLine(line); }
    int setTimeouts(const Timeouts& timeouts) override { return m_port->setTimeouts(timeouts); }
    int setQueueSizes(int in, int out) override { return m_port->setQueueSizes(in, out); }
    int purge(Purge what) override { return m_port->purge(what); }
    int setRts(bool on) override { return m_port->setRts(on); }
    ReadResult read() override { return m_port->read(); }
    TakeResult take() override { return m_port->take(); }
    WriteResult write(std::string_view bytes) override { return m_port->write(bytes); }
    Watch watch() const override { return m_port->watch(); }
    Watch watchBytes() const override { return m_port->watchBytes(); }
    void beginExchange(std::uint64_t number) override { m_port->beginExchange(number); }
    void cutShort(std::uint64_t number) override { m_port->cutShort(number); }
    void interrupt() override { m_port->interrupt(); }
    void close() override { m_port->close(); }

protected:
    [[nodiscard]] ComPort& port() const { return *m_port; }

private:
    const std::unique_ptr<ComPort> m_port;
};

/// A port that is not opened, read or closed as long as a test holds the lock.
class HeldPort final : public PortDecorator
{
public:
    enum class Call { Open, Read, Close };

    HeldPort(std::unique_ptr<ComPort> port, std::shared_ptr<std::mutex> hold,
             Call held = Call::Close)
        : PortDecorator(std::move(port)), m_hold(std::move(hold)), m_held(held)
    {
    }

    int open() override { return portFor(Call::Open).open(); }
    ReadResult read() override { return portFor(Call::Read).read(); }
    void close() override { portFor(Call::Close).close(); }

private:
    [[nodiscard]] ComPort& portFor(Call call) const
    {
        if (call == m_held)
            const std::lock_guard lock(*m_hold);
        return port();
    }

    const std::shared_ptr<std::mutex> m_hold;
    const Call m_held;
};

/// A port whose line cannot be set as long as a test wants that.
class RefusingPort final : public PortDecorator
{
public:
    RefusingPort(std::unique_ptr<ComPort> port, const std::atomic<bool>& refuses)
        : PortDecorator(std::move(port)), m_refuses(refuses)
    {
    }

    int setLine(const LineSettings& line) override
    {
        return m_refuses ? EINVAL : PortDecorator::setLine(line);
    }

private:
    const std::atomic<bool>& m_refuses;
};

/// A port that calls a function, on the worker's thread, when bytes have gone out.
class WatchedPort final : public PortDecorator
{
public:
    using Written = std::function<void(std::string_view)>;

    WatchedPort(std::unique_ptr<ComPort> port, Written written)
        : PortDecorator(std::move(port)), m_written(std::move(written))
    {
    }

    WriteResult write(std::string_view bytes) override
    {
        const WriteResult result = PortDecorator::write(bytes);
        m_written(bytes);
        return result;
    }

private:
    const Written m_written;
};

} // namespace pelorin::test
