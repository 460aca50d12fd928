#pragma once

namespace pelorin {

/// An event that poll() can wait for: readable once it is signalled, until it is reset. open and
/// close have the owner's thread, the others any while it is open.
class EventDescriptor
{
public:
    EventDescriptor() = default;
    EventDescriptor(const EventDescriptor&) = delete;
    EventDescriptor& operator=(const EventDescriptor&) = delete;
    ~EventDescriptor();

    /// A new event, not signalled, in place of the one before.
    /// @return 0 or the system's error code
    [[nodiscard]] int open();
    void close();
    void signal() const;
    void reset() const;
    /// -1 if it is not open.
    [[nodiscard]] int descriptor() const { return m_fd; }

private:
    int m_fd = -1;
};

} // namespace pelorin
