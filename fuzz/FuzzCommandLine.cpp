#include "Fuzz.h"

#include "cli/Command.h"
#include "cli/Options.h"

#include <QCommandLineParser>
#include <QStringList>

using namespace pelorin;

/// The arguments, one a line.
void take(const QByteArray& bytes)
{
    const QStringList arguments = QString::fromUtf8("pelorin-cli\n" + bytes).split(u'\n');
    QCommandLineParser parser;
    parser.addOptions(cli::Options::all());
    const cli::Command* command = cli::findCommand(arguments.value(1));
    if (command && command->options)
        parser.addOptions(command->options());
    (void)parser.parse(arguments);
    QString fault;
    const auto options = cli::Options::of(parser, fault);
    fuzz::require(options.wait.count() >= 0 && options.type.value_or(0) < 3);
}
