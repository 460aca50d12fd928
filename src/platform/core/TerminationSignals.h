#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace pelorin {

/// Turns the signals that ask the program to end (SIGTERM, SIGINT, SIGHUP) into a call on the
/// user-interface thread, so that the sensor is left as it should be. One object at a time.
class TerminationSignals final : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    void received();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace pelorin
