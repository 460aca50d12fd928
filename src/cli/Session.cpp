#include "cli/Session.h"

#include "cli/EventLoop.h"
#include "cli/Interruption.h"
#include "cli/Options.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "link/SensorIdentification.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/Strings.h"
#include "sensor/JournalWords.h"

#include <QDeadlineTimer>

#include <utility>

namespace pelorin::cli {

namespace {

/// A port as it is named on the command line; digits alone are a COM number, too.
QString portName(const QString& given)
{
    bool isNumber = false;
    (void)given.toUInt(&isNumber);
    return isNumber ? QStringLiteral("COM") + given : given;
}

} // namespace

Session::Session(const Shared& shared)
    : m_options(shared.options), m_output(shared.output), m_terminal(shared.terminal),
      m_interruption(shared.interruption),
      m_manualPower(shared.options.manualPower || pelorin::isPowerManual()), m_link(shared.factory),
      m_runner(m_link), m_restore(m_runner, m_formats),
      m_writer(m_runner, m_journal, {.enabled = areWritesSafe(), .manualPower = m_manualPower})
{
    m_link.setLossTarget(this);
    connect(&m_interruption, &Interruption::came, this, [this] { m_runner.windDown([] {}); });
    connect(&m_runner, &SequenceRunner::portStuck, this,
            [this](auto& name) { m_output.tell(languageString(strings::kPortStuck).arg(name)); });
}

Session::~Session()
{
    close();
    m_link.setLossTarget(nullptr);
}

bool Session::isInterrupted() const
{
    return m_interruption.hasCome();
}

void Session::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (message && message->message() == WM_LINK_LOST)
        m_runner.linkLost();
}

Result Session::connectSensor()
{
    if (m_options.type)
        m_link.setTypeByHand(*m_options.type);
    Result result = openPort();
    if (!result.isDone())
        return result;
    const QDeadlineTimer limit(m_options.wait);
    do {
        result = connectOnce();
    } while (result.exit == ExitCode::NoAnswer && !limit.hasExpired());
    if (!result.isDone())
        return result;
    showSensor();
    tellUnfinished();
    if (result = checkType(); !result.isDone())
        return result;
    if (!m_options.dryRun)
        restoreFormat();
    return isInterrupted() ? interrupted() : result;
}

Result Session::openPort()
{
    const ComPortNames names;
    const QString name = portName(m_options.port);
    const QString device = names.devicePath(name);
    if (device.isEmpty()) {
        return {.exit = ExitCode::PortNotOpened,
                .code = "port",
                .text = languageString(strings::kNoSuchPort).arg(name)};
    }
    const int number = names.numberOf(device);
    QJsonObject port{{QStringLiteral("device"), device}};
    if (number != 0)
        port.insert(QStringLiteral("name"), ComPortNames::nameOf(number));
    m_output.set(QStringLiteral("port"), port);

    // It may be told only while the port is closed again.
    const auto opened = std::make_shared<std::optional<bool>>();
    m_runner.openPort(number, device, [opened](bool ready) { *opened = ready; });
    runUntil([&] { return opened->has_value() || isInterrupted(); });
    if (isInterrupted())
        return interrupted();
    if (**opened)
        return {};
    return {.exit = ExitCode::PortNotOpened, .code = "port", .text = m_link.openFailure()};
}

/// @return NoAnswer if there was none; done after any other
Result Session::connectOnce()
{
    Plan plan = connectPlan();
    if (m_manualPower) {
        m_link.forgetIdentification();
        plan = connectByHandPlan(askForSupply());
    }
    const Outcome outcome = run(std::move(plan), languageString(strings::kConnecting));
    m_link.setKeepAlive(0);
    if (outcome.kind == Outcome::Kind::Lost || outcome.kind == Outcome::Kind::Abandoned)
        return resultOf(outcome);
    if (m_manualPower && outcome.isDone())
        (void)m_link.identifyFromLastReply();
    if (!m_link.versionText().isEmpty())
        return {};
    return {.exit = ExitCode::NoAnswer,
            .code = "no-answer",
            .text = languageString(strings::kNotConnected)};
}

/// Has the user switch the supply off and on while PROG frames stream.
/// @return false if the sensor is ready already
bool Session::askForSupply()
{
    const auto off = m_terminal.ask(languageString(strings::kSwitchOffHere));
    if (!off || !off->isEmpty())
        return false;
    m_link.setKeepAlive(1);
    (void)m_terminal.ask(languageString(strings::kSwitchOnHere));
    return true;
}

