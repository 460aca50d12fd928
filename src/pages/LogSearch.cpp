#include "pages/LogSearch.h"

#include <QElapsedTimer>

#include <algorithm>

namespace pelorin {

namespace {

constexpr qint64 kPortionMs = 8; ///< as long as nobody notices
constexpr int kLinesBetweenLooksAtTheClock = 256;

} // namespace

LogSearch::LogSearch(QObject* parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &LogSearch::searchOn);
}

void LogSearch::find(const QString& text)
{
    m_text = text;
    m_found.clear();
    m_next = m_lines.first();
    m_timer.stop();
    setLines(m_lines);
}

void LogSearch::setLines(const CommLog::Snapshot& lines)
{
    m_lines = lines;
    m_next = std::max(m_next, m_lines.first());
    m_found.erase(m_found.begin(),
                  std::lower_bound(m_found.begin(), m_found.end(), m_lines.first()));
    if (!m_text.isEmpty() && m_next < m_lines.first() + m_lines.size()) {
        m_timer.start(0);
    } else {
        m_timer.stop();
    }
    Q_EMIT progressed();
}

int LogSearch::numberOf(std::int64_t line) const
{
    const auto found = std::lower_bound(m_found.begin(), m_found.end(), line);
    return found != m_found.end() && *found == line ? static_cast<int>(found - m_found.begin()) + 1
                                                    : 0;
}

std::optional<std::int64_t> LogSearch::nextFrom(std::int64_t line) const
{
    const auto found = std::lower_bound(m_found.begin(), m_found.end(), line);
    if (found != m_found.end())
        return *found;
    return m_found.empty() || isSearching() ? std::nullopt : std::optional(m_found.front());
}

std::optional<std::int64_t> LogSearch::before(std::int64_t line) const
{
    const auto found = std::lower_bound(m_found.begin(), m_found.end(), line);
    if (found != m_found.begin())
        return *std::prev(found);
    return m_found.empty() || isSearching() ? std::nullopt : std::optional(m_found.back());
}

void LogSearch::searchOn()
{
    QElapsedTimer clock;
    clock.start();
    const std::int64_t end = m_lines.first() + m_lines.size();
    for (int looked = 1; m_next < end; ++looked, ++m_next) {
        const int index = static_cast<int>(m_next - m_lines.first());
        if (m_lines.line(index).contains(m_text, Qt::CaseInsensitive))
            m_found.push_back(m_next);
        if (looked % kLinesBetweenLooksAtTheClock == 0 && clock.hasExpired(kPortionMs)) {
            ++m_next;
            break;
        }
    }
    if (m_next >= end)
        m_timer.stop();
    Q_EMIT progressed();
}

} // namespace pelorin
