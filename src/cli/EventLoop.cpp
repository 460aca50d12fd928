#include "cli/EventLoop.h"

#include <QCoreApplication>

namespace pelorin::cli {

void runUntil(const std::function<bool()>& holds)
{
    while (!holds())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace pelorin::cli
