#pragma once

#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

class QWidget;

namespace pelorin {

/// Says when the main window may begin something new: not while a command runs or a modal dialog
/// is open. It holds what waits for that: messages to the user, and that the window is to close.
class CommandGate final : public QObject
{
    Q_OBJECT

public:
    /// Marks that a command runs.
    class Scope
    {
    public:
        explicit Scope(CommandGate& gate);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

    private:
        CommandGate& m_gate;
    };

    /// What the user is to be told or asked.
    struct Notice
    {
        QString text;
        QStringList buttons{};               ///< their captions; none: OK alone
        std::function<void(int)> answered{}; ///< gets the index of the button, -1 for Escape; not
                                             ///< called once the window is to close
    };

    /// @param window under the message boxes
    explicit CommandGate(QWidget& window);

    [[nodiscard]] static bool isDialogOpen();
    [[nodiscard]] bool isCommandRunning() const { return m_depth > 0; }
    /// Whether the command that runs was begun inside another one.
    [[nodiscard]] bool isNested() const { return m_depth > 1; }
    [[nodiscard]] bool isFree() const { return !isCommandRunning() && !isDialogOpen(); }

    [[nodiscard]] bool isCloseWanted() const { return m_closeWanted; }
    /// The window is to close as soon as it can; that is never taken back. What was still to be
    /// told goes to the terminal.
    void requestClose();

    /// Shows the user a message as soon as the gate is free: the command, or the page that has
    /// something to say, would wait for the answer otherwise. Nothing is shown for an empty text.
    void addNotice(const QString& text) { addNotice(Notice{text}); }
    void addNotice(const Notice& notice);
    [[nodiscard]] bool hasNotice() const { return !m_notices.empty(); }

    /// Has what waits looked after, from the event loop.
    void wake();

Q_SIGNALS:
    /// Nothing runs, and there is nothing more to be read: what waits can be done now.
    void freed();

private:
    void lookAfter();
    [[nodiscard]] int ask(const Notice& notice);

    QWidget& m_window;
    int m_depth = 0;
    std::vector<Notice> m_notices;
    bool m_closeWanted = false;
};

} // namespace pelorin
