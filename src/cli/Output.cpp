#include "cli/Output.h"

#include "cli/EventLoop.h"
#include "cli/Interruption.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QJsonDocument>
#include <QTimer>

#include <cerrno>
#include <chrono>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace pelorin::cli {

namespace {

constexpr int kSchema = 1;
constexpr std::chrono::seconds kLastWait{2}; ///< after a signal, for what is not taken yet

QByteArray lineOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QJsonObject errorOf(const Result& result)
{
    QJsonObject error{{QStringLiteral("code"), QLatin1String(result.code)},
                      {QStringLiteral("text"), result.text}};
    if (result.parameter != 0)
        error.insert(QStringLiteral("parameter"), QString(QLatin1Char(result.parameter)));
    return error;
}

} // namespace

Output::Output(bool json, const Interruption& interruption)
    : m_json(json), m_showsProgress(::isatty(STDERR_FILENO) == 1), m_interruption(interruption),
      m_results(STDOUT_FILENO), m_words(STDERR_FILENO)
{
}

void Output::print(const QString& line)
{
    if (m_json)
        return;
    clearProgress();
    m_results.write(line.toUtf8() + '\n');
}

void Output::printObject(const QJsonObject& object)
{
    m_results.write(lineOf(object));
}

void Output::tell(const QString& text)
{
    clearProgress();
    m_words.write(text.toUtf8() + '\n');
}

void Output::showProgress(const QString& text, int done, int of)
{
    if (!m_showsProgress || !m_words.isWritten())
        return;
    const QString line = of > 1 ? QStringLiteral("%1 %2/%3").arg(text).arg(done).arg(of) : text;
    m_words.write("\r" + line.toUtf8() + "\x1b[K");
    m_progressShown = true;
}

void Output::clearProgress()
{
    if (std::exchange(m_progressShown, false))
        m_words.write("\r\x1b[K");
}

Result Output::finish(const QString& command, const Result& result)
{
    clearProgress();
    if (m_json) {
        m_object.insert(QStringLiteral("schema"), kSchema);
        if (!command.isEmpty())
            m_object.insert(QStringLiteral("command"), command);
        m_object.insert(QStringLiteral("exit"), static_cast<int>(result.exit));
        if (result.code)
            m_object.insert(QStringLiteral("error"), errorOf(result));
        m_results.write(lineOf(m_object));
    }
    if (!result.text.isEmpty())
        tell(result.text);
    deliver();
    if (!hasFailed() || isClosed())
        return result;
    Result failed{
        .exit = ExitCode::FileUnfit,
        .code = "output",
        .text = languageString(strings::kOutputFailed).arg(qt_error_string(m_results.error()))};
    tell(failed.text);
    deliver();
    return result.isDone() ? failed : result;
}

bool Output::isClosed() const
{
    pollfd standardOutput{.fd = STDOUT_FILENO, .events = 0, .revents = 0};
    return m_results.error() == EPIPE ||
           (::poll(&standardOutput, 1, 0) == 1 && (standardOutput.revents & POLLERR) != 0);
}

void Output::deliver()
{
    bool isOver = false;
    QTimer limit;
    limit.setSingleShot(true);
    limit.setInterval(kLastWait);
    QObject::connect(&limit, &QTimer::timeout, &limit, [&isOver] { isOver = true; });
    QObject::connect(&m_interruption, &Interruption::came, &limit, qOverload<>(&QTimer::start));
    if (m_interruption.hasCome())
        limit.start();
    runUntil([&] { return isOver || (m_results.isWritten() && m_words.isWritten()); });
    m_results.giveUp();
    m_words.giveUp();
}

} // namespace pelorin::cli
