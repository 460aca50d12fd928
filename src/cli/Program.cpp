#include "cli/Program.h"

#include "cli/Command.h"
#include "cli/Interruption.h"
#include "cli/Invocation.h"
#include "cli/Options.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/core/LanguageManager.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Profile.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/ProgramVersion.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"

#include <QCommandLineParser>

#include <cstdio>

namespace pelorin::cli {

namespace {

/// The options of a command besides those of all, each described in the current language.
void addOptions(QCommandLineParser& parser, const Command* command)
{
    parser.addOptions(Options::all());
    if (command && command->options)
        parser.addOptions(command->options());
}

bool isSet(const QCommandLineParser& parser, const char* name)
{
    return parser.isSet(QString::fromLatin1(name));
}

/// A settings file that was asked for has to be used.
Result checkSettings(const QString& path)
{
    const QString fault = path.isEmpty() ? QString() : namedSettingsFault(path);
    if (fault.isNull())
        return {};
    return {.exit = ExitCode::Usage, .code = "settings", .text = fault};
}

/// Loads the language of the command line, else that of the profile. One that the profile names
/// and that cannot be loaded is replaced by English.
bool loadLanguage(LanguageManager& languages, std::optional<int> chosen)
{
    const QString path = installPath();
    languages.init(path.isEmpty() ? programFolder() : path, productName());
    const int code = chosen.value_or(Profile().readInt(languageEntry(), kDefaultLanguage));
    if (languages.loadLanguage(code) == 1)
        return true;
    return languages.loadLanguage(kDefaultLanguage) == 1 && !chosen;
}

void printHelp(Output& output, const QCommandLineParser& parser, const Command* command)
{
    for (const Command& each : commands()) {
        if (command && command != &each)
            continue;
        output.print(commandLineOf(each));
        output.print(QStringLiteral("      ") + languageString(each.description));
    }
    // The toolkit's text begins with a line of usage, which is ours.
    const QString options = parser.helpText();
    output.print(options.mid(options.indexOf(QLatin1Char('\n'))));
}

/// What keeps a command from being run; done if nothing does.
Result checkUse(const Command& command, const Options& options, int arguments,
                const Terminal& terminal)
{
    const bool withPort = !options.port.isEmpty();
    const bool twoFiles = command.port == Command::Port::Optional && !withPort;
    const int fewest = twoFiles ? command.most : command.fewest;
    const int most =
        command.port == Command::Port::Optional && withPort ? command.fewest : command.most;
    if (command.port == Command::Port::Needed && !withPort)
        return usage(languageString(strings::kPortNeeded));
    if (arguments < fewest || arguments > most)
        return usage(languageString(strings::kWrongArguments).arg(commandLineOf(command)));
    const bool usesPort = withPort && command.port != Command::Port::None;
    if (usesPort && (options.manualPower || isPowerManual()) && !terminal.isThere())
        return usage(languageString(strings::kNobodyAtSupply));
    return {};
}

Result runCommand(const Command& command, const Session::Shared& shared,
                  const QCommandLineParser& parser)
{
    const auto count = static_cast<int>(parser.positionalArguments().size() - 1);
    if (Result use = checkUse(command, shared.options, count, shared.terminal); !use.isDone())
        return use;
    if (const QString unused = settingsFault(); !unused.isNull())
        shared.output.tell(unused);
    Invocation invocation(shared, parser);
    if (Result begun = invocation.begin(); !begun.isDone())
        return begun;
    return invocation.end(command.run(invocation));
}

} // namespace

ExitCode run(const ComPortFactory& factory, const QStringList& arguments)
{
    // The command is the first argument: its options are known only then, and what is said about
    // all of them only in the user's language.
    QCommandLineParser first;
    addOptions(first, nullptr);
    (void)first.parse(arguments);
    QString fault;
    Options options = Options::of(first, fault);
    const Interruption interruption;
    Output output(arguments.contains(QStringLiteral("--json")), interruption);
    const QString name = first.positionalArguments().value(0);
    const Command* const command = findCommand(name);
    const auto finish = [&](const Result& result) {
        return output.finish(command ? name : QString(), result).exit;
    };

    if (!options.settingsFile.isEmpty())
        nameRegistryFile(options.settingsFile);
    LanguageManager languages;
    const bool loaded = loadLanguage(languages, options.language);
    if (const Result settings = checkSettings(options.settingsFile); !settings.isDone())
        return finish(settings);
    if (!loaded)
        return finish(usage(textOr(strings::kNoLanguage, QStringLiteral("No language"))));

    QCommandLineParser parser;
    addOptions(parser, command);
    const bool parsed = parser.parse(arguments);
    options = Options::of(parser, fault);
    if (isSet(parser, "help")) {
        printHelp(output, parser, command);
        return finish({});
    }
    if (isSet(parser, "version")) {
        output.print(QStringLiteral("pelorin-cli ") + programRelease());
        return finish({});
    }
    if (!parsed)
        return finish(usage(parser.errorText()));
    if (!command)
        return finish(usage(languageString(strings::kNoSuchCommand).arg(name)));
    if (!fault.isNull())
        return finish(usage(fault));

    Terminal terminal(output, interruption);
    return finish(runCommand(*command, {factory, options, output, terminal, interruption}, parser));
}

} // namespace pelorin::cli
