#include "cli/Output.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace pelorin::cli {

namespace {

constexpr int kSchema = 1;

QByteArray lineOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

void writeError(const QByteArray& text)
{
    (void)std::fwrite(text.constData(), 1, std::size_t(text.size()), stderr); // nobody is left
    (void)std::fflush(stderr);
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

Output::Output(bool json) : m_json(json), m_showsProgress(::isatty(STDERR_FILENO) == 1) {}

void Output::print(const QString& line)
{
    if (m_json)
        return;
    clearProgress();
    write(line.toUtf8() + '\n');
}

void Output::printObject(const QJsonObject& object)
{
    write(lineOf(object));
}

void Output::tell(const QString& text)
{
    clearProgress();
    writeError(text.toUtf8() + '\n');
}

void Output::showProgress(const QString& text, int done, int of)
{
    if (!m_showsProgress)
        return;
    const QString line = of > 1 ? QStringLiteral("%1 %2/%3").arg(text).arg(done).arg(of) : text;
    writeError("\r" + line.toUtf8() + "\x1b[K");
    m_progressShown = true;
}

void Output::clearProgress()
{
    if (std::exchange(m_progressShown, false))
        writeError("\r\x1b[K");
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
        write(lineOf(m_object));
    }
    if (!result.text.isEmpty())
        tell(result.text);
    if (m_error == 0 || isClosed())
        return result;
    Result failed{.exit = ExitCode::FileUnfit,
                  .code = "output",
                  .text = languageString(strings::kOutputFailed)
                              .arg(QString::fromLocal8Bit(std::strerror(m_error)))};
    tell(failed.text);
    return result.isDone() ? failed : result;
}

bool Output::isClosed() const
{
    pollfd standardOutput{.fd = STDOUT_FILENO, .events = 0, .revents = 0};
    return m_error == EPIPE ||
           (::poll(&standardOutput, 1, 0) == 1 && (standardOutput.revents & POLLERR) != 0);
}

void Output::write(const QByteArray& bytes)
{
    errno = 0;
    const bool written = std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout) ==
                             std::size_t(bytes.size()) &&
                         std::fflush(stdout) == 0;
    if (!written && m_error == 0)
        m_error = errno;
}

} // namespace pelorin::cli
