#pragma once

#include "support/FileContent.h"
#include "support/WaitFor.h"

#include <QProcess>

#include <csignal>

namespace pelorin::test {

/// A program that runs beside the test; it goes with this object.
struct Program : QProcess
{
    Program(const QString& path, const QStringList& arguments)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        start(path, arguments);
    }

    /// Ends it by a signal, when it has prepared for that as the system tells.
    /// @return its exit status; -1 if it does not end, or not by itself
    [[nodiscard]] int endBy(int signal)
    {
        const bool ready =
            waitForStarted() && waitFor([&] {
                const auto status = contentOf(QStringLiteral("/proc/%1/status").arg(processId()));
                const auto caught = status.mid(status.indexOf("\nSigCgt:\t") + 9, 16);
                return (caught.toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
            });
        const bool ended = ready && ::kill(static_cast<pid_t>(processId()), signal) == 0 &&
                           waitForFinished() && exitStatus() == NormalExit;
        return ended ? exitCode() : -1;
    }
};

} // namespace pelorin::test
