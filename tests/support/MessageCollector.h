#pragma once

#include "platform/core/WindowMessage.h"

#include <QObject>

#include <algorithm>
#include <vector>

namespace pelorin {

/// A window that keeps the messages posted to it, in order.
class MessageCollector final : public QObject
{
public:
    struct Message
    {
        int number;
        int wParam;
        RequestId request;
    };

    [[nodiscard]] const std::vector<Message>& messages() const { return m_messages; }

    /// The result that answers a request; -1 as long as there is none.
    [[nodiscard]] int resultOf(RequestId request) const
    {
        const auto found = std::ranges::find(m_messages, request, &Message::request);
        return found != m_messages.end() ? found->wParam : -1;
    }

    [[nodiscard]] int count(int number) const
    {
        return static_cast<int>(std::ranges::count(m_messages, number, &Message::number));
    }

protected:
    void customEvent(QEvent* event) override
    {
        if (const auto* message = WindowMessage::from(event))
            m_messages.push_back(
                {message->message(), static_cast<int>(message->wParam()), message->request()});
    }

private:
    std::vector<Message> m_messages;
};

} // namespace pelorin
