#include "platform/core/MessageTarget.h"

#include "platform/core/EventDescriptor.h"

#include <QCoreApplication>

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace pelorin {

namespace {

constexpr std::chrono::milliseconds kPollPeriod{20};

} // namespace

/// What was posted and not yet delivered.
class MessageTarget::Queue
{
public:
    struct Message
    {
        std::uintptr_t wParam = 0;
        RequestId request = 0;
    };

    Queue() { (void)m_wake.open(); } // without it there is no descriptor

    void put(const Message& message)
    {
        const std::lock_guard lock(m_mutex);
        m_messages.push_back(message);
        m_wake.signal();
    }

    [[nodiscard]] std::optional<Message> take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_messages.empty()) {
            m_wake.reset();
            return std::nullopt;
        }
        const Message message = m_messages.front();
        m_messages.pop_front();
        return message;
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_messages.clear();
    }

    [[nodiscard]] int descriptor() const { return m_wake.descriptor(); }

private:
    std::mutex m_mutex; ///< guards both
    std::deque<Message> m_messages;
    EventDescriptor m_wake; ///< set while there is something to deliver
};

MessageTarget::Poster::Poster(std::shared_ptr<Queue> queue) : m_queue(std::move(queue)) {}

void MessageTarget::Poster::post(std::uintptr_t wParam, RequestId request) const
{
    m_queue->put({wParam, request});
}

MessageTarget::MessageTarget()
    : m_queue(std::make_shared<Queue>()), m_notifier(QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { deliver(); });
    QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { deliver(); });
    if (m_queue->descriptor() < 0) {
        m_poll.start(kPollPeriod); // the program has no more of them: it must not end for that
        return;
    }
    m_notifier.setSocket(m_queue->descriptor());
    m_notifier.setEnabled(true);
}

MessageTarget::~MessageTarget() = default;

void MessageTarget::aim(QObject* window, int message)
{
    m_window = window;
    m_message = message;
}

void MessageTarget::withdraw()
{
    m_queue->clear();
}

/// One message at a time: what it leads to may destroy the target, and other events get their
/// turn.
void MessageTarget::deliver()
{
    const auto message = m_queue->take();
    if (!message || !m_window)
        return;
    WindowMessage event(m_message, message->wParam, 0, message->request);
    QCoreApplication::sendEvent(m_window, &event);
}

} // namespace pelorin
