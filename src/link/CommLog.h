#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace pelorin {

/// The communications log: one line per frame or serial error with its time, oldest first, without
/// limit.
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

    private:
        friend class CommLog;
        Blocks m_blocks;
        int m_size = 0;
        int m_longestLine = 0;
        std::int64_t m_first = 0;
    };

    void append(const QString& line);
    void clear();
    [[nodiscard]] Snapshot snapshot() const;

private:
    static constexpr std::size_t kLinesPerBlock = 2048;

    [[nodiscard]] int size() const; ///< under the lock

    mutable std::mutex m_mutex; ///< guards all fields
    Blocks m_full;
    Block m_last;
    int m_longestLine = 0;
    std::int64_t m_first = 0;
};

} // namespace pelorin
