#include "link/SensorLink.h"

#include "link/FollowedStream.h"
#include "link/PositionFrame.h"
#include "link/SensorIdentification.h"
#include "link/TypeChoice.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/PortOpening.h"
#include "platform/core/Strings.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr LineSettings kParameterLine{4800, 'N', 8, 1};
constexpr LineSettings kStreamLine{38400, 'N', 8, 1};
constexpr auto kStreamByteTime = std::chrono::nanoseconds(1s) * 10 / kStreamLine.baud;
constexpr auto kKeepAlivePeriod = 50ms;
constexpr int kVersionMinimum = 2;

/// What the user is told that was opened.
QString deviceNameOf(int portNumber, const QString& device)
{
    const bool hasNumber = portNumber != 0 || device.isEmpty();
    return !hasNumber ? device : QStringLiteral("\\\\.\\COM%1").arg(portNumber);
}

QString threadFailure(int error)
{
    return languageString(strings::kWorkerNotStarted).arg(QString::number(error));
}

QByteArray bytesOf(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

} // namespace

/// One opened port: what its worker and the user-interface thread share. A worker that is left to
/// itself keeps it, and reaches nothing of the link's but the log.
class SensorLink::Session
{
public:
    struct Results
    {
        std::string lastReply;
        std::string versionText;
        std::string rawBytes;
        bool rawCut = false;
        double position = 0.0;
        PositionScale scale;
    };

    Session(int port, QString openedDevice, std::shared_ptr<CommLog> commLog,
            MessageTarget::Poster losses, MessageTarget::Poster frames)
        : number(port), device(std::move(openedDevice)), log(std::move(commLog)),
          stream(std::move(frames)), m_losses(std::move(losses))
    {
    }

    [[nodiscard]] QString name() const { return deviceNameOf(number, device); }

    /// The first request.
    int open(RequestWorker::Context& context)
    {
        failure = openPluggedPort(context.port(), kParameterLine, device,
                                  [&context](auto time) { return context.pause(time); });
        if (failure) {
            if (failure.step != PortStep::Open)
                log->append(failure.message(name()));
            return 0;
        }
        protocol.emplace(context.port(), *log,
                         SensorProtocol::Callbacks{
                             [this, &context] { reportLoss(context); }, [this] { ++cutFrames; },
                             [&context](auto time) { return context.pause(time); }});
        linkFailed = 0;
        deviceGone = false;
        opened = true;
        return 1;
    }

    int connect(ComPort& port)
    {
        if (m_lineFailed) // a stop that could not leave the stream's line has this way out
            (void)setLine(port, kParameterLine);
        forgetIdentification();
        store(&Results::lastReply, {});
        const auto version = protocol->connect();
        restarted = protocol->hasSwitchedSupply();
        if (!version || version->size() < kVersionMinimum)
            return 0;
        store(&Results::lastReply, version->toStdString());
        store(&Results::versionText, version->toStdString());
        return identify(*version);
    }

    int read(char id)
    {
        store(&Results::lastReply, {});
        const auto reply = protocol->readParameter(id);
        if (!reply)
            return 0;
        store(&Results::lastReply, reply->toStdString());
        return 1;
    }

    int exchangeRaw(const QByteArray& bytes)
    {
        store(&Results::rawBytes, {});
        const auto reply = protocol->rawExchange(bytes);
        store(&Results::rawBytes, reply.bytes.toStdString());
        store(&Results::rawCut, reply.cut);
        return 1;
    }

    int readPosition(ComPort& port)
    {
        const auto position =
            stream.isFollowed() ? stream.readPosition(port, *protocol) : readSinglePosition();
        if (!position)
            return 0;
        store(&Results::position, *position);
        return 1;
    }

