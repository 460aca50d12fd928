#pragma once

#include "link/CommLog.h"
#include "link/PositionFrame.h"
#include "link/SensorIdentification.h"
#include "link/SensorProtocol.h"
#include "platform/core/PeriodicTimer.h"
#include "platform/core/RequestWorker.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class QObject;

namespace pelorin {

class ComPortFactory;
class SensorSession;

/// The requests of the link, in their order of precedence.
enum class SensorRequest : int {
    Connect,
    Read,
    Write,
    KeepAlive,
    RawExchange,
    Position,
    Supply,
    StreamMode
};

/// The one connection to the sensor: a port that a worker opens, uses and closes, and the
/// communications log.
///
/// All operations are called on the user-interface thread. A request returns at once with its
/// number; when it has been performed a message with this number is posted to the reply target,
/// wParam 1 or 0, after which its result can be fetched. Every request is answered once; without
/// an open port it fails at once. There is one outstanding request at a time: what a sequence of
/// them is made of is not the link's business.
class SensorLink
{
public:
    /// @param factory makes the ports; outlives the link
    explicit SensorLink(const ComPortFactory& factory);
    SensorLink(const SensorLink&) = delete;
    SensorLink& operator=(const SensorLink&) = delete;
    /// Closes; a worker that is stuck is left to itself.
    ~SensorLink();

    /// Opens and configures the device that COM<portNumber> stands for now. The link must be
    /// closed.
    /// @return answered with 1 if the port is ready; else openFailure tells why
    RequestId open(int portNumber);
    /// The same for a device of any name.
    /// @param portNumber its COM number, 0 if it has none
    RequestId open(int portNumber, const QString& device);
    /// Opens the device of the last open again, whatever its COM number has come to mean.
    RequestId reopen();
    /// What the user is told about the last open; null if it has not failed.
    [[nodiscard]] QString openFailure() const;
    /// Whether the last open, which has ended, got as far as setting the device up.
    [[nodiscard]] bool hasFoundDevice() const;

    /// Ends the worker, which cuts short what it is doing and closes its port; fails what was
    /// still requested and takes back loss reports that were posted and not yet delivered.
    /// @param supplyOff 1 switches the sensor's supply off as the last thing on the port
    /// @return answered with 1 when the port is closed; with 0 if that takes too long: the port is
    ///         then closed some time, and until then nobody can open it
    RequestId close(int supplyOff = 0);
    /// From open to the completion of close, or of an open that failed.
    [[nodiscard]] bool isOpen() const { return m_worker.isRunning(); }

    RequestId requestConnect();
    RequestId requestRead(char id);
    /// @param value at most 9 bytes
    RequestId requestWrite(char id, const QByteArray& value);
    RequestId requestRawExchange(const QByteArray& bytes);
    /// A position of now; the log gets its frame. While the stream is followed nothing is discarded
    /// for it.
    RequestId requestPosition();
    /// Switches the sensor's supply. A line without RTS is logged, and counts as switched.
    RequestId requestSupply(bool on);
    /// Switches the port between parameter mode and, with on = 1, the position stream, which is
    /// followed from then on: takeFrames gives every frame that comes.
    /// @param dataBits low 8 bits: width of the streamed SSI word
    /// @param resolutionThousandths micrometres per count
    RequestId requestStreamMode(int on, int dataBits = 0, int resolutionThousandths = 0);

    /// Cuts one request short without ending the worker.
    void cutShort(RequestId request) { m_worker.cutShort(request); }

    /// Where completions go; no window stops them.
    void setReplyTarget(QObject* window, int message);
    /// Where WM_LINK_LOST goes; no window stops it.
    void setLossTarget(QObject* window);

    /// Where WM_LINK_FRAMES goes: at most about thirty times a second while the stream is followed,
    /// and not again before takeFrames.
    void setFramesTarget(QObject* window);

    /// 1 streams PROG frames every 50 ms until another value is given, or the port is closed or
    /// opened. Does nothing without an open port.
    void setKeepAlive(int on);

    /// Counts the sensor as not identified and forgets its version answer, until the next connect.
    void forgetIdentification();

    /// Counts as if no port had been opened in this run. After the completion of close.
    void forgetPort();

    /// Identifies the sensor from the version answer in the last reply, after a connect in which
    /// the user switched the supply.
    /// @return 1 identified, 0 not
    int identifyFromLastReply();

    /// Takes the revision that has answered last for a type, though the settings do not: from the
    /// next connect on, until another revision answers or another device is opened.
    void chooseType(int type);

    /// The port that was last opened successfully, 1 before any was; 0 if it has no number.
    [[nodiscard]] int portNumber() const;
    /// The same, but 0 before any was opened.
    [[nodiscard]] int openedPort() const { return hasOpened() ? portNumber() : 0; }
    /// The device of that port; empty before any was opened.
    [[nodiscard]] QString device() const;
    /// True once any port has been opened in this run.
    [[nodiscard]] bool hasOpened() const { return opened() != nullptr; }

    [[nodiscard]] QByteArray lastReply() const;
    [[nodiscard]] QByteArray versionText() const;
    [[nodiscard]] RawReply rawReply() const;
    /// Millimetres; the last position that was received whole.
    [[nodiscard]] double position() const;

    /// What has come of the followed stream since the last call.
    [[nodiscard]] PositionBatch takeFrames();

    /// 0, 1 or 2; 3 not identified; 0 before any identification.
    [[nodiscard]] int ssiType() const;
    /// Takes a sensor whose revision lies in no range for one of this type, from the next
    /// identification on.
    void setTypeByHand(int type);
    /// Whether the sensor's type is the one that was set by hand.
    [[nodiscard]] bool isTypeByHand() const;
    /// Whether the last connect on this port ended with a type and the link was not lost since.
    /// Without it nothing may be written to the sensor's parameters.
    [[nodiscard]] bool isIdentified() const;
    /// Whether the last connect has switched the sensor's supply off and on: what is read since
    /// then is what the sensor has stored.
    [[nodiscard]] bool wasRestarted() const;
    /// 1 after a failed purge, write or raw exchange, until the next successful open.
    [[nodiscard]] int linkFailed() const;
    /// Whether the device was found gone, and its supply with it.
    [[nodiscard]] bool isDeviceGone() const;
    /// How often the link was lost in this run. A sequence of requests compares it with the count
    /// at its start: requests to write succeed whatever happens, and the flag may have been cleared
    /// by a quick reconnect.
    [[nodiscard]] int lossCount() const;
    /// How often a frame left the port incomplete, which goes on: the sensor lacks it, though the
    /// request to write has succeeded.
    [[nodiscard]] int cutFrames() const;

    [[nodiscard]] CommLog& commLog() { return *m_commLog; }

private:
    using Perform = std::function<int(SensorSession&, RequestWorker::Context&)>;

    RequestId submit(SensorRequest kind, Perform perform);
    [[nodiscard]] const SensorSession* opened() const;

    const ComPortFactory& m_factory;
    const std::shared_ptr<CommLog> m_commLog;
    MessageTarget m_lossTarget;
    MessageTarget m_framesTarget;
    RequestWorker m_worker;
    PeriodicTimer m_keepAliveTimer;
    /// Of the last open, shared with its worker; null before.
    std::shared_ptr<SensorSession> m_session;
    /// The last before that whose port was opened, or null.
    std::shared_ptr<SensorSession> m_former;
    int m_typeByHand = kSsiTypeUnknown;
    bool m_closing = false; ///< from close to the next open
    int m_formerLosses = 0; ///< of all sessions before, as the next
    int m_formerCutFrames = 0;
};

} // namespace pelorin
