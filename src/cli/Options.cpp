#include "cli/Options.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/Strings.h"

#include <QCommandLineParser>

namespace pelorin::cli {

namespace {

constexpr int kLongestWait = 86'400; ///< seconds: a day
constexpr int kHighestType = 2;
constexpr int kHighestLanguage = 16;

/// A whole number within bounds.
/// @param fault gets that it is none
std::optional<int> numberOf(const QCommandLineParser& parser, const QString& name, int highest,
                            QString& fault)
{
    if (!parser.isSet(name))
        return std::nullopt;
    bool isNumber = false;
    const int number = parser.value(name).toInt(&isNumber);
    if (isNumber && number >= 0 && number <= highest)
        return number;
    fault = textOr(strings::kBadOption, QStringLiteral("%2: %1")) // no language is loaded at first
                .arg(QStringLiteral("--") + name, parser.value(name));
    return std::nullopt;
}

} // namespace

QList<QCommandLineOption> Options::all()
{
    const auto option = [](const char* name, int text, const char* value = "") {
        return QCommandLineOption(QString::fromLatin1(name), languageString(text),
                                  QString::fromLatin1(value));
    };
    return {option("port", strings::kPortOption, "PORT"),
            option("json", strings::kJsonOption),
            option("type", strings::kTypeOption, "0|1|2"),
            option("manual-power", strings::kManualPowerOption),
            option("wait", strings::kWaitOption, "SECONDS"),
            option("log", strings::kLogOption, "FILE"),
            option("settings", strings::kSettingsOption, "FILE"),
            option("language", strings::kLanguageOption, "1|2|4|8|16"),
            option("yes", strings::kYesOption),
            option("dry-run", strings::kDryRunOption),
            option("help", strings::kHelpOption),
            option("version", strings::kVersionOption)};
}

Options Options::of(const QCommandLineParser& parser, QString& fault)
{
    const auto isSet = [&parser](const char* name) {
        return parser.isSet(QString::fromLatin1(name));
    };
    const auto value = [&parser](const char* name) {
        return parser.value(QString::fromLatin1(name));
    };
    const auto number = [&](const char* name, int highest) {
        return numberOf(parser, QString::fromLatin1(name), highest, fault);
    };
    return {.port = value("port"),
            .json = isSet("json"),
            .type = number("type", kHighestType),
            .manualPower = isSet("manual-power"),
            .wait = std::chrono::seconds(number("wait", kLongestWait).value_or(0)),
            .logFile = value("log"),
            .settingsFile = value("settings"),
            .language = number("language", kHighestLanguage),
            .yes = isSet("yes"),
            .dryRun = isSet("dry-run")};
}

} // namespace pelorin::cli