    int setStreamMode(RequestWorker::Context& context, const std::optional<PositionScale>& scale)
    {
        store(&Results::scale, scale.value_or(PositionScale()));
        const bool isSet = setLine(context.port(), scale ? kStreamLine : kParameterLine);
        if (scale && isSet) {
            (void)protocol->discardInput();
            stream.begin(context, *scale, Pacing::lineTime(kStreamByteTime));
        } else {
            stream.end(context);
        }
        return isSet ? 1 : 0;
    }

    void switchSupply(bool on)
    {
        (void)protocol->setRts(on ? 1 : 0);
        if (on)
            stream.beginAgain();
    }

    int identify(const QByteArray& version)
    {
        const int ranged = ssiTypeOfVersion(version);
        int type = ranged == kSsiTypeUnknown ? typeByHand.load() : ranged;
        if (const auto chosen = choice.typeFor(revisionOf(version), ranged != kSsiTypeUnknown)) {
            type = *chosen;
            log->append(QStringLiteral("Revision %1 used as type %2, chosen by hand")
                            .arg(QString::fromLatin1(version.left(2)), QString::number(type)));
        }
        byHand = type != ranged;
        ssiType = type;
        identified = type != kSsiTypeUnknown && linkFailed == 0;
        log->append(type == kSsiTypeUnknown ? QStringLiteral("SSY Type: Unknown")
                                            : QStringLiteral("SSI Type: %1").arg(type));
        return type == kSsiTypeUnknown ? 0 : 1;
    }

    void forgetIdentification()
    {
        identified = false;
        byHand = false;
        restarted = false;
        store(&Results::versionText, {});
    }

    [[nodiscard]] Results results() const
    {
        const std::lock_guard lock(m_mutex);
        return m_results;
    }

    template <class Value>
    void store(Value Results::*result, Value value)
    {
        const std::lock_guard lock(m_mutex);
        m_results.*result = std::move(value);
    }

    const int number;
    const QString device;
    const std::shared_ptr<CommLog> log;

    PortFailure failure; ///< the worker's until the open is answered
    std::atomic<bool> opened = false;
    std::atomic<int> ssiType = 0;
    std::atomic<int> typeByHand = kSsiTypeUnknown; ///< for a revision in no range
    std::atomic<bool> byHand = false;              ///< whether ssiType is that one
    std::atomic<bool> identified = false;
    TypeChoice choice;
    std::atomic<bool> restarted = false;
    std::atomic<int> linkFailed = 0;
    std::atomic<bool> deviceGone = false;
    std::atomic<int> lossCount = 0;
    std::atomic<int> cutFrames = 0;

    std::optional<SensorProtocol> protocol; ///< the worker's; there once the port is open
    FollowedStream stream;

private:
    bool setLine(ComPort& port, const LineSettings& line)
    {
        const int error = port.setLine(line);
        m_lineFailed = error != 0;
        if (m_lineFailed)
            log->append(PortFailure{PortStep::Line, error}.message(name()));
        return !m_lineFailed;
    }

    [[nodiscard]] std::optional<double> readSinglePosition()
    {
        const auto frame = protocol->readPositionFrame();
        if (!frame)
            return std::nullopt;
        return decodePosition({frame->constData(), static_cast<std::size_t>(frame->size())},
                              results().scale);
    }

    void reportLoss(RequestWorker::Context& context)
    {
        if (linkFailed.exchange(1) == 0)
            ++lossCount;
        identified = false;
        deviceGone = deviceGone || !context.port().isOpen();
        if (!context.isLeft())
            m_losses.post(0);
    }

    bool m_lineFailed = false; ///< the worker's: which line the port has now is not known
    const MessageTarget::Poster m_losses;
    mutable std::mutex m_mutex;
    Results m_results; ///< m_mutex
};

SensorLink::SensorLink(const ComPortFactory& factory)
    : m_factory(factory), m_commLog(std::make_shared<CommLog>())
{
}

SensorLink::~SensorLink()
{
    m_keepAliveTimer.stop();
}

