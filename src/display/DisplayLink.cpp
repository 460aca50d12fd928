#include "display/DisplayLink.h"

#include "display/DisplayProtocol.h"
#include "platform/core/ComPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/PortOpening.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/Strings.h"

#include <QStringList>

#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace pelorin {

namespace {

constexpr int kHighestNode = 9; ///< a frame has one digit for it

constexpr LineSettings kLine{19200, 'N', 8, 1};

/// The requests of the link, in their order of precedence.
enum class DisplayRequest : int { Reading, Apply };

} // namespace

/// One opened port: what its worker and the user-interface thread share. A worker that is left to
/// itself keeps it, and reaches nothing else of the link's.
class DisplayLink::Session
{
public:
    /// What is to be told.
    struct Report
    {
        PortFailure failure = {};
        bool isSetUpRefused = false;
        std::vector<std::string> errors = {};
        bool isGone = false;
    };

    Session(int node, MessageTarget::Poster notices)
        : m_node(static_cast<std::uint8_t>(node)), m_notices(std::move(notices))
    {
    }

    // The worker's thread.

    /// The first request.
    int open(RequestWorker::Context& context)
    {
        if (const PortFailure failure = openPort(context.port(), kLine)) {
            tell({.failure = failure});
            return 0;
        }
        m_protocol.emplace(context.port(), m_node);
        if (m_protocol->setUp())
            return finish(context, true);
        const bool isGone = !context.port().isOpen();
        tell({.isSetUpRefused = true, .errors = m_protocol->takeErrors(), .isGone = isGone});
        return 0;
    }

    int read(RequestWorker::Context& context)
    {
        const auto reading = m_protocol->readDisplay();
        {
            const std::lock_guard lock(m_mutex);
            m_reading = reading ? reading->toStdString() : kNoReading;
        }
        return finish(context, reading.has_value());
    }

    int apply(RequestWorker::Context& context, const DisplaySettings& settings)
    {
        return finish(context, m_protocol->apply(settings));
    }

    int noticeGone(RequestWorker::Context& context)
    {
        (void)context.port().purge(ComPort::Purge::Receive); // finds it gone, and closes it
        if (context.port().isOpen() || m_goneTold)
            return 0;
        m_failureTold = true; // with it
        tell({.isGone = true});
        m_notices.post(0);
        return 0;
    }

    // Any thread.

    void tell(Report report)
    {
        const std::lock_guard lock(m_mutex);
        m_report = std::move(report);
    }

    [[nodiscard]] Report takeReport()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_report, {});
    }

    [[nodiscard]] std::string reading() const
    {
        const std::lock_guard lock(m_mutex);
        return m_reading;
    }

private:
    /// Has errors of the port told, unless they were before. @return the request's result
    int finish(RequestWorker::Context& context, bool success)
    {
        auto errors = m_protocol->takeErrors();
        if (!errors.empty()) {
            if (!std::exchange(m_failureTold, true)) {
                m_goneTold = !context.port().isOpen();
                tell({.errors = std::move(errors), .isGone = m_goneTold});
            }
        } else if (success) {
            m_failureTold = false;
        }
        return success ? 1 : 0;
    }

    const std::uint8_t m_node;
    const MessageTarget::Poster m_notices;
    std::optional<DisplayProtocol> m_protocol; ///< the worker's
    bool m_failureTold = false;                ///< the worker's
    bool m_goneTold = false;                   ///< the worker's; by a request that found it so

    mutable std::mutex m_mutex; ///< guards the rest
    std::string m_reading;
    Report m_report;
};

DisplayLink::DisplayLink(const ComPortFactory& factory) : m_factory(factory)
{
    RegistryConfig config;
    if (config.setStorage(productKey()) != 1)
        return;
    m_portName = config.getValue(QStringLiteral("QDL3Comport"), QStringLiteral("COM1"));
    m_nodeId = config.getValue(QStringLiteral("QDL3NodeID"), qint32{1});
}

DisplayLink::~DisplayLink() = default;

RequestId DisplayLink::open(int sensorPort)
{
    if (m_nodeId < 0 || m_nodeId > kHighestNode)
        return refuse(languageString(strings::kDisplayUnitNode).arg(m_nodeId));
    if (isPort(sensorPort))
        return refuse(languageString(strings::kPortIsSensors).arg(m_portName));
    const auto session = std::make_shared<Session>(m_nodeId, m_notices.poster());
    m_session = session;
    int threadError = 0;
    const RequestId request = m_worker.start(
        m_factory.create(m_portName), [session](auto& context) { return session->open(context); },
        [session](auto& context) { return session->noticeGone(context); }, threadError);
    if (threadError != 0)
        session->tell({.failure = {PortStep::Thread, threadError}});
    return request;
}

RequestId DisplayLink::refuse(const QString& why)
{
    m_refusal = why;
    return m_worker.submit(0, {}); // fails, since no worker runs
}

RequestId DisplayLink::close()
{
    return m_worker.stop();
}

void DisplayLink::setReplyTarget(QObject* window, int message)
{
    m_worker.setReplyTarget(window, message);
    m_notices.aim(window, message);
}

RequestId DisplayLink::requestReading()
{
    return m_worker.submit(static_cast<int>(DisplayRequest::Reading),
                           [session = m_session](auto& context) { return session->read(context); });
}

RequestId DisplayLink::requestApply(const DisplaySettings& settings)
{
    return m_worker.submit(static_cast<int>(DisplayRequest::Apply),
                           [session = m_session, settings](auto& context) {
                               return session->apply(context, settings);
                           });
}

QString DisplayLink::lastReading() const
{
    return m_session ? QString::fromLatin1(m_session->reading()) : QString();
}

QString DisplayLink::takeMessage()
{
    if (!m_refusal.isEmpty())
        return std::exchange(m_refusal, {});
    const auto report = m_session ? m_session->takeReport() : Session::Report();
    if (report.failure)
        return report.failure.message(m_portName);
    QStringList lines;
    if (report.isSetUpRefused) {
        lines << languageString(strings::kDisplaySetUpFailed)
                     .arg(m_portName, QString::number(m_nodeId));
    }
    for (const std::string& error : report.errors)
        lines << QString::fromStdString(error);
    if (report.isGone)
        lines << languageString(strings::kDisplayPortGone).arg(m_portName);
    return lines.join(QLatin1Char('\n'));
}

bool DisplayLink::isPort(int portNumber) const
{
    const ComPortNames names;
    return portNumber != 0 && names.numberOf(names.devicePath(m_portName)) == portNumber;
}

} // namespace pelorin
