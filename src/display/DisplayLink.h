#pragma once

#include "display/DisplaySettings.h"
#include "platform/core/MessageTarget.h"
#include "platform/core/RequestEvents.h"

#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <mutex>
#include <thread>

class QObject;

namespace pelorin {

class ComPort;
class ComPortFactory;
class DisplayProtocol;

/// The requests of the display link, in their order of precedence.
enum class DisplayRequest : int { SetUp, Reading, Apply, Stop };

/// The connection to the display unit, on a serial port of its own. A worker thread performs one
/// request at a time and closes the port as its last act.
///
/// All operations are called on the user-interface thread. A request returns at once with its
/// identifier; when it has been performed a message with this identifier is posted to the reply
/// target, wParam 1 or 0. Every request is answered once; without a running worker it fails at
/// once. At most one request of a kind at a time.
class DisplayLink
{
public:
    /// Reads port and node from the settings.
    /// @param factory makes the port; outlives the link
    explicit DisplayLink(const ComPortFactory& factory);
    DisplayLink(const DisplayLink&) = delete;
    DisplayLink& operator=(const DisplayLink&) = delete;
    ~DisplayLink();

    /// Opens and configures the port and starts the worker, which sets the unit up. Once.
    /// @param sensorPort COM number of the sensor's port, which is not opened
    /// @return the request that is answered when the unit has been set up, 0 if it came to none
    RequestId open(int sensorPort);

    /// Ends the worker, which cuts short what it is doing.
    void close();

    /// Where completions go; no window stops them.
    void setReplyTarget(QObject* window, int message);

    RequestId requestReading();
    RequestId requestApply(const DisplaySettings& settings);

    /// What the unit displayed when it was last asked; "****" if it did not tell.
    [[nodiscard]] QString lastReading() const;

    /// What the user must be told after open failed or a request was answered; mostly nothing.
    /// Errors of a port that goes on failing are told once, until an exchange has worked.
    [[nodiscard]] QString takeMessage();

    /// The device name of the settings.
    [[nodiscard]] const QString& portName() const { return m_portName; }
    /// Whether that is the port COM<portNumber>.
    [[nodiscard]] bool isPort(int portNumber) const;

private:
    static constexpr int kRequestCount = static_cast<int>(DisplayRequest::Stop) + 1;

    struct Request
    {
        RequestId id = 0;
        DisplaySettings settings;
    };

    RequestId submit(DisplayRequest kind, const DisplaySettings& settings = {});
    [[nodiscard]] bool startWorker();
    void run();
    void serve(DisplayProtocol& protocol, DisplayRequest kind);
    [[nodiscard]] bool perform(DisplayProtocol& protocol, DisplayRequest kind,
                               const DisplaySettings& settings);
    [[nodiscard]] bool read(DisplayProtocol& protocol);
    [[nodiscard]] QString messageAfter(DisplayRequest kind, bool success, QStringList errors);
    void setMessage(const QString& message);
    void setReading(const QString& reading);

    const ComPortFactory& m_factory;
    QString m_portName;
    int m_nodeId = 1;

    MessageTarget m_replyTarget;
    RequestEvents m_events;
    RequestId m_lastRequestId = 0; ///< the user-interface thread's
    bool m_failureTold = false;    ///< the worker's

    mutable std::mutex m_mutex; ///< guards the next three
    std::array<Request, kRequestCount> m_requests;
    QString m_lastReading;
    QString m_message;

    std::unique_ptr<ComPort> m_port; ///< the worker's while it runs; interrupt on any thread
    std::thread m_worker;
};

} // namespace pelorin