RequestId SensorLink::open(int portNumber)
{
    return open(portNumber, ComPortNames().devicePath(QStringLiteral("COM%1").arg(portNumber)));
}

RequestId SensorLink::reopen()
{
    return open(portNumber(), device());
}

RequestId SensorLink::open(int portNumber, const QString& device)
{
    m_keepAliveTimer.stop(); // it serves the session before
    m_closing = false;
    m_lossTarget.withdraw();
    const auto session = std::make_shared<Session>(portNumber, device, m_commLog,
                                                   m_lossTarget.poster(), m_framesTarget.poster());
    if (m_session) {
        m_formerLosses += m_session->lossCount;
        m_formerCutFrames += m_session->cutFrames;
        session->ssiType = m_session->ssiType.load();
        session->linkFailed = m_session->linkFailed.load();
        session->deviceGone = m_session->deviceGone.load();
        session->byHand = m_session->byHand.load();
        if (m_session->device == device)
            session->choice.takeOver(m_session->choice);
        if (m_session->opened)
            m_former = m_session;
    }
    session->typeByHand = m_typeByHand;
    m_session = session;
    int threadError = 0;
    const RequestId request = m_worker.start(
        m_factory.create(device), [session](auto& context) { return session->open(context); },
        [session](auto& /*context*/) {
            if (session->linkFailed == 0)
                session->protocol->noticeGone();
            return 0;
        },
        threadError);
    if (threadError != 0) {
        session->failure = {PortStep::Thread, threadError};
        m_commLog->append(openFailure());
    }
    return request;
}

QString SensorLink::openFailure() const
{
    return m_session && m_session->failure ? m_session->failure.message(m_session->name())
                                           : QString();
}

RequestId SensorLink::close(int supplyOff)
{
    m_keepAliveTimer.stop();
    m_closing = true;
    if (!m_session)
        return m_worker.stop();
    m_session->identified = false;
    return m_worker.stop([session = m_session, supplyOff](auto& /*context*/) {
        session->identified = false;
        return supplyOff == 1 ? session->protocol->setRts(0) : 0;
    });
}

RequestId SensorLink::submit(SensorRequest kind,
                             std::function<int(Session&, SensorProtocol&)> perform)
{
    return m_worker.submit(static_cast<int>(kind),
                           [session = m_session, perform = std::move(perform)](auto& /*context*/) {
                               return perform(*session, *session->protocol);
                           });
}

RequestId SensorLink::requestConnect()
{
    return m_worker.submit(
        static_cast<int>(SensorRequest::Connect),
        [session = m_session](auto& context) { return session->connect(context.port()); });
}

RequestId SensorLink::requestRead(char id)
{
    return submit(SensorRequest::Read,
                  [id](Session& session, auto& /*protocol*/) { return session.read(id); });
}

RequestId SensorLink::requestWrite(char id, const QByteArray& value)
{
    return submit(SensorRequest::Write, [id, value](auto& /*session*/, SensorProtocol& protocol) {
        return protocol.writeParameter(id, value);
    });
}

RequestId SensorLink::requestRawExchange(const QByteArray& bytes)
{
    return submit(SensorRequest::RawExchange, [bytes](Session& session, auto& /*protocol*/) {
        return session.exchangeRaw(bytes);
    });
}

RequestId SensorLink::requestPosition()
{
    return m_worker.submit(
        static_cast<int>(SensorRequest::Position),
        [session = m_session](auto& context) { return session->readPosition(context.port()); });
}

RequestId SensorLink::requestSupply(bool on)
{
    return submit(SensorRequest::Supply, [on](Session& session, auto& /*protocol*/) {
        session.switchSupply(on);
        return 1;
    });
}

RequestId SensorLink::requestStreamMode(int on, int dataBits, int resolutionThousandths)
{
    std::optional<PositionScale> scale;
    if (on == 1)
        scale = PositionScale{dataBits & 0xFF, resolutionThousandths * 0.001};
    return m_worker.submit(static_cast<int>(SensorRequest::StreamMode),
                           [session = m_session, scale](auto& context) {
                               (void)session->setStreamMode(context, scale);
                               return 1;
                           });
}

