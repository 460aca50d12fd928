#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace pelorin {

class Closing;
class CommandGate;
class ConnectionSupervisor;
class SensorLink;

/// Has the user choose the sensor's port. One that cannot be opened, or does not come back, ends
/// the program, unless the user stays with what would be lost: then there is no port.
class SelectPortCommand final : public QObject
{
    Q_OBJECT

public:
    /// What the choice of a port concerns; all outlive this.
    struct Parts
    {
        CommandGate& gate;
        SensorLink& link;
        ConnectionSupervisor& connection;
        Closing& closing;
        std::function<bool(int port)> isDisplayUnits; ///< whether that is the port in use for it
    };

    /// @param window owns this, and the dialogs
    SelectPortCommand(QWidget& window, Parts parts);

    void run();

Q_SIGNALS:
    /// Another port is open.
    /// @param isFirst whether there was none before
    void portChanged(bool isFirst);
    /// There is no port any more.
    void portLeft();

private:
    void change(int port);
    void giveUp();

    QWidget& m_window;
    const Parts m_parts;
    int m_lastPort = 0; ///< which is offered while there is none
};

} // namespace pelorin
