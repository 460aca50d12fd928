#pragma once

#include "display/DisplaySettings.h"
#include "platform/core/RequestWorker.h"

#include <QString>

#include <memory>

class QObject;

namespace pelorin {

class ComPortFactory;

/// The connection to the display unit, on a serial port of its own: a worker opens it, sets the
/// unit up, performs one request at a time and closes the port.
///
/// All operations are called on the user-interface thread. A request returns at once with its
/// number; when it has been performed a message with this number is posted to the reply target,
/// wParam 1 or 0. Every request is answered once; without an open port it fails at once. At most
/// one request of a kind at a time; a reading comes before an apply.
class DisplayLink
{
public:
    static constexpr char kNoReading[] = "****";

    /// Reads port and node from the settings.
    /// @param factory makes the port; outlives the link
    explicit DisplayLink(const ComPortFactory& factory);
    DisplayLink(const DisplayLink&) = delete;
    DisplayLink& operator=(const DisplayLink&) = delete;
    /// Closes; a worker that is stuck is left to itself.
    ~DisplayLink();

    /// Opens and configures the port and sets the unit up. The link must be closed.
    /// @param sensorPort COM number of the sensor's port, which is not opened; 0 if it has none
    /// @return answered with 1 when the unit has been set up; else the port is closed again
    RequestId open(int sensorPort);

    /// Closes the port and cuts short what is done on it.
    /// @return answered with 1 when the port is closed; with 0 if that takes too long: the port is
    ///         then closed some time, and until then nobody can open it
    RequestId close();

    /// From open to the completion of close, or of an open that failed.
    [[nodiscard]] bool isOpen() const { return m_worker.isRunning(); }

    /// Where completions go; no window stops them. A message that answers no request says that
    /// there is something to tell.
    void setReplyTarget(QObject* window, int message);

    RequestId requestReading();
    RequestId requestApply(const DisplaySettings& settings);

    /// What the unit displayed when it was last asked; kNoReading if it did not tell.
    [[nodiscard]] QString lastReading() const;

    /// What the user must be told after a message has come; mostly nothing. Errors of a port that
    /// goes on failing, and one that has gone, are told once, until an exchange has worked.
    [[nodiscard]] QString takeMessage();

    /// The device name of the settings.
    [[nodiscard]] const QString& portName() const { return m_portName; }
    /// Whether that is the port COM<portNumber>; 0 is none.
    [[nodiscard]] bool isPort(int portNumber) const;

private:
    class Session;

    RequestId refuse(const QString& why);

    const ComPortFactory& m_factory;
    QString m_portName;
    int m_nodeId = 1;
    QString m_refusal; ///< why the last open did not try the port; not yet told

    MessageTarget m_notices;
    RequestWorker m_worker;
    std::shared_ptr<Session> m_session; ///< of the last open, shared with its worker; null before
};

} // namespace pelorin
