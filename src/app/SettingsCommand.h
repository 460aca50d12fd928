#pragma once

#include <QObject>

class QWidget;

namespace pelorin {

class CommandGate;
class ConnectionSupervisor;
class MainMenu;
class PagePane;
class PositionStream;
class SafeWriter;
struct Settings;

/// Has the user change the settings, and the running program follow them at once.
class SettingsCommand final : public QObject
{
    Q_OBJECT

public:
    /// What follows the settings; all outlive this.
    struct Parts
    {
        CommandGate& gate;
        SafeWriter& writer;
        PositionStream& stream;
        ConnectionSupervisor& connection;
        MainMenu& menu;
        PagePane& pages;
    };

    /// @param window owns this, and the dialogs
    SettingsCommand(QWidget& window, const Parts& parts);

    /// A stream is ended first.
    void run();

Q_SIGNALS:
    /// The sensor is to be connected anew.
    void connectWanted();
    /// The port was closed: the user has to say where to connect.
    void portWanted();
    /// What the display unit's dialog was opened with is not so any more.
    void displayUnitChanged();

private:
    void apply(const Settings& before, const Settings& after);
    void followPort(const Settings& before, const Settings& after);
    [[nodiscard]] bool hasPortMoved() const;

    QWidget& m_window;
    const Parts m_parts;
};

} // namespace pelorin
