#pragma once

#include "platform/core/ComPort.h"

#include <QByteArray>

#include <utility>

namespace pelorin::fuzz {

/// A port on which bytes come at once, and then nothing.
class TalkingPort final : public ComPort
{
public:
    explicit TalkingPort(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    int open() override { return 0; }
    bool isOpen() const override { return true; }
    int setLine(const LineSettings& /*line*/) override { return 0; }
    int setTimeouts(const Timeouts& /*timeouts*/) override { return 0; }
    int setQueueSizes(int /*receive*/, int /*transmit*/) override { return 0; }
    int purge(Purge /*what*/) override { return 0; }
    int setRts(bool /*on*/) override { return 0; }
    ReadResult read() override
    {
        const bool received = m_next < m_bytes.size();
        return {0, received, received ? m_bytes[m_next++] : '\0'};
    }
    TakeResult take() override
    {
        return {0, m_bytes.mid(std::exchange(m_next, m_bytes.size())).toStdString()};
    }
    WriteResult write(std::string_view bytes) override
    {
        return {0, static_cast<int>(bytes.size())};
    }
    Watch watch() const override { return {}; }
    Watch watchBytes() const override { return {}; }
    void beginExchange(std::uint64_t /*number*/) override {}
    void cutShort(std::uint64_t /*number*/) override {}
    void interrupt() override {}
    void close() override {}

private:
    const QByteArray m_bytes;
    qsizetype m_next = 0;
};

} // namespace pelorin::fuzz
