#include "cli/Invocation.h"

#include "cli/Terminal.h"
#include "link/CommLogFile.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFile.h"

#include <QFileInfo>

namespace pelorin::cli {

Invocation::Invocation(const Session::Shared& shared, const QCommandLineParser& parser)
    : m_shared(shared), m_parser(parser), m_log(shared.options.logFile)
{
}

Session& Invocation::session()
{
    if (!m_session)
        m_session.emplace(m_shared);
    return *m_session;
}

std::optional<bool> Invocation::confirm(const QString& question)
{
    if (options().yes)
        return true;
    if (!terminal().isThere())
        return std::nullopt;
    return terminal().askYesNo(question);
}

/// What is found out afterwards counts only if all was well; else it is told beside.
Result Invocation::worseOf(const Result& result, const Result& afterwards)
{
    if (afterwards.isDone())
        return result;
    if (result.isDone() || result.exit == ExitCode::Differs)
        return afterwards;
    output().tell(afterwards.text);
    return result;
}

Result Invocation::begin()
{
    return m_log.path().isEmpty() ? Result() : resultOf(m_log.prepareSaving());
}

Result Invocation::end(const Result& result)
{
    if (!m_session) {
        m_log.giveUpSaving();
        return result;
    }
    m_session->close();
    const auto log = m_session->link().commLog().snapshot();
    Result worst = worseOf(result, m_session->formatFault());
    if (!m_log.path().isEmpty())
        worst = worseOf(worst, resultOf(saveCommLog(m_log.path(), log)));
    return worst;
}

Result confirmOverwriting(Invocation& invocation, const QString& path)
{
    if (!QFileInfo::exists(path) || invocation.options().dryRun)
        return {};
    const auto answer = invocation.confirm(languageString(strings::kFileExists).arg(path));
    if (answer == true)
        return {};
    if (invocation.isInterrupted())
        return interrupted();
    return {.exit = ExitCode::Refused,
            .code = "file-exists",
            .text = languageString(strings::kFileNotOverwritten).arg(path)};
}

Result readBackup(const QString& path, SensorValues& values)
{
    BackupFile file(path);
    if (Result read = resultOf(file.read()); !read.isDone())
        return read;
    if (const auto saved = file.values()) {
        values = *saved;
        return {};
    }
    return {.exit = ExitCode::FileUnfit, .code = "no-backup", .text = file.refusal()};
}

} // namespace pelorin::cli
