#include "platform/core/Cancellation.h"

namespace pelorin {

void Cancellation::begin(std::uint64_t exchange)
{
    m_running = exchange;
    m_cut.erase(m_cut.begin(), m_cut.lower_bound(exchange));
}

void Cancellation::cutShort(std::uint64_t exchange)
{
    if (exchange >= m_running)
        m_cut.insert(exchange);
}

} // namespace pelorin
