#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace pelorin {

/// The communications log: one line per frame or serial error with its time, oldest first. A stream
/// fills it day and night: beyond 256 MB of memory the oldest block of lines is dropped.
/// Any thread may append, clear and take a snapshot at any time; none waits long for another,
/// since a snapshot shares all full blocks of lines and copies only the last one.
class CommLog
{
    struct Block
    {
        std::string text;                ///< the lines one after the other, UTF-8
        std::vector<std::uint32_t> ends; ///< where each line ends in text
        std::int64_t start = 0;          ///< when the first line came, in ms since 1970, UTC
        std::vector<std::int32_t> times; ///< when each line came, in ms since start

        [[nodiscard]] std::size_t bytes() const
        {
            return text.capacity() + ends.capacity() * sizeof(std::uint32_t) +
                   times.capacity() * sizeof(std::int32_t);
        }
    };
    using Blocks = std::vector<std::shared_ptr<const Block>>;

public:
    /// The lines as they were at one moment; a value that later appends do not change.
    class Snapshot
    {
    public:
        [[nodiscard]] int size() const { return m_size; }
        /// @param index 0 to size() - 1
        [[nodiscard]] QString line(int index) const;
        /// When a line came: milliseconds since 1970, UTC.
        [[nodiscard]] std::int64_t time(int index) const;
        /// How many lines have come and gone before line 0; a line keeps first() + index for ever.
        [[nodiscard]] std::int64_t first() const { return m_first; }
        /// Length in bytes of the longest line that the log has held since it was last cleared.
        [[nodiscard]] int longestLine() const { return m_longestLine; }
        /// How many lines older than the first have been dropped since the log was last cleared.
        [[nodiscard]] qint64 droppedLines() const { return m_droppedLines; }

    private:
        friend class CommLog;
        Blocks m_blocks;
        int m_size = 0;
        int m_longestLine = 0;
        qint64 m_droppedLines = 0;
        std::int64_t m_first = 0;
    };

    void append(const QString& line);
    void clear();
    [[nodiscard]] Snapshot snapshot() const;

private:
    static constexpr std::size_t kLinesPerBlock = 2048;
    static constexpr std::size_t kMostBytes = std::size_t{256} * 1024 * 1024;

    [[nodiscard]] Blocks takeTooMany();

    [[nodiscard]] int size() const; ///< under the lock

    mutable std::mutex m_mutex; ///< guards all fields
    Blocks m_full;
    Block m_last;
    std::size_t m_bytes = 0; ///< that the full blocks take
    int m_longestLine = 0;
    qint64 m_droppedLines = 0;
    std::int64_t m_first = 0;
};

} // namespace pelorin
