#pragma once

#include <QObject>

#include <csignal>
#include <memory>
#include <vector>

class QSocketNotifier;

namespace pelorin {

/// Turns the signals that ask the program to end (SIGTERM, SIGINT, SIGHUP) into a call on the
/// user-interface thread, so that the sensor is left as it should be. SIGHUP stays ignored where it
/// was, as by nohup. One object at a time.
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
    std::vector<struct sigaction> m_former; ///< of each signal
};

} // namespace pelorin
