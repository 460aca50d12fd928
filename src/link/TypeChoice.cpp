#include "link/TypeChoice.h"

namespace pelorin {

void TypeChoice::choose(int revision, int type)
{
    const std::lock_guard lock(m_mutex);
    m_choice = Choice{revision, type};
}

void TypeChoice::takeOver(const TypeChoice& other)
{
    const std::scoped_lock lock(m_mutex, other.m_mutex);
    m_choice = other.m_choice;
}

std::optional<int> TypeChoice::typeFor(int revision, bool known)
{
    const std::lock_guard lock(m_mutex);
    if (m_choice && (known || m_choice->revision != revision))
        m_choice.reset();
    return m_choice ? std::optional(m_choice->type) : std::nullopt;
}

} // namespace pelorin
