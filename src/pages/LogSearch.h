#pragma once

#include "link/CommLog.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <optional>
#include <vector>

namespace pelorin {

/// Finds the lines of the communications log that hold a text, in either letter case. It looks at
/// some lines at a time, from the event loop, so that a long log stops nothing. Lines are counted
/// as the log counts them: what was found stays found when lines come and go. User-interface
/// thread.
class LogSearch final : public QObject
{
    Q_OBJECT

public:
    explicit LogSearch(QObject* parent);

    /// Begins anew; nothing is found of an empty text.
    void find(const QString& text);
    /// The lines that there are now.
    void setLines(const CommLog::Snapshot& lines);

    [[nodiscard]] bool isSearching() const { return m_timer.isActive(); }
    [[nodiscard]] int count() const { return static_cast<int>(m_found.size()); }
    /// Which of those found a line is, from 1 on; 0 if it is none.
    [[nodiscard]] int numberOf(std::int64_t line) const;

    /// The next one from a line on, or the one before it; at the end it begins again on the other
    /// side, once all lines have been looked at.
    [[nodiscard]] std::optional<std::int64_t> nextFrom(std::int64_t line) const;
    [[nodiscard]] std::optional<std::int64_t> before(std::int64_t line) const;

Q_SIGNALS:
    /// More has been found, or all has been looked at.
    void progressed();

private:
    void searchOn();

    QString m_text;
    CommLog::Snapshot m_lines;
    std::int64_t m_next = 0; ///< the first line that has not been looked at
    std::vector<std::int64_t> m_found;
    QTimer m_timer;
};

} // namespace pelorin
