#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace pelorin {

class CommandGate;
class ConnectionSupervisor;
class PagePane;
class SequenceRunner;

/// How the main window closes: dialogs are ended, what runs with the sensor comes to its end, the
/// supply goes off, and the window itself closes when the last command has returned. It goes on
/// from what it waits for, and is never taken back. User-interface thread.
class Closing final : public QObject
{
    Q_OBJECT

public:
    /// What has to end before; all outlive the closing.
    struct Shared
    {
        CommandGate& gate;
        SequenceRunner& runner;
        ConnectionSupervisor& connection;
        PagePane& pages;
        std::function<bool()> isDisplayUnitOpen;
    };

    /// @param window owns the closing, and is closed by it at last
    Closing(QWidget& window, Shared shared);

    [[nodiscard]] bool hasBegun() const { return m_stage != Stage::No; }
    /// Whether the window may close now.
    [[nodiscard]] bool isDone() const { return m_stage == Stage::Done; }

    /// Closes the window once the user has agreed to lose what is entered. Asks from the event
    /// loop: no other close, as that of a signal, would reach the window while it handles this one.
    /// @param reason why the window closes, where the user has not asked for it
    /// @param stayed runs if the window stays open
    void askFirst(
        const QString& reason = {}, const std::function<void()>& stayed = [] {});
    /// Does what can be done by now. Once the gate knows that the window is to close.
    void goOn();
    /// The same from the event loop, if the window is to close.
    void goOnSoon();

Q_SIGNALS:
    /// The sensor's supply is off and its port closed.
    void poweredDown();

private:
    enum class Stage {
        No,
        WindingDown,  ///< what runs with the sensor comes to its end
        WoundDown,    ///< commands, dialogs and the display unit do
        PoweringDown, ///< the supply is switched off, and the port closed
        PoweredDown,
        Done
    };

    void ask(const QString& reason, const std::function<void()>& stayed);
    void enter(Stage stage);
    void endDialogs();
    void shutDown();

    QWidget& m_window;
    const Shared m_shared;
    Stage m_stage = Stage::No;
};

} // namespace pelorin
