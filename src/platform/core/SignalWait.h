#pragma once

#include <QEventLoop>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace pelorin {

/// Processes events until an object sends a signal, or a time is over. For the end of the desktop
/// session alone, which does not wait for what goes on in the event loop. User-interface thread.
template <class Sender, class Signal>
void waitForSignal(Sender& sender, Signal signal, std::chrono::milliseconds limit)
{
    QEventLoop loop;
    QObject::connect(&sender, signal, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    (void)loop.exec();
}

} // namespace pelorin
