#include "link/SensorLink.h"

#include "link/SensorSession.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"

#include <optional>
#include <string>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr auto kKeepAlivePeriod = 50ms;

QString threadFailure(int error)
{
    return languageString(strings::kWorkerNotStarted).arg(QString::number(error));
}

QByteArray bytesOf(const std::string& text)
{
    return QByteArray::fromStdString(text);
}

} // namespace

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
    return open(portNumber, ComPortNames().devicePath(ComPortNames::nameOf(portNumber)));
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
    const auto session = std::make_shared<SensorSession>(
        portNumber, device, m_commLog, m_lossTarget.poster(), m_framesTarget.poster());
    if (m_session) {
        m_formerLosses += m_session->lossCount;
        m_formerCutFrames += m_session->cutFrames;
        session->takeOver(*m_session);
        if (m_session->opened)
            m_former = m_session;
    }
    session->typeByHand = m_typeByHand;
    m_session = session;
    int threadError = 0;
    const RequestId request = m_worker.start(
        m_factory.create(device), [session](auto& context) { return session->open(context); },
        [session](auto& /*context*/) {
            session->noticeGone();
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

bool SensorLink::hasFoundDevice() const
{
    return m_session && m_session->failure.step != PortStep::Open;
}

RequestId SensorLink::close(int supplyOff)
{
    m_keepAliveTimer.stop();
    m_closing = true;
    if (!m_session)
        return m_worker.stop();
    m_session->identified = false;
    return m_worker.stop([session = m_session, supplyOff](auto& /*context*/) {
        return session->end(supplyOff == 1);
    });
}

RequestId SensorLink::submit(SensorRequest kind, Perform perform)
{
    return m_worker.submit(static_cast<int>(kind),
                           [session = m_session, perform = std::move(perform)](auto& context) {
                               return perform(*session, context);
                           });
}

RequestId SensorLink::requestConnect()
{
    return submit(SensorRequest::Connect, [](SensorSession& session, auto& context) {
        return session.connect(context.port());
    });
}

RequestId SensorLink::requestRead(char id)
{
    return submit(SensorRequest::Read,
                  [id](SensorSession& session, auto& /*context*/) { return session.read(id); });
}

RequestId SensorLink::requestWrite(char id, const QByteArray& value)
{
    return submit(SensorRequest::Write, [id, value](SensorSession& session, auto& /*context*/) {
        return session.write(id, value);
    });
}

RequestId SensorLink::requestRawExchange(const QByteArray& bytes)
{
    return submit(SensorRequest::RawExchange, [bytes](SensorSession& session, auto& /*context*/) {
        return session.exchangeRaw(bytes);
    });
}

RequestId SensorLink::requestPosition()
{
    return submit(SensorRequest::Position, [](SensorSession& session, auto& context) {
        return session.readPosition(context.port());
    });
}

RequestId SensorLink::requestSupply(bool on)
{
    return submit(SensorRequest::Supply, [on](SensorSession& session, auto& /*context*/) {
        return session.switchSupply(on);
    });
}

RequestId SensorLink::requestStreamMode(int on, int dataBits, int resolutionThousandths)
{
    std::optional<PositionScale> scale;
    if (on == 1)
        scale = PositionScale{dataBits & 0xFF, resolutionThousandths * 0.001};
    return submit(SensorRequest::StreamMode, [scale](SensorSession& session, auto& context) {
        return session.setStreamMode(context, scale);
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
        m_worker.tick(static_cast<int>(SensorRequest::KeepAlive),
                      [session](auto& /*context*/) { return session->sendKeepAlive(); });
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
    return m_session ? m_session->identifyFromLastReply() : 0;
}

const SensorSession* SensorLink::opened() const
{
    return m_session && m_session->opened ? m_session.get() : m_former.get();
}

int SensorLink::portNumber() const
{
    const SensorSession* session = opened();
    return session ? session->number : 1;
}

QString SensorLink::device() const
{
    const SensorSession* session = opened();
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
    return m_session ? m_session->takeFrames() : PositionBatch();
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
