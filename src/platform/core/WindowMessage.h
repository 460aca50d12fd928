#pragma once

#include <QEvent>

#include <cstdint>

namespace pelorin {

/// Identifies one request to a link; 0 means none.
using RequestId = std::uint64_t;

/// A numbered message to a window. It is made, delivered and destroyed on the user-interface
/// thread; workers send through a MessageTarget.
class WindowMessage final : public QEvent
{
public:
    explicit WindowMessage(int message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0,
                           RequestId request = 0);

    /// The message behind an event, or null for any other event.
    [[nodiscard]] static const WindowMessage* from(const QEvent* event);

    [[nodiscard]] int message() const { return m_message; }
    [[nodiscard]] std::uintptr_t wParam() const { return m_wParam; }
    [[nodiscard]] std::intptr_t lParam() const { return m_lParam; }
    /// The request that this message answers, 0 if it answers none.
    [[nodiscard]] RequestId request() const { return m_request; }

    [[nodiscard]] WindowMessage* clone() const override { return nullptr; }

private:
    int m_message;
    std::uintptr_t m_wParam;
    std::intptr_t m_lParam;
    RequestId m_request;
};

} // namespace pelorin
