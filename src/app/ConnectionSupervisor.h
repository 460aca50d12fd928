#pragma once

#include "platform/core/WindowMessage.h"
#include "sensor/FormatRestore.h"

#include <QObject>
#include <QTimer>

class QWidget;

namespace pelorin {

class BusyFilter;
class CommandGate;
class LinkStatusBar;
class SensorLink;

/// Keeps the sensor connected. It connects, with the help of the user where they switch the supply
/// by hand, writes back a data format that was kept for the sensor, opens a lost port again until
/// the user gives up, and switches the supply off at the end. What it does is seen in the status
/// bar. User-interface thread.
class ConnectionSupervisor final : public QObject
{
    Q_OBJECT

public:
    /// The states of the window that the connection shares with commands and pages.
    struct Shared
    {
        CommandGate& gate;
        BusyFilter& busy;
        LinkStatusBar& statusBar;
    };

    /// @param window owns the supervisor, and is under its message boxes
    /// @param manualPower whether the user switches the sensor's supply
    ConnectionSupervisor(QWidget& window, SensorLink& link, const Shared& shared, bool manualPower);

    [[nodiscard]] FormatRestore& formatRestore() { return m_formatRestore; }

    /// Connects the sensor; connected tells how that ended. Not while isConnecting.
    void connectSensor();
    /// Writes a parameter without a value, and has the sensor connected anew afterwards.
    void writeCommand(char id);

    [[nodiscard]] bool isConnecting() const;
    /// Whether a request of the supervisor runs; it ends the busy state itself.
    [[nodiscard]] bool isActive() const { return m_operation != Operation::None; }
    /// Whether something is being written to the sensor that must not be cut off.
    [[nodiscard]] bool isWriting() const;

    /// Opens another port instead of the link's, without connecting. The user is told if it fails.
    [[nodiscard]] bool changePort(int port);

    /// Consumes the completion of a request, if the request was the supervisor's own.
    [[nodiscard]] bool takeLinkReply(RequestId request, int result);

    /// The link was lost, or is still: makes one attempt to open the port again.
    void onLinkLost();

    /// The program ends: from here on nothing is connected or opened again.
    void stop();
    /// Switches the sensor's supply off, unless the user does so. Blocks until it is off.
    /// @param afterWriting lets the sensor store first what was written to it
    void switchSupplyOff(bool afterWriting);

Q_SIGNALS:
    /// The sensor is to be connected as soon as that is possible.
    void connectWanted();
    void connected(bool success);
    /// The link was lost; it is opened again once this returns.
    void lost();
    /// The user has given up a port that does not come back.
    void givenUp();

private:
    enum class Operation { Connect, RestoreFormat, Write, None };

    void askForSupply();
    void onConnected(int result);
    void awaitRestore(RequestId request);
    void finishConnect(int result);
    void onReconnectTimer();
    [[nodiscard]] bool openPort(int port, int showErrors);
    void stopReconnect();

    QWidget& m_window;
    SensorLink& m_link;
    CommandGate& m_gate;
    BusyFilter& m_busy;
    LinkStatusBar& m_statusBar;
    const bool m_manualPower;

    FormatRestore m_formatRestore;
    Operation m_operation = Operation::None;
    RequestId m_request = 0;
    int m_keepAlive = 0; ///< 1 while the user switches the supply

    bool m_stopped = false;
    bool m_reconnectBusy = false;
    int m_reconnectAttempts = 0;
    QTimer m_reconnectTimer;
};

} // namespace pelorin
