#pragma once

#include "cli/Interruption.h"
#include "cli/Options.h"
#include "cli/Output.h"
#include "cli/Result.h"
#include "cli/Session.h"
#include "platform/core/WholeFile.h"

#include <QCommandLineParser>
#include <QStringList>

#include <optional>

namespace pelorin::cli {

/// One call of a command: what it was asked for, and what it works with.
class Invocation
{
public:
    /// @param shared outlives this
    Invocation(const Session::Shared& shared, const QCommandLineParser& parser);

    [[nodiscard]] const Options& options() const { return m_shared.options; }
    /// The options of the command itself.
    [[nodiscard]] const QCommandLineParser& parser() const { return m_parser; }
    /// What follows the command's name.
    [[nodiscard]] QStringList arguments() const { return m_parser.positionalArguments().mid(1); }

    [[nodiscard]] Output& output() { return m_shared.output; }
    [[nodiscard]] Terminal& terminal() { return m_shared.terminal; }
    [[nodiscard]] bool isInterrupted() const { return m_shared.interruption.hasCome(); }
    /// Made when it is first asked for.
    [[nodiscard]] Session& session();

    /// Answers a question: yes where everything was answered so, else as the terminal does.
    /// @return nothing if nobody can be asked
    [[nodiscard]] std::optional<bool> confirm(const QString& question);

    /// Finds out whether the communications log can be stored in the end.
    [[nodiscard]] Result begin();
    /// Closes the port and stores the communications log.
    /// @param result of the command
    /// @return the same, or what else went wrong
    [[nodiscard]] Result end(const Result& result);

private:
    [[nodiscard]] Result worseOf(const Result& result, const Result& afterwards);

    const Session::Shared& m_shared;
    const QCommandLineParser& m_parser;
    std::optional<Session> m_session;
    WholeFile m_log;
};

/// Asks before a file that exists is overwritten, unless nothing is to be written.
[[nodiscard]] Result confirmOverwriting(Invocation& invocation, const QString& path);
/// Reads a backup file, whatever it holds.
[[nodiscard]] Result readBackup(const QString& path, SensorValues& values);

} // namespace pelorin::cli
