#include "display/DisplayLink.h"

#include "display/DisplayProtocol.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/PortOpening.h"
#include "platform/core/RegistryConfig.h"

#include <cstdint>
#include <system_error>
#include <utility>

namespace pelorin {

namespace {

constexpr int kThreadFailedText = 105;
constexpr int kSetUpFailedText = 247;
constexpr int kSensorPortText = 1600;
constexpr int kPortGoneText = 1601;
constexpr int kNodeText = 1612;

constexpr int kHighestNode = 9; ///< a frame has one digit for it

constexpr LineSettings kLine{19200, 'N', 8, 1};

QString noReading()
{
    return QStringLiteral("****");
}

} // namespace

DisplayLink::DisplayLink(const ComPortFactory& factory) : m_factory(factory)
{
    RegistryConfig config;
    if (config.setStorage(
            QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin")) != 1)
        return;
    m_portName = config.getValue(QStringLiteral("QDL3Comport"), QStringLiteral("COM1"));
    m_nodeId = config.getValue(QStringLiteral("QDL3NodeID"), qint32{1});
}

DisplayLink::~DisplayLink()
{
    close();
}

RequestId DisplayLink::open(int sensorPort)
{
    if (m_nodeId < 0 || m_nodeId > kHighestNode) {
        setMessage(languageString(kNodeText).arg(m_nodeId));
        return 0;
    }
    if (isPort(sensorPort)) {
        setMessage(languageString(kSensorPortText).arg(m_portName));
        return 0;
    }
    m_port = m_factory.create(m_portName);
    if (const PortFailure failure = openPort(*m_port, kLine)) {
        setMessage(failure.message(m_portName));
        return 0;
    }
    return startWorker() ? submit(DisplayRequest::SetUp) : 0;
}

bool DisplayLink::startWorker()
{
    try {
        m_worker = std::thread([this] { run(); });
    } catch (const std::system_error& error) {
        m_port->close();
        setMessage(languageString(kThreadFailedText).arg(error.code().value()));
        return false;
    }
    return true;
}

void DisplayLink::close()
{
    if (!m_worker.joinable())
        return;
    m_events.signal(static_cast<int>(DisplayRequest::Stop));
    m_port->interrupt();
    m_worker.join();
}

void DisplayLink::setReplyTarget(QObject* window, int message)
{
    m_replyTarget.aim(window, message);
}

RequestId DisplayLink::requestReading()
{
    return submit(DisplayRequest::Reading);
}

RequestId DisplayLink::requestApply(const DisplaySettings& settings)
{
    return submit(DisplayRequest::Apply, settings);
}

RequestId DisplayLink::submit(DisplayRequest kind, const DisplaySettings& settings)
{
    const RequestId id = ++m_lastRequestId;
    if (!m_worker.joinable()) {
        m_replyTarget.post(0, id);
        return id;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_requests[static_cast<std::size_t>(kind)] = {id, settings};
    }
    m_events.signal(static_cast<int>(kind));
    return id;
}

QString DisplayLink::lastReading() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastReading;
}

QString DisplayLink::takeMessage()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_message, {});
}

bool DisplayLink::isPort(int portNumber) const
{
    const ComPortNames names;
    return names.numberOf(names.devicePath(m_portName)) == portNumber;
}

/// The worker. A stop comes last of all requests, but those before it then fail at once.
void DisplayLink::run()
{
    DisplayProtocol protocol(*m_port, static_cast<std::uint8_t>(m_nodeId));
    while (true) {
        const auto kind = static_cast<DisplayRequest>(m_events.waitForAny());
        if (kind == DisplayRequest::Stop)
            break;
        serve(protocol, kind);
    }
    m_port->close();
}

void DisplayLink::serve(DisplayProtocol& protocol, DisplayRequest kind)
{
    Request request;
    {
        const std::lock_guard lock(m_mutex);
        request = m_requests[static_cast<std::size_t>(kind)];
    }
    const bool success = perform(protocol, kind, request.settings);
    const QString message = messageAfter(kind, success, protocol.takeErrors());
    if (!message.isEmpty())
        setMessage(message);
    m_replyTarget.post(success ? 1 : 0, request.id);
}

bool DisplayLink::perform(DisplayProtocol& protocol, DisplayRequest kind,
                          const DisplaySettings& settings)
{
    switch (kind) {
    case DisplayRequest::SetUp:
        return protocol.setUp();
    case DisplayRequest::Reading:
        return read(protocol);
    case DisplayRequest::Apply:
        return protocol.apply(settings);
    case DisplayRequest::Stop:
        break;
    }
    return false;
}

bool DisplayLink::read(DisplayProtocol& protocol)
{
    setReading(noReading());
    const auto reading = protocol.readDisplay();
    if (reading)
        setReading(QString::fromLatin1(*reading));
    return reading.has_value();
}

/// What is to be told about a request. The errors of a set-up that failed stand in its message.
QString DisplayLink::messageAfter(DisplayRequest kind, bool success, QStringList errors)
{
    const bool failedSetUp = kind == DisplayRequest::SetUp && !success;
    if (success && errors.isEmpty())
        m_failureTold = false;
    if (!failedSetUp && (errors.isEmpty() || m_failureTold))
        return QString();

    if (!errors.isEmpty()) {
        m_failureTold = true;
        if (!m_port->isOpen()) // a device that has gone is closed at once
            errors << languageString(kPortGoneText).arg(m_portName);
    }
    if (failedSetUp)
        errors.prepend(languageString(kSetUpFailedText).arg(m_portName, QString::number(m_nodeId)));
    return errors.join(QLatin1Char('\n'));
}

void DisplayLink::setMessage(const QString& message)
{
    const std::lock_guard lock(m_mutex);
    m_message = message;
}

void DisplayLink::setReading(const QString& reading)
{
    const std::lock_guard lock(m_mutex);
    m_lastReading = reading;
}

} // namespace pelorin
