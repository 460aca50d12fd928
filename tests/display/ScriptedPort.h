#pragma once

#include "platform/core/ComPort.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <memory>
#include <mutex>

namespace pelorin::test {

/// What a ScriptedPort does, and what was done to it. A step whose error is not 0 fails with it.
/// The numbers may be set at any time, also while a worker uses the port.
struct PortScript
{
    std::atomic<int> openError = 0, lineError = 0, timeoutsError = 0, queuesError = 0;
    std::atomic<int> purgeError = 0, writeError = 0, readError = 0;
    std::atomic<int> missing = 0; ///< bytes at the end of each write that do not leave
    std::atomic<bool> open = false;

    std::mutex mutex;             ///< guards the rest
    QList<QByteArray> answers;    ///< to the next writes
    QByteArray otherwise = "*\r"; ///< the answer to the writes after those
    QByteArray written;
    LineSettings line;

    QByteArray takeWritten()
    {
        const std::lock_guard lock(mutex);
        return std::exchange(written, {});
    }
};

/// A port whose other end answers each write with bytes that a test has written down.
class ScriptedPort final : public ComPort
{
public:
    explicit ScriptedPort(std::shared_ptr<PortScript> script) : m_script(std::move(script)) {}

    int open() override
    {
        m_script->open = m_script->openError == 0;
        return m_script->openError;
    }
    bool isOpen() const override { return m_script->open; }
    int setLine(const LineSettings& line) override
    {
        const std::lock_guard lock(m_script->mutex);
        m_script->line = line;
        return m_script->lineError;
    }
    int setTimeouts(const Timeouts&) override { return m_script->timeoutsError; }
    int setQueueSizes(int, int) override { return m_script->queuesError; }
    int purge(Purge) override
    {
        if (m_script->purgeError == 0)
            m_unread.clear();
        return m_script->purgeError;
    }
    int setRts(bool) override { return 0; }
    ReadResult read() override
    {
        if (m_script->readError != 0)
            return {.error = m_script->readError};
        if (m_unread.isEmpty())
            return {};
        const char byte = m_unread.front();
        m_unread.remove(0, 1);
        return {.received = true, .byte = byte};
    }
    WriteResult write(std::string_view bytes) override
    {
        const std::lock_guard lock(m_script->mutex);
        m_script->written.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
        auto& answers = m_script->answers;
        m_unread += answers.isEmpty() ? m_script->otherwise : answers.takeFirst();
        if (m_script->writeError != 0)
            return {.error = m_script->writeError};
        return {.written = static_cast<int>(bytes.size()) - m_script->missing};
    }
    Watch watch() const override { return {}; }
    void beginExchange(std::uint64_t) override {}
    void cutShort(std::uint64_t) override {}
    void interrupt() override {}
    void close() override { m_script->open = false; }

private:
    const std::shared_ptr<PortScript> m_script;
    QByteArray m_unread;
};

} // namespace pelorin::test
