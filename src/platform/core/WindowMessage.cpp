#include "platform/core/WindowMessage.h"

namespace pelorin {

namespace {

constexpr int kFirstType = QEvent::User;
constexpr int kLargestMessage = 0x7FFF;

} // namespace

WindowMessage::WindowMessage(int message, std::uintptr_t wParam, std::intptr_t lParam,
                             RequestId request)
    : QEvent(typeOf(message)), m_message(message), m_wParam(wParam), m_lParam(lParam),
      m_request(request)
{
    m_complete.store(true, std::memory_order_release);
}

const WindowMessage* WindowMessage::from(const QEvent* event)
{
    const auto* message = dynamic_cast<const WindowMessage*>(event);
    if (message)
        (void)message->m_complete.load(std::memory_order_acquire);
    return message;
}

QEvent::Type WindowMessage::typeOf(int message)
{
    Q_ASSERT(message >= 0 && message <= kLargestMessage);
    return static_cast<QEvent::Type>(kFirstType + message);
}

} // namespace pelorin
