#include "link/SensorSession.h"

#include "link/CommLog.h"
#include "link/CommLogTexts.h"
#include "link/PositionFrame.h"
#include "platform/core/ComPort.h"
#include "platform/core/Pacing.h"

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr LineSettings kParameterLine{4800, 'N', 8, 1};
constexpr LineSettings kStreamLine{38400, 'N', 8, 1};
constexpr auto kStreamByteTime = std::chrono::nanoseconds(1s) * 10 / kStreamLine.baud;
constexpr int kVersionMinimum = 2;

} // namespace

SensorSession::SensorSession(int comNumber, QString openedDevice, std::shared_ptr<CommLog> log,
                             MessageTarget::Poster losses, MessageTarget::Poster frames)
    : number(comNumber), device(std::move(openedDevice)), m_log(std::move(log)),
      m_stream(std::move(frames)), m_losses(std::move(losses))
{
}

void SensorSession::takeOver(const SensorSession& former)
{
    ssiType = former.ssiType.load();
    linkFailed = former.linkFailed.load();
    deviceGone = former.deviceGone.load();
    byHand = former.byHand.load();
    if (former.device == device)
        choice.takeOver(former.choice);
}

QString SensorSession::name() const
{
    const bool hasNumber = number != 0 || device.isEmpty();
    return !hasNumber ? device : QStringLiteral("\\\\.\\COM%1").arg(number);
}

SensorSession::Results SensorSession::results() const
{
    const std::lock_guard lock(m_mutex);
    return m_results;
}

int SensorSession::open(RequestWorker::Context& context)
{
    failure = openPluggedPort(context.port(), kParameterLine, device,
                              [&context](auto time) { return context.pause(time); });
    if (failure) {
        if (failure.step != PortStep::Open)
            m_log->append(failure.message(name()));
        return 0;
    }
    m_protocol.emplace(context.port(), *m_log,
                       SensorProtocol::Callbacks{
                           [this, &context] { reportLoss(context); }, [this] { ++cutFrames; },
                           [&context](auto time) { return context.pause(time); }});
    linkFailed = 0;
    deviceGone = false;
    opened = true;
    return 1;
}

int SensorSession::connect(ComPort& port)
{
    if (m_lineFailed) // a stop that could not leave the stream's line has this way out
        (void)setLine(port, kParameterLine);
    forgetIdentification();
    store(&Results::lastReply, {});
    const auto version = m_protocol->connect();
    restarted = m_protocol->hasSwitchedSupply();
    if (!version || version->size() < kVersionMinimum)
        return 0;
    store(&Results::lastReply, version->toStdString());
    store(&Results::versionText, version->toStdString());
    return identify(*version);
}

int SensorSession::read(char id)
{
    store(&Results::lastReply, {});
    const auto reply = m_protocol->readParameter(id);
    if (!reply)
        return 0;
    store(&Results::lastReply, reply->toStdString());
    return 1;
}

int SensorSession::exchangeRaw(const QByteArray& bytes)
{
    store(&Results::rawBytes, {});
    const auto reply = m_protocol->rawExchange(bytes);
    store(&Results::rawBytes, reply.bytes.toStdString());
    store(&Results::rawCut, reply.cut);
    return 1;
}

int SensorSession::readPosition(ComPort& port)
{
    const auto position =
        m_stream.isFollowed() ? m_stream.readPosition(port, *m_protocol) : readSinglePosition();
    if (!position)
        return 0;
    store(&Results::position, *position);
    return 1;
}

std::optional<double> SensorSession::readSinglePosition()
{
    const auto frame = m_protocol->readPositionFrame();
    if (!frame)
        return std::nullopt;
    return decodePosition(*frame, results().scale);
}

/// A line that cannot be set is logged; the request succeeds all the same.
int SensorSession::setStreamMode(RequestWorker::Context& context,
                                 const std::optional<PositionScale>& scale)
{
    store(&Results::scale, scale.value_or(PositionScale()));
    const bool isSet = setLine(context.port(), scale ? kStreamLine : kParameterLine);
    if (scale && isSet) {
        (void)m_protocol->discardInput();
        m_stream.begin(context, *scale, Pacing::lineTime(kStreamByteTime));
    } else {
        m_stream.end(context);
    }
    return 1;
}

bool SensorSession::setLine(ComPort& port, const LineSettings& line)
{
    const int error = port.setLine(line);
    m_lineFailed = error != 0;
    if (m_lineFailed)
        m_log->append(PortFailure{PortStep::Line, error}.message(name()));
    return !m_lineFailed;
}

int SensorSession::switchSupply(bool on)
{
    (void)m_protocol->setRts(on ? 1 : 0);
    if (on)
        m_stream.beginAgain();
    return 1;
}

int SensorSession::sendKeepAlive()
{
    m_protocol->sendKeepAlive();
    return 1;
}

int SensorSession::end(bool supplyOff)
{
    identified = false;
    return supplyOff ? m_protocol->setRts(0) : 0;
}

void SensorSession::noticeGone()
{
    if (linkFailed == 0)
        m_protocol->noticeGone();
}

int SensorSession::identifyFromLastReply()
{
    const std::string version = results().lastReply;
    store(&Results::versionText, version);
    return identify(QByteArray::fromStdString(version));
}

int SensorSession::identify(const QByteArray& version)
{
    const int ranged = ssiTypeOfVersion(version);
    int type = ranged == kSsiTypeUnknown ? typeByHand.load() : ranged;
    if (const auto chosen = choice.typeFor(revisionOf(version), ranged != kSsiTypeUnknown)) {
        type = *chosen;
        m_log->append(QStringLiteral("Revision %1 used as type %2, chosen by hand")
                          .arg(revisionText(version), QString::number(type)));
    }
    byHand = type != ranged;
    ssiType = type;
    identified = type != kSsiTypeUnknown && linkFailed == 0;
    m_log->append(type == kSsiTypeUnknown ? QLatin1String(logtexts::kOfNoType)
                                          : QString::asprintf("%s %d", logtexts::kOfType, type));
    return type == kSsiTypeUnknown ? 0 : 1;
}

void SensorSession::forgetIdentification()
{
    identified = false;
    byHand = false;
    restarted = false;
    store(&Results::versionText, {});
}

void SensorSession::reportLoss(RequestWorker::Context& context)
{
    if (linkFailed.exchange(1) == 0)
        ++lossCount;
    identified = false;
    deviceGone = deviceGone || !context.port().isOpen();
    if (!context.isLeft())
        m_losses.post(0);
}

} // namespace pelorin
