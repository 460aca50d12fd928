#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace pelorin {

class SequenceRunner;

/// Opens a port for a user who need not wait for it: an adapter may be busy for a while, or its
/// driver not come back. After a while a box says so, and leads to another choice.
/// User-interface thread.
class PortOpener final : public QObject
{
    Q_OBJECT

public:
    enum class Result {
        Opened,
        Failed, ///< the link tells why
        Left    ///< the user would rather have another one; the port is closed
    };

    explicit PortOpener(SequenceRunner& runner);

    /// @param parent of the box
    void open(int port, QWidget* parent, std::function<void(Result)> done);

private:
    void tell(QWidget* parent, int port);

    SequenceRunner& m_runner;
    QTimer m_timer;
    QPointer<QMessageBox> m_box;
    bool m_left = false;
    std::function<void(Result)> m_done;
};

} // namespace pelorin
