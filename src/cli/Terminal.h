#pragma once

#include <QString>

#include <optional>

namespace pelorin::cli {

class Interruption;
class Output;

/// Whoever sits at the terminal: is asked on standard error and answers on standard input.
class Terminal
{
public:
    /// Both outlive this.
    Terminal(Output& output, const Interruption& interruption);

    /// Whether there is somebody to be asked.
    [[nodiscard]] bool isThere() const { return m_isThere; }

    /// Waits for a line. @return nothing if the program is to end, or the input has ended
    [[nodiscard]] std::optional<QString> ask(const QString& question);

    /// Asks a question that only a typed yes answers with yes.
    [[nodiscard]] bool askYesNo(const QString& question);

private:
    Output& m_output;
    const Interruption& m_interruption;
    const bool m_isThere;
};

} // namespace pelorin::cli
