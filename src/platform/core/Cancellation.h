#pragma once

#include <cstdint>
#include <set>

namespace pelorin {

/// Whether what a port does is cancelled at present: all of it, or the exchange that runs. The
/// port's lock guards it.
class Cancellation
{
public:
    /// Numbers grow; what was cut short before is of no interest any more.
    void begin(std::uint64_t exchange);
    /// Cancels one exchange, the running one or a later one.
    void cutShort(std::uint64_t exchange);
    void cancelAll() { m_all = true; }
    /// Ends cancelAll. Exchanges that were cut short stay so.
    void resume() { m_all = false; }

    [[nodiscard]] bool isCancelled() const { return m_all || m_cut.contains(m_running); }

private:
    bool m_all = false;
    std::uint64_t m_running = 0;
    std::set<std::uint64_t> m_cut; ///< none before the running one
};

} // namespace pelorin
