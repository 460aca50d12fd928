#include "link/SensorLink.h"

#include "link/SensorIdentification.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/PortOpening.h"

#include <system_error>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kThreadFailedText = 105;

constexpr LineSettings kParameterLine{4800, 'N', 8, 1};
constexpr LineSettings kStreamLine{38400, 'N', 8, 1};
constexpr auto kKeepAlivePeriod = 50ms;
constexpr int kVersionMinimum = 2;

QString deviceNameOf(int portNumber)
{
    return QStringLiteral("\\\\.\\COM%1").arg(portNumber);
}

QString threadFailure(int error)
{
    return languageString(kThreadFailedText).arg(QString::number(error));
}

/// A copy that shares nothing with its source: each thread frees its own.
QByteArray separate(const QByteArray& bytes)
{
    return {bytes.constData(), bytes.size()};
}

} // namespace

SensorLink::SensorLink(const ComPortFactory& factory) : m_factory(factory) {}

SensorLink::~SensorLink()
{
    close();
}

void SensorLink::setErrorPresenter(ErrorPresenter presenter)
{
    m_presentError = std::move(presenter);
}

int SensorLink::open(int portNumber, int showErrors)
{
    if (!m_worker.joinable()) {
        const QString deviceName = deviceNameOf(portNumber);
        m_port = m_factory.create(deviceName);
        if (const PortFailure failure = openPort(*m_port, kParameterLine)) {
            const QString message = failure.message(deviceName);
            const bool opened = failure.step != PortStep::Open;
            if (opened)
                m_commLog.append(message);
            present(message, opened ? 1 : showErrors);
            return 0;
        }
        {
            const std::lock_guard lock(m_mutex);
            m_results.scale = PositionScale(); // the line is in parameter mode
        }
        m_identified = false;
        m_portNumber = portNumber;
        m_hasOpened = true;
        if (!startWorker())
            return 0;
    }
    m_linkFailed = 0;
    return 1;
}

int SensorLink::startWorker()
{
    try {
        m_worker = std::thread([this] { run(); });
    } catch (const std::system_error& error) {
        m_port->close();
        const QString message = threadFailure(error.code().value());
        m_commLog.append(message);
        present(message, 1);
        return 0;
    }
    return 1;
}

void SensorLink::close(int supplyOff)
{
    m_keepAliveTimer.stop();
    if (!m_worker.joinable())
        return;
    m_supplyOffAtEnd = supplyOff;
    m_events.signal(static_cast<int>(SensorRequest::Stop));
    m_port->interrupt();
    m_worker.join();
    m_identified = false;
    failPendingRequests();
    m_lossTarget.withdraw();
}

void SensorLink::present(const QString& message, int show) const
{
    if (show == 1 && m_presentError)
        m_presentError(message);
}

RequestId SensorLink::requestConnect()
{
    return submit(SensorRequest::Connect);
}

RequestId SensorLink::requestRead(char id)
{
    return submit(SensorRequest::Read, id);
}

RequestId SensorLink::requestWrite(char id, const QByteArray& value)
{
    return submit(SensorRequest::Write, id, value);
}

RequestId SensorLink::requestRawExchange(const QByteArray& bytes)
{
    return submit(SensorRequest::RawExchange, 0, bytes);
}

RequestId SensorLink::requestPosition()
{
    return submit(SensorRequest::Position);
}

RequestId SensorLink::submit(SensorRequest kind, char parameterId, const QByteArray& bytes)
{
    RequestId id = 0;
    {
        const std::lock_guard lock(m_mutex);
        id = ++m_lastRequestId;
        m_requests[static_cast<std::size_t>(kind)] = Request{id, parameterId, separate(bytes)};
    }
    if (m_worker.joinable()) {
        m_events.signal(static_cast<int>(kind));
    } else {
        m_replyTarget.post(0, id);
    }
    return id;
}

void SensorLink::failPendingRequests()
{
    for (int kind = 0; kind < kRequestCount; ++kind) {
        if (m_events.take(kind) && kind != static_cast<int>(SensorRequest::KeepAlive))
            m_replyTarget.post(0, m_requests[static_cast<std::size_t>(kind)].id);
    }
}

void SensorLink::setReplyTarget(QObject* window, int message)
{
    m_replyTarget.aim(window, message);
}

void SensorLink::setLossTarget(QObject* window)
{
    m_lossTarget.aim(window, WM_LINK_LOST);
}

void SensorLink::setKeepAlive(int on)
{
    if (on != 1) {
        m_keepAliveTimer.stop();
        return;
    }
    const int error = m_keepAliveTimer.start(Pacing::pause(kKeepAlivePeriod), [this] {
        m_events.signal(static_cast<int>(SensorRequest::KeepAlive));
    });
    if (error != 0)
        m_commLog.append(threadFailure(error));
}

