#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace pelorin {

/// Keeps input from the program while it is busy: mouse, wheel, keys, shortcuts, drops and context
/// menus reach no part of it but message boxes, which must always be answered, and the controls
/// with the property "usableWhileBusy", which tell of what only reads and cancel it. Escape presses
/// such a button of the window, wherever the focus is. The wait cursor is shown. Windows can still
/// be closed. Whether it is busy is asked with each event.
class BusyFilter final : public QObject
{
    Q_OBJECT

public:
    static constexpr const char* kUsableWhileBusy = "usableWhileBusy";

    /// @param isBusy tells whether the program is busy now
    BusyFilter(std::function<bool()> isBusy, QObject* parent);
    ~BusyFilter() override;

    /// Busy has begun or ended. After the end input that arrived while it lasted is still dropped.
    void update();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showCursor(bool shown);

    const std::function<bool()> m_isBusy;
    bool m_cursorShown = false;
    QTimer m_dropTimer;   ///< fires once in each pass of the event loop
    int m_passesLeft = 0; ///< in which input is still dropped
};

} // namespace pelorin
