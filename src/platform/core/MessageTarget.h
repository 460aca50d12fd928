#pragma once

#include "platform/core/WindowMessage.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cstdint>
#include <memory>

class QObject;

namespace pelorin {

/// Where a worker's messages go. The messages cross the threads as plain values; the receiving
/// thread makes the WindowMessage that the window gets, so that no event is ever shared.
///
/// Aim on the user-interface thread, post on any. Once aim(nullptr) has returned nothing more is
/// delivered: a window that aims away is safe to destroy.
class MessageTarget
{
    class Queue;

public:
    /// Posts to the target from any thread. May outlive it; what is posted then is dropped.
    class Poster
    {
    public:
        void post(std::uintptr_t wParam, RequestId request = 0) const;

    private:
        friend class MessageTarget;
        explicit Poster(std::shared_ptr<Queue> queue);
        std::shared_ptr<Queue> m_queue;
    };

    MessageTarget();
    MessageTarget(const MessageTarget&) = delete;
    MessageTarget& operator=(const MessageTarget&) = delete;
    ~MessageTarget();

    /// @param message the number of the messages that the window gets
    void aim(QObject* window, int message);

    [[nodiscard]] Poster poster() const { return Poster(m_queue); }

    /// Takes back what was posted and not yet delivered.
    void withdraw();

private:
    void deliver();

    std::shared_ptr<Queue> m_queue;
    QSocketNotifier m_notifier;
    QTimer m_poll; ///< in place of the notifier where the system gives no descriptor
    QObject* m_window = nullptr;
    int m_message = 0;
};

} // namespace pelorin