void SensorLink::setReplyTarget(QObject* window, int message)
{
    m_worker.setReplyTarget(window, message);
}

void SensorLink::setLossTarget(QObject* window)
{
    m_lossTarget.aim(window, WM_LINK_LOST);
}

void SensorLink::setFramesTarget(QObject* window)
{
    m_framesTarget.aim(window, WM_LINK_FRAMES);
}

void SensorLink::setKeepAlive(int on)
{
    if (on != 1 || m_closing || !isOpen() || !m_session->opened) {
        m_keepAliveTimer.stop();
        return;
    }
    const auto tick = [this, session = m_session] {
        m_worker.tick(static_cast<int>(SensorRequest::KeepAlive), [session](auto& /*context*/) {
            session->protocol->sendKeepAlive();
            return 1;
        });
    };
    if (const int error = m_keepAliveTimer.start(Pacing::pause(kKeepAlivePeriod), tick); error != 0)
        m_commLog->append(threadFailure(error));
}

void SensorLink::forgetIdentification()
{
    if (m_session)
        m_session->forgetIdentification();
}

void SensorLink::forgetPort()
{
    if (m_session) {
        m_formerLosses += m_session->lossCount;
        m_formerCutFrames += m_session->cutFrames;
    }
    m_session.reset();
    m_former.reset();
}

void SensorLink::chooseType(int type)
{
    if (m_session)
        m_session->choice.choose(revisionOf(versionText()), type);
}

int SensorLink::identifyFromLastReply()
{
    if (!m_session)
        return 0;
    const std::string version = m_session->results().lastReply;
    m_session->store(&Session::Results::versionText, version);
    return m_session->identify(bytesOf(version));
}

const SensorLink::Session* SensorLink::opened() const
{
    return m_session && m_session->opened ? m_session.get() : m_former.get();
}

int SensorLink::portNumber() const
{
    const Session* session = opened();
    return session ? session->number : 1;
}

QString SensorLink::device() const
{
    const Session* session = opened();
    return session ? session->device : QString();
}

QByteArray SensorLink::lastReply() const
{
    return m_session ? bytesOf(m_session->results().lastReply) : QByteArray();
}

QByteArray SensorLink::versionText() const
{
    return m_session ? bytesOf(m_session->results().versionText) : QByteArray();
}

RawReply SensorLink::rawReply() const
{
    if (!m_session)
        return {};
    const auto results = m_session->results();
    return {bytesOf(results.rawBytes), results.rawCut};
}

double SensorLink::position() const
{
    return m_session ? m_session->results().position : 0.0;
}

PositionBatch SensorLink::takeFrames()
{
    return m_session ? m_session->stream.takeFrames() : PositionBatch();
}

int SensorLink::ssiType() const
{
    return m_session ? m_session->ssiType.load() : 0;
}

void SensorLink::setTypeByHand(int type)
{
    m_typeByHand = type;
    if (m_session)
        m_session->typeByHand = type;
}

bool SensorLink::isTypeByHand() const
{
    return m_session && m_session->byHand;
}

bool SensorLink::isIdentified() const
{
    return m_session && m_session->identified;
}

bool SensorLink::wasRestarted() const
{
    return m_session && m_session->restarted;
}

int SensorLink::linkFailed() const
{
    return m_session ? m_session->linkFailed.load() : 0;
}

bool SensorLink::isDeviceGone() const
{
    return m_session && m_session->deviceGone;
}

int SensorLink::lossCount() const
{
    return m_formerLosses + (m_session ? m_session->lossCount.load() : 0);
}

int SensorLink::cutFrames() const
{
    return m_formerCutFrames + (m_session ? m_session->cutFrames.load() : 0);
}

} // namespace pelorin
