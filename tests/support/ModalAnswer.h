#pragma once

#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QTimer>

#include <functional>

namespace pelorin::test {

/// Answers the next modal window of a kind, or every one: polls until it is active and runs the
/// steps on it. Another modal window that is still open 30 seconds later is closed, so that a
/// failing test ends.
template <class Window>
class ModalAnswer
{
public:
    explicit ModalAnswer(const std::function<void(Window&)>& steps, bool once = true)
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this, steps, once] {
            QWidget* active = QApplication::activeModalWidget();
            auto* window = dynamic_cast<Window*>(active);
            if (window && window->isActiveWindow() && !(once && m_shown)) {
                m_shown = true;
                steps(*window);
            } else if (active && once && m_limit.hasExpired()) {
                qWarning("A modal window stayed open: %s", qUtf8Printable(active->windowTitle()));
                active->close();
            }
        });
        m_poll.start(5);
    }

    [[nodiscard]] bool wasShown() const { return m_shown; }

private:
    bool m_shown = false;
    const QDeadlineTimer m_limit{30'000};
    QTimer m_poll;
};

} // namespace pelorin::test
