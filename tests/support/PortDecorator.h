#pragma once

#include "platform/core/ComPort.h"

#include <memory>
#include <mutex>
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
    WriteResult write(std::string_view bytes) override { return m_port->write(bytes); }
    Watch watch() const override { return m_port->watch(); }
    void beginExchange(std::uint64_t number) override { m_port->beginExchange(number); }
    void cutShort(std::uint64_t number) override { m_port->cutShort(number); }
    void interrupt() override { m_port->interrupt(); }
    void close() override { m_port->close(); }

private:
    std::unique_ptr<ComPort> m_port;
};

/// A port that is not closed as long as a test holds the lock.
class HeldPort final : public PortDecorator
{
public:
    HeldPort(std::unique_ptr<ComPort> port, std::shared_ptr<std::mutex> closing)
        : PortDecorator(std::move(port)), m_closing(std::move(closing))
    {
    }

    void close() override
    {
        const std::lock_guard lock(*m_closing);
        PortDecorator::close();
    }

private:
    const std::shared_ptr<std::mutex> m_closing;
};

} // namespace pelorin::test
