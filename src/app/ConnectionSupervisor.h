#pragma once

#include "app/PortOpener.h"
#include "sensor/FormatRestore.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;

namespace pelorin {

class CommandGate;
class LinkStatusBar;
class SafeWriter;
class SensorLink;
class SequenceRunner;

/// Keeps the sensor connected. It connects, with the help of the user where they switch the supply
/// by hand, writes back a data format that was kept for the sensor, opens a lost port again until
/// the user gives up, and switches the supply off at the end. What it does is seen in the status
/// bar. User-interface thread.
class ConnectionSupervisor final : public QObject
{
    Q_OBJECT

public:
    /// What the connection shares with commands and pages; all outlive it.
    struct Shared
    {
        CommandGate& gate;
        LinkStatusBar& statusBar;
        SequenceRunner& runner;
        KeptFormats& formats;
        FormatRestore& restore;
        SafeWriter& writer;
    };

    /// @param window owns the supervisor, and is under its message boxes
    /// @param manualPower whether the user switches the sensor's supply
    ConnectionSupervisor(QWidget& window, const Shared& shared, bool manualPower);

    /// From the next Connect on.
    void setManualPower(bool manualPower) { m_manualPower = manualPower; }

    /// Connects the sensor; connected tells how that ended.
    /// @return false if something else runs: it has to be asked for again then
    [[nodiscard]] bool connectSensor();
    /// Writes a parameter without a value, and has the sensor connected anew afterwards.
    void writeCommand(char id);
    [[nodiscard]] bool isConnecting() const { return m_isConnecting; }

    /// Opens another port instead of the link's, without connecting, once what runs has ended.
    /// @param done gets whether it is open; the user is told if it is not
    void changePort(int port, const std::function<void(bool)>& done);

    /// Closes the link's port, which the sensor is not to be connected through any more, once what
    /// runs has ended.
    void leavePort(const std::function<void()>& done);

    /// The link was lost, or is still: makes one attempt to open the port again.
    void onLinkLost();

    /// The program ends: from here on nothing is connected or opened again.
    void stop();
    /// Switches the sensor's supply off, unless the user does so, and closes the port.
    void shutDown(std::function<void()> done);

Q_SIGNALS:
    /// The sensor is to be connected as soon as that is possible.
    void connectWanted();
    /// A Connect begins, or the link was lost: what was told of the sensor before may not hold.
    void sensorLeft();
    void connected(bool success);
    /// The sensor of a kept format may not have it again.
    void formatKept(const KeptFormat& format);
    /// The user has given up a port that does not come back; it stays closed.
    void givenUp();
    /// The user would rather have another port than wait for the one that is being opened.
    void portWanted();

private:
    void beginConnect();
    [[nodiscard]] bool askForSupply();
    void onConnected(const Outcome& outcome);
    void onFormatRestored(FormatRestore::Result format, int losses);
    void finishConnect(bool success, FormatRestore::Result format);
    void explainIdentification();
    void tellKeptFormats(const QList<KeptFormat>& formats);
    void tryAgain();
    void tellWhy();
    void onReconnectTimer();
    void onOpened();
    void leaveSensor();
    void forgetPort();
    void afterStream(const std::function<void()>& then);

    QWidget& m_window;
    CommandGate& m_gate;
    LinkStatusBar& m_statusBar;
    SequenceRunner& m_runner;
    SensorLink& m_link;
    KeptFormats& m_formats;
    FormatRestore& m_restore;
    SafeWriter& m_writer;
    bool m_manualPower;

    bool m_isConnecting = false;
    int m_keepAlive = 0;            ///< 1 while the user switches the supply
    bool m_keptFormatsTold = false; ///< those of earlier runs

    bool m_stopped = false;
    bool m_reconnectBusy = false;
    bool m_failureTold = false;  ///< why the port that is there again cannot be used
    int m_reconnectAttempts = 0; ///< since the last Connect that did not end with a loss
    QTimer m_reconnectTimer;
    PortOpener m_opener{m_runner};
};

} // namespace pelorin
