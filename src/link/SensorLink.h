#pragma once

#include "link/CommLog.h"
#include "link/PositionFrame.h"
#include "link/SensorProtocol.h"
#include "platform/core/MessageTarget.h"
#include "platform/core/PeriodicTimer.h"
#include "platform/core/RequestEvents.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

class QObject;

namespace pelorin {

class ComPort;
class ComPortFactory;

/// The requests of the link, in their order of precedence.
enum class SensorRequest : int { Connect, Read, Write, KeepAlive, RawExchange, Position, Stop };

/// The one connection to the sensor. It owns the serial port, a worker thread that performs one
/// request at a time, and the communications log.
///
/// All operations are called on the user-interface thread. A request returns at once with its
/// identifier; when it has been performed a message with this identifier is posted to the reply
/// target, wParam 1 or 0, after which its result can be fetched. Every request is answered once,
/// also across close, except that one replaced by another of its kind before the worker came to
/// it is answered as the newer one. Without a running worker a request fails at once.
class SensorLink
{
public:
    /// Shows a message to the user; called on the user-interface thread.
    using ErrorPresenter = std::function<void(const QString&)>;

    /// @param factory makes the port of a COM number; outlives the link
    explicit SensorLink(const ComPortFactory& factory);
    SensorLink(const SensorLink&) = delete;
    SensorLink& operator=(const SensorLink&) = delete;
    ~SensorLink();

    void setErrorPresenter(ErrorPresenter presenter);

    /// Opens and configures COM<portNumber> and starts the worker. While one runs its port stays
    /// as it is, and only linkFailed is cleared.
    /// A port that cannot be configured is closed again.
    /// @param showErrors 1 shows the user why the port could not be opened
    /// @return 1 or 0
    [[nodiscard]] int open(int portNumber, int showErrors);

    /// Ends the worker, which cuts short what it is doing and closes its port; fails what was
    /// still requested and takes back loss reports that were posted and not yet delivered.
    /// @param supplyOff 1 switches the sensor's supply off as the last thing on the port
    void close(int supplyOff = 0);

    RequestId requestConnect();
    RequestId requestRead(char id);
    /// @param value at most 9 bytes
    RequestId requestWrite(char id, const QByteArray& value);
    RequestId requestRawExchange(const QByteArray& bytes);
    RequestId requestPosition();

    /// Where completions go; no window stops them.
    void setReplyTarget(QObject* window, int message);
    /// Where WM_LINK_LOST goes; no window stops it.
    void setLossTarget(QObject* window);

    /// 1 streams PROG frames every 50 ms until another value is given or the link is closed.
    void setKeepAlive(int on);

    /// Switches the open port between parameter mode and, with on = 1, the position stream.
    /// @param dataBits low 8 bits: width of the streamed SSI word
    /// @param resolutionThousandths micrometres per count
    void setStreamMode(int on, int dataBits, int resolutionThousandths);

    /// 1 clears RTS (sensor supply on), any other value sets it (supply off).
    void setRts(int clear);

    /// Counts the sensor as not identified, until the next connect that ends with a type.
    void forgetIdentification() { m_identified = false; }

    /// Identifies the sensor from the version answer in the last reply, after a connect in which
    /// the user switched the supply.
    /// @return 1 identified, 0 not
    int identifyFromLastReply();

    /// The port that was last opened successfully, 1 before any was.
    [[nodiscard]] int portNumber() const { return m_portNumber; }
    /// True once any port has been opened in this run.
    [[nodiscard]] bool hasOpened() const { return m_hasOpened; }

    [[nodiscard]] QByteArray lastReply() const;
    [[nodiscard]] QByteArray versionText() const;
    [[nodiscard]] RawReply rawReply() const;
    /// Millimetres; the last position that was received whole.
    [[nodiscard]] double position() const;

    /// 0, 1 or 2; 3 not identified; 0 before any identification.
    [[nodiscard]] int ssiType() const { return m_ssiType; }
    /// Whether the last connect on this port ended with a type and the link was not lost since.
    /// Without it nothing may be written to the sensor's parameters.
    [[nodiscard]] bool isIdentified() const { return m_identified; }
    /// 1 after a failed purge, write or raw exchange, until the next successful open.
    [[nodiscard]] int linkFailed() const { return m_linkFailed; }
    /// How often the link was lost or a frame left it incomplete in this run. A sequence of
    /// requests compares it with the count at its start: requests to write succeed whatever
    /// happens, and the flag may have been cleared by a quick reconnect.
    [[nodiscard]] int lossCount() const { return m_lossCount; }

    [[nodiscard]] CommLog& commLog() { return m_commLog; }

private:
    static constexpr int kRequestCount = static_cast<int>(SensorRequest::Stop) + 1;

    struct Request
    {
        RequestId id = 0;
        char parameterId = 0;
        QByteArray bytes; ///< the value of a write, the bytes of a raw exchange
    };

    struct Results
    {
        QByteArray lastReply;
        QByteArray versionText;
        RawReply rawReply;
        double position = 0.0;
        PositionScale scale;
    };

    RequestId submit(SensorRequest kind, char parameterId = 0, const QByteArray& bytes = {});
    [[nodiscard]] int startWorker();
    void present(const QString& message, int show) const;
    void run();
    [[nodiscard]] int perform(SensorProtocol& protocol, SensorRequest kind, const Request& request);
    [[nodiscard]] int connect(SensorProtocol& protocol);
    [[nodiscard]] int readParameter(SensorProtocol& protocol, char id);
    [[nodiscard]] int readPosition(SensorProtocol& protocol);
    [[nodiscard]] int identify(const QByteArray& versionText);
    void reportLoss();
    void failPendingRequests();

    const ComPortFactory& m_factory;
    ErrorPresenter m_presentError;
    int m_portNumber = 1;
    bool m_hasOpened = false;

    MessageTarget m_replyTarget;
    MessageTarget m_lossTarget;
    CommLog m_commLog;
    RequestEvents m_events;

    std::atomic<int> m_supplyOffAtEnd = 0; ///< what close asks of the worker's last act
    std::atomic<int> m_ssiType = 0;
    std::atomic<bool> m_identified = false;
    std::atomic<int> m_linkFailed = 0;
    std::atomic<int> m_lossCount = 0;

    mutable std::mutex m_mutex; ///< guards the requests and the results
    std::array<Request, kRequestCount> m_requests;
    RequestId m_lastRequestId = 0;
    Results m_results;

    std::unique_ptr<ComPort> m_port; ///< replaced only while no worker runs, which closes it
    PeriodicTimer m_keepAliveTimer;
    std::thread m_worker;
};

} // namespace pelorin
