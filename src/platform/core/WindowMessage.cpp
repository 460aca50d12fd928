#include "platform/core/WindowMessage.h"

namespace pelorin {

namespace {

constexpr auto kType = QEvent::User;

} // namespace

WindowMessage::WindowMessage(int message, std::uintptr_t wParam, std::intptr_t lParam,
                             RequestId request)
    : QEvent(kType), m_message(message), m_wParam(wParam), m_lParam(lParam), m_request(request)
{
}

const WindowMessage* WindowMessage::from(const QEvent* event)
{
    return dynamic_cast<const WindowMessage*>(event);
}

} // namespace pelorin
