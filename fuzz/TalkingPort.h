#pragma once

#include "support/PortDecorator.h"

#include <QByteArray>

namespace pelorin::fuzz {

/// A port on which bytes come at once, and then nothing.
class TalkingPort final : public test::PortDecorator
{
public:
    explicit TalkingPort(const QByteArray& bytes) : PortDecorator(nullptr), m_bytes(bytes) {}

    int setTimeouts(const Timeouts& /*timeouts*/) override { return 0; }
    int purge(Purge /*what*/) override { return 0; }
    int setRts(bool /*on*/) override { return 0; }
    WriteResult write(std::string_view bytes) override
    {
        return {0, static_cast<int>(bytes.size())};
    }
    ReadResult read() override
    {
        const bool received = m_next < m_bytes.size();
        return {0, received, received ? m_bytes[m_next++] : '\0'};
    }

private:
    const QByteArray m_bytes;
    qsizetype m_next = 0;
};

} // namespace pelorin::fuzz
