#pragma once

#include "link/FollowedStream.h"
#include "link/SensorIdentification.h"
#include "link/SensorProtocol.h"
#include "link/TypeChoice.h"
#include "platform/core/MessageTarget.h"
#include "platform/core/PortOpening.h"
#include "platform/core/RequestWorker.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace pelorin {

class CommLog;

/// One opened port: the link's requests as its worker performs them, and what worker and
/// user-interface thread share of them. A worker that is left to itself keeps its session, and
/// reaches nothing of the link's but the log.
///
/// What returns an int returns 1, or 0 if it failed.
class SensorSession
{
public:
    /// What the requests have brought; text is never shared between the threads, so not QByteArray.
    struct Results
    {
        std::string lastReply;
        std::string versionText;
        std::string rawBytes;
        bool rawCut = false;
        double position = 0.0; ///< millimetres
        PositionScale scale;
    };

    /// @param number the device's COM number, 0 if it has none
    /// @param losses gets a message when the link is lost
    /// @param frames gets a message when the followed stream has something to take
    SensorSession(int number, QString device, std::shared_ptr<CommLog> log,
                  MessageTarget::Poster losses, MessageTarget::Poster frames);

    /// Goes on from the session before: until the next Connect the sensor is what it was. Before
    /// the worker starts.
    void takeOver(const SensorSession& former);

    /// What the user is told that was opened.
    [[nodiscard]] QString name() const;
    [[nodiscard]] Results results() const;

    // What the worker performs; open is the first.
    int open(RequestWorker::Context& context);
    int connect(ComPort& port);
    int read(char id);
    int write(char id, const QByteArray& value) { return m_protocol->writeParameter(id, value); }
    int exchangeRaw(const QByteArray& bytes);
    int readPosition(ComPort& port);
    /// @param scale of the stream that is followed from now on; nothing: parameter mode
    int setStreamMode(RequestWorker::Context& context, const std::optional<PositionScale>& scale);
    int switchSupply(bool on);
    int sendKeepAlive();
    /// The session's last act.
    /// @param supplyOff whether the sensor's supply is switched off
    int end(bool supplyOff);
    /// The device has gone while nothing was exchanged.
    void noticeGone();

    /// Takes the last reply for the version answer.
    int identifyFromLastReply();
    void forgetIdentification();

    /// What has come of the followed stream since the last call.
    [[nodiscard]] PositionBatch takeFrames() { return m_stream.takeFrames(); }

    const int number;
    const QString device;

    PortFailure failure; ///< the worker's until the open is answered

    // Any thread, as all that follows here.
    std::atomic<bool> opened = false;
    std::atomic<int> ssiType = 0;
    std::atomic<int> typeByHand = kSsiTypeUnknown; ///< for a revision in no range
    std::atomic<bool> byHand = false;              ///< whether ssiType is that one
    std::atomic<bool> identified = false;
    std::atomic<bool> restarted = false; ///< by the last Connect
    std::atomic<int> linkFailed = 0;
    std::atomic<bool> deviceGone = false;
    std::atomic<int> lossCount = 0;
    std::atomic<int> cutFrames = 0;
    TypeChoice choice;

private:
    template <class Value>
    void store(Value Results::*result, Value value)
    {
        const std::lock_guard lock(m_mutex);
        m_results.*result = std::move(value);
    }

    bool setLine(ComPort& port, const LineSettings& line);
    int identify(const QByteArray& version);
    [[nodiscard]] std::optional<double> readSinglePosition();
    void reportLoss(RequestWorker::Context& context);

    const std::shared_ptr<CommLog> m_log;
    std::optional<SensorProtocol> m_protocol; ///< the worker's; there once the port is open
    FollowedStream m_stream;
    bool m_lineFailed = false; ///< the worker's: which line the port has now is not known
    const MessageTarget::Poster m_losses;
    mutable std::mutex m_mutex;
    Results m_results; ///< m_mutex
};

} // namespace pelorin
