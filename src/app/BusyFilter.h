#pragma once

#include <QObject>
#include <QTimer>

namespace pelorin {

/// The busy state of the program: one state, not a count. While it lasts the wait cursor is
/// shown, and mouse, wheel, keys, shortcuts, drops and context menus reach no part of the
/// program but message boxes, which must always be answered. Windows can still be closed.
class BusyFilter final : public QObject
{
    Q_OBJECT

public:
    explicit BusyFilter(QObject* parent);
    ~BusyFilter() override;

    [[nodiscard]] bool isBusy() const { return m_busy; }
    void begin();
    /// Ends the state once the input that arrived while it lasted has been dropped, unless begin
    /// is called before. Needs the event loop to run.
    void release();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void end();

    bool m_busy = false;
    QTimer m_releaseTimer; ///< fires once in each pass of the event loop
    int m_passesLeft = 0;  ///< until the state ends; 0 while no release was asked for
};

} // namespace pelorin
