#include "platform/core/MessageTarget.h"

#include <QCoreApplication>

namespace pelorin {

void MessageTarget::aim(QObject* window, int message)
{
    const std::lock_guard lock(m_mutex);
    m_window = window;
    m_message = message;
}

void MessageTarget::post(std::uintptr_t wParam, RequestId request) const
{
    const std::lock_guard lock(m_mutex);
    if (m_window)
        QCoreApplication::postEvent(m_window, new WindowMessage(m_message, wParam, 0, request));
}

void MessageTarget::withdraw() const
{
    const std::lock_guard lock(m_mutex);
    if (m_window)
        QCoreApplication::removePostedEvents(m_window, WindowMessage::typeOf(m_message));
}

} // namespace pelorin
