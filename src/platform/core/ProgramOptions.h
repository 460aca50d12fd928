#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

namespace pelorin {

/// The command line of a program: long options, --help and --version among them, and the texts
/// beside them. One that cannot be understood is refused as a whole.
class ProgramOptions
{
public:
    /// What a command line that is refused ends a program with.
    static constexpr int kRefused = 2;

    /// @param options besides --help and --version
    ProgramOptions(const QString& description, const QList<QCommandLineOption>& options);

    /// Describes a text beside the options.
    void addText(const QString& name, const QString& description);

    /// @param arguments the program's name first. Needs no application object.
    void parse(const QStringList& arguments);

    /// Whether --help or --version ask for an answer instead of a run.
    [[nodiscard]] bool wantAnswer() const;
    /// Prints that answer. Needs an application object, which has the program's name.
    void answer() const;

    /// What is wrong with the command line; null if nothing is.
    [[nodiscard]] QString fault() const;
    /// Prints the fault and how the program is called to the standard error.
    /// @return the exit code
    [[nodiscard]] int refuse(const QString& fault) const;

    [[nodiscard]] const QCommandLineParser& values() const { return m_parser; }

private:
    QCommandLineParser m_parser;
    bool m_understood = true;
};

} // namespace pelorin
