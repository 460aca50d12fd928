#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <utility>

namespace pelorin::test {

/// Answers the next modal window of a kind: polls until it is active and runs the steps on it,
/// once. A modal window that is still open 10 seconds later is closed, so that a failing test ends.
template <class Window>
class ModalAnswer
{
public:
    explicit ModalAnswer(std::function<void(Window&)> steps) : m_steps(std::move(steps))
    {
        m_age.start();
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { look(); });
        m_poll.start(5);
    }

    [[nodiscard]] bool wasShown() const { return m_shown; }

private:
    void look()
    {
        QWidget* active = QApplication::activeModalWidget();
        auto* window = dynamic_cast<Window*>(active);
        if (window && window->isActiveWindow() && !m_shown) {
            m_shown = true;
            m_steps(*window);
        } else if (active && m_age.hasExpired(10000)) {
            qWarning("A modal window stayed open: %s", qUtf8Printable(active->windowTitle()));
            active->close();
        }
    }

    std::function<void(Window&)> m_steps;
    bool m_shown = false;
    QElapsedTimer m_age;
    QTimer m_poll;
};

} // namespace pelorin::test
