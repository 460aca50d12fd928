#pragma once

class QWidget;

namespace pelorin {

class CommandGate;
class FormatRestore;
class SafeWriter;
struct SensorReport;

/// Reads every parameter of the sensor and saves a report on it, as a web page or a document. The
/// sensor is idle and the gate free when it runs. User-interface thread.
class ReportCommand
{
public:
    /// What it uses; all outlive it.
    struct Shared
    {
        SafeWriter& writer;
        const FormatRestore& formats;
        CommandGate& gate;
    };

    ReportCommand(QWidget& window, const Shared& shared) : m_window(window), m_shared(shared) {}

    void run() const;

private:
    void describe(SensorReport& report) const;

    QWidget& m_window;
    const Shared m_shared;
};

} // namespace pelorin
