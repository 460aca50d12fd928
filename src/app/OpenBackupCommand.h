#pragma once

class QWidget;

namespace pelorin {

class CommandGate;

/// Shows what a backup file holds, without a sensor. The gate, which is free when it runs, tells
/// the user why a file cannot be shown. User-interface thread.
class OpenBackupCommand
{
public:
    /// @param window above which the dialogs are; outlives this, as the gate does
    OpenBackupCommand(QWidget& window, CommandGate& gate) : m_window(window), m_gate(gate) {}

    void run() const;

private:
    QWidget& m_window;
    CommandGate& m_gate;
};

} // namespace pelorin
