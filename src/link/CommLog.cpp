#include "link/CommLog.h"

#include <QDateTime>

#include <algorithm>
#include <limits>
#include <utility>

namespace pelorin {

namespace {

/// The clock may be set meanwhile, by more than a block of lines can tell.
std::int32_t offsetOf(std::int64_t time, std::int64_t start)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(time - start, Limits::min(), Limits::max()));
}

} // namespace

void CommLog::append(const QString& line)
{
    const QByteArray utf8 = line.toUtf8();
    Blocks dropped; // freed after the lock, here as below: an append must not wait for it
    const std::int64_t now = QDateTime::currentMSecsSinceEpoch();
    const std::lock_guard lock(m_mutex);
    if (m_last.ends.empty())
        m_last.start = now;
    m_last.times.push_back(offsetOf(now, m_last.start));
    m_last.text.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    m_last.ends.push_back(static_cast<std::uint32_t>(m_last.text.size()));
    m_longestLine = std::max(m_longestLine, static_cast<int>(utf8.size()));
    if (m_last.ends.size() == kLinesPerBlock) {
        m_last.text.shrink_to_fit();
        m_bytes += m_last.bytes();
        m_full.push_back(std::make_shared<const Block>(std::exchange(m_last, Block())));
        dropped = takeTooMany();
    }
}

/// Takes the oldest blocks away that there is no room for.
CommLog::Blocks CommLog::takeTooMany()
{
    Blocks oldest;
    while (m_bytes > kMostBytes) {
        m_bytes -= m_full.front()->bytes();
        m_droppedLines += static_cast<qint64>(kLinesPerBlock);
        m_first += static_cast<std::int64_t>(kLinesPerBlock);
        oldest.push_back(std::move(m_full.front()));
        m_full.erase(m_full.begin());
    }
    return oldest;
}

void CommLog::clear()
{
    Blocks dropped;
    const std::lock_guard lock(m_mutex);
    m_first += size();
    dropped.swap(m_full);
    m_last = Block();
    m_bytes = 0;
    m_longestLine = 0;
    m_droppedLines = 0;
}

CommLog::Snapshot CommLog::snapshot() const
{
    Snapshot result;
    const std::lock_guard lock(m_mutex);
    result.m_blocks.reserve(m_full.size() + 1);
    result.m_blocks = m_full;
    result.m_blocks.push_back(std::make_shared<const Block>(m_last));
    result.m_size = size();
    result.m_longestLine = m_longestLine;
    result.m_droppedLines = m_droppedLines;
    result.m_first = m_first;
    return result;
}

int CommLog::size() const
{
    return static_cast<int>(m_full.size() * kLinesPerBlock + m_last.ends.size());
}

std::int64_t CommLog::Snapshot::time(int index) const
{
    const auto position = static_cast<std::size_t>(index);
    const Block& block = *m_blocks[position / kLinesPerBlock];
    return block.start + block.times[position % kLinesPerBlock];
}

QString CommLog::Snapshot::line(int index) const
{
    const auto position = static_cast<std::size_t>(index);
    const Block& block = *m_blocks[position / kLinesPerBlock];
    const std::size_t inBlock = position % kLinesPerBlock;
    const std::uint32_t begin = inBlock == 0 ? 0 : block.ends[inBlock - 1];
    return QString::fromUtf8(block.text.data() + begin,
                             static_cast<qsizetype>(block.ends[inBlock] - begin));
}

} // namespace pelorin
