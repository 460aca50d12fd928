#pragma once

#include "platform/core/WindowMessage.h"

#include <cstdint>
#include <mutex>

class QObject;

namespace pelorin {

/// Where a worker's messages go. Aim on the user-interface thread, post on any. Once
/// aim(nullptr) has returned nothing more is posted: a window that aims away is safe to destroy.
class MessageTarget
{
public:
    /// @param message the number that post uses, and that withdraw takes back
    void aim(QObject* window, int message);

    /// Posts the message to the window; does nothing without one.
    void post(std::uintptr_t wParam, RequestId request = 0) const;

    /// Takes back what was posted to the window and not yet delivered.
    void withdraw() const;

private:
    mutable std::mutex m_mutex; ///< guards both fields, and is held while posting
    QObject* m_window = nullptr;
    int m_message = 0;
};

} // namespace pelorin