Result Session::checkType() const
{
    if (!m_link.isIdentified()) {
        return {.exit = ExitCode::NotIdentified,
                .code = "not-identified",
                .text = unidentifiedText(m_link.versionText())};
    }
    if (!m_options.type || m_link.ssiType() == *m_options.type)
        return {};
    return {.exit = ExitCode::Refused,
            .code = "other-type",
            .text = languageString(strings::kOtherType)
                        .arg(revisionText(m_link.versionText()))
                        .arg(m_link.ssiType())};
}

/// What could not be written back is said in the end: the sensor can still be read.
void Session::restoreFormat()
{
    std::optional<FormatRestore::Result> format;
    m_restore.begin(*this, [&](FormatRestore::Result result) { format = result; });
    runUntil([&] { return format.has_value(); });
    m_formatFault = {.exit = ExitCode::Failed, .code = "format-not-restored"};
    if (format == FormatRestore::Result::NotRead) {
        m_formatFault.text = languageString(strings::kFormatNotRead);
    } else if (format == FormatRestore::Result::NotRestored) {
        for (const KeptFormat& kept : m_restore.keptForSensor())
            m_formatFault.text = keptFormatInWords(kept);
    } else {
        m_formatFault = {};
    }
}

void Session::showSensor()
{
    QJsonObject sensor{{QStringLiteral("version"), QString::fromLatin1(m_link.versionText())}};
    if (m_link.isIdentified()) {
        sensor.insert(QStringLiteral("type"), m_link.ssiType());
        sensor.insert(QStringLiteral("byHand"), m_link.isTypeByHand());
    }
    m_output.set(QStringLiteral("sensor"), sensor);
}

/// The sensor may be changed by halves.
void Session::tellUnfinished()
{
    for (const JournalEntry& entry : m_journal.unfinished()) {
        if (m_writer.isSensorOf(entry)) {
            m_output.tell(unfinishedInWords(entry) +
                          QStringLiteral(" (pelorin-cli journal show %1)").arg(entry.id));
        }
    }
}

Outcome Session::run(Plan plan, const QString& text, std::function<void(const Reply&)> reply)
{
    const int steps = static_cast<int>(plan.size());
    std::optional<Outcome> outcome;
    m_output.showProgress(text, 0, steps);
    const bool begun =
        m_runner.start(*this, std::move(plan),
                       {.reply = std::move(reply),
                        .progress = [&](int done) { m_output.showProgress(text, done, steps); },
                        .ended = [&](const Outcome& ended) { outcome = ended; }});
    runUntil([&] { return !begun || outcome; });
    return outcome.value_or(Outcome{.kind = Outcome::Kind::Abandoned});
}

Result Session::read(const Plan& plan, SensorValues& values)
{
    return resultOf(run(plan, languageString(strings::kReading),
                        [&values](const Reply& reply) { values[reply.id] = reply.text; }));
}

Result Session::checkFormat(const QByteArray& format) const
{
    if (!m_restore.isStreamingFormat(format))
        return {};
    return {.exit = ExitCode::Refused,
            .code = "streaming-format",
            .text = languageString(strings::kStreamingFormat),
            .parameter = 'D'};
}

WriteResult Session::write(WriteRequest request, SafeWriter::Question question)
{
    m_writer.setQuestion(std::move(question));
    std::optional<WriteResult> result;
    SafeWriter::Listener listener;
    QString text;
    listener.phase = [&](SafeWriter::Phase phase) { text = languageString(textNumberOf(phase)); };
    listener.progress = [&](int done, int of) { m_output.showProgress(text, done, of); };
    listener.ended = [&](const WriteResult& ended) { result = ended; };
    const bool begun = m_writer.write(*this, std::move(request), std::move(listener));
    runUntil([&] { return !begun || result; });
    return result.value_or(WriteResult()); // after a signal: nothing was written
}

void Session::close()
{
    if (!m_link.isOpen())
        return;
    bool closed = false;
    const bool supplyOff = !m_manualPower && m_link.linkFailed() == 0;
    m_runner.closePort(supplyOff, [&closed] { closed = true; });
    runUntil([&closed] { return closed; });
}

} // namespace pelorin::cli
