#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace pelorin::test {

/// Runs the event loop until a condition holds, which does not let events wait as the toolkit's
/// own function does. @return false if it does not hold within 30 seconds
inline bool waitFor(const std::function<bool()>& condition)
{
    if (condition())
        return true;
    const QDeadlineTimer limit(30'000);
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (condition() || limit.hasExpired())
            loop.quit();
    });
    poll.start(1);
    (void)loop.exec();
    return condition();
}

} // namespace pelorin::test
