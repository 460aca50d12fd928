#include "cli/Terminal.h"

#include "cli/EventLoop.h"
#include "cli/Interruption.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QSocketNotifier>

#include <array>

#include <termios.h>
#include <unistd.h>

namespace pelorin::cli {

Terminal::Terminal(Output& output, const Interruption& interruption)
    : m_output(output), m_interruption(interruption),
      m_isThere(::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1)
{
}

/// The terminal gives whole lines; nothing is read before there is one, so that a signal is heard.
std::optional<QString> Terminal::ask(const QString& question)
{
    (void)::tcflush(STDIN_FILENO, TCIFLUSH); // what was typed before is no answer
    m_output.tell(question);
    std::optional<QByteArray> line;
    QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [&] {
        std::array<char, 256> bytes{};
        const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        line = QByteArray(bytes.data(), count > 0 ? qsizetype(count) : 0);
        notifier.setEnabled(false);
    });
    runUntil([&] { return line || m_interruption.hasCome(); });
    if (!line || line->isEmpty())
        return std::nullopt;
    return QString::fromLocal8Bit(*line).trimmed();
}

bool Terminal::askYesNo(const QString& question)
{
    const QString yes = languageString(strings::kYesWord);
    const auto answer = ask(QStringLiteral("%1 [%2/N]").arg(question, yes.left(1)));
    return answer && (answer->compare(yes, Qt::CaseInsensitive) == 0 ||
                      answer->compare(yes.left(1), Qt::CaseInsensitive) == 0);
}

} // namespace pelorin::cli
