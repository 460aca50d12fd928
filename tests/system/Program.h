#pragma once

#include "support/FileContent.h"

#include <QByteArray>
#include <QProcess>

#include <csignal>

namespace pelorin {

using test::contentOf;

constexpr int kTimeLimit = 20'000; ///< ms; far beyond a start or an end

/// A program that runs beside the test; it goes with this object.
class Program
{
public:
    Program(const QString& path, const QStringList& arguments,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(path, arguments);
        if (!m_process.waitForStarted())
            qWarning("%s does not start", qUtf8Printable(path));
    }
    ~Program()
    {
        m_process.kill();
        (void)m_process.waitForFinished(); // it is killed
    }

    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }

    /// Whether it has prepared to be ended by a signal, as the system tells.
    [[nodiscard]] bool catches(int signal) const
    {
        const QList<QByteArray> lines = status().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("SigCgt:"))
                return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
        }
        return false;
    }

    /// Sends a signal. @return its exit status; -1 if it does not end, or not by itself
    [[nodiscard]] int endBy(int signal)
    {
        if (::kill(static_cast<pid_t>(m_process.processId()), signal) != 0 ||
            !m_process.waitForFinished(kTimeLimit) ||
            m_process.exitStatus() != QProcess::NormalExit)
            return -1;
        return m_process.exitCode();
    }

private:
    [[nodiscard]] QByteArray status() const
    {
        return contentOf(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
    }

    QProcess m_process;
};

} // namespace pelorin