void SensorLink::setStreamMode(int on, int dataBits, int resolutionThousandths)
{
    const bool stream = on == 1;
    {
        const std::lock_guard lock(m_mutex);
        m_results.scale = stream ? PositionScale{dataBits & 0xFF, resolutionThousandths * 0.001}
                                 : PositionScale();
    }
    if (!m_port)
        return;
    if (const int error = m_port->setLine(stream ? kStreamLine : kParameterLine); error != 0)
        m_commLog.append(PortFailure{PortStep::Line, error}.message(deviceNameOf(m_portNumber)));
}

void SensorLink::setRts(int clear)
{
    if (m_port)
        SensorProtocol::setRts(*m_port, m_commLog, clear);
}

int SensorLink::identifyFromLastReply()
{
    const QByteArray version = lastReply();
    {
        const std::lock_guard lock(m_mutex);
        m_results.versionText = separate(version);
    }
    return identify(version);
}

QByteArray SensorLink::lastReply() const
{
    const std::lock_guard lock(m_mutex);
    return separate(m_results.lastReply);
}

QByteArray SensorLink::versionText() const
{
    const std::lock_guard lock(m_mutex);
    return separate(m_results.versionText);
}

RawReply SensorLink::rawReply() const
{
    const std::lock_guard lock(m_mutex);
    return {separate(m_results.rawReply.bytes), m_results.rawReply.cut};
}

double SensorLink::position() const
{
    const std::lock_guard lock(m_mutex);
    return m_results.position;
}

/// The worker: performs requests until it is asked to stop, and closes its port as its last act.
void SensorLink::run()
{
    const auto pause = [this](std::chrono::milliseconds duration) {
        return !m_events.waitFor(static_cast<int>(SensorRequest::Stop), Pacing::pause(duration));
    };
    SensorProtocol protocol(*m_port, m_commLog,
                            {[this] { reportLoss(); }, [this] { ++m_lossCount; }, pause});

    while (true) {
        const auto kind = static_cast<SensorRequest>(m_events.waitForAny());
        if (kind == SensorRequest::Stop)
            break;
        Request request;
        {
            const std::lock_guard lock(m_mutex);
            request = m_requests[static_cast<std::size_t>(kind)];
            request.bytes = separate(request.bytes);
        }
        const int result = perform(protocol, kind, request);
        if (kind != SensorRequest::KeepAlive)
            m_replyTarget.post(static_cast<std::uintptr_t>(result), request.id);
    }
    if (m_supplyOffAtEnd == 1)
        setRts(0);
    m_port->close();
}

int SensorLink::perform(SensorProtocol& protocol, SensorRequest kind, const Request& request)
{
    switch (kind) {
    case SensorRequest::Connect:
        return connect(protocol);
    case SensorRequest::Read:
        return readParameter(protocol, request.parameterId);
    case SensorRequest::Write:
        return protocol.writeParameter(request.parameterId, request.bytes);
    case SensorRequest::KeepAlive:
        protocol.sendKeepAlive();
        return 1;
    case SensorRequest::RawExchange: {
        auto reply = protocol.rawExchange(request.bytes);
        const std::lock_guard lock(m_mutex);
        m_results.rawReply = std::move(reply);
        return 1;
    }
    case SensorRequest::Position:
        return readPosition(protocol);
    case SensorRequest::Stop:
        break;
    }
    return 0;
}

int SensorLink::connect(SensorProtocol& protocol)
{
    m_identified = false;
    {
        const std::lock_guard lock(m_mutex);
        m_results.lastReply.clear();
        m_results.versionText.clear();
    }
    const auto version = protocol.connect();
    if (!version || version->size() < kVersionMinimum)
        return 0;
    {
        const std::lock_guard lock(m_mutex);
        m_results.lastReply = *version;
        m_results.versionText = *version;
    }
    return identify(*version);
}

int SensorLink::identify(const QByteArray& versionText)
{
    const int type = ssiTypeOfVersion(versionText);
    m_ssiType = type;
    m_identified = type != kSsiTypeUnknown && m_linkFailed == 0;
    m_commLog.append(type == kSsiTypeUnknown ? QStringLiteral("SSY Type: Unknown")
                                             : QStringLiteral("SSI Type: %1").arg(type));
    return type == kSsiTypeUnknown ? 0 : 1;
}

int SensorLink::readParameter(SensorProtocol& protocol, char id)
{
    {
        const std::lock_guard lock(m_mutex);
        m_results.lastReply.clear();
    }
    const auto reply = protocol.readParameter(id);
    if (!reply)
        return 0;
    const std::lock_guard lock(m_mutex);
    m_results.lastReply = *reply;
    return 1;
}

int SensorLink::readPosition(SensorProtocol& protocol)
{
    const auto frame = protocol.readPositionFrame();
    if (!frame)
        return 0;
    const std::lock_guard lock(m_mutex);
    const auto position = decodePosition(
        {frame->constData(), static_cast<std::size_t>(frame->size())}, m_results.scale);
    if (!position)
        return 0;
    m_results.position = *position;
    return 1;
}

void SensorLink::reportLoss()
{
    if (m_linkFailed.exchange(1) == 0)
        ++m_lossCount;
    m_identified = false;
    m_lossTarget.post(0);
}

} // namespace pelorin
