#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "cli/Restoration.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/Journal.h"
#include "sensor/JournalWords.h"
#include "sensor/ParameterWords.h"

namespace pelorin::cli {

namespace {

QJsonObject objectOf(const JournalEntry& entry)
{
    QJsonObject object{{QStringLiteral("entry"), entry.id},
                       {QStringLiteral("time"), entry.time.toString(Qt::ISODateWithMs)},
                       {QStringLiteral("device"), entry.device},
                       {QStringLiteral("version"), QString::fromLatin1(entry.version)},
                       {QStringLiteral("type"), entry.ssiType},
                       {QStringLiteral("by"), pelorin::nameOf(entry.by)}};
    if (entry.end) {
        object.insert(QStringLiteral("outcome"), pelorin::nameOf(entry.end->kind));
        if (entry.end->reason != WriteResult::Reason::None)
            object.insert(QStringLiteral("reason"), pelorin::nameOf(entry.end->reason));
    }
    return object;
}

QStringList circumstancesOf(const JournalEntry& entry)
{
    return {entry.id,
            timeInWords(entry),
            deviceInWords(entry),
            QString::fromLatin1(entry.version),
            writerInWords(entry.by),
            outcomeInWords(entry).section(QLatin1Char('\n'), 0, 0)};
}

Result list(Invocation& invocation)
{
    const Journal journal;
    const Journal::Contents contents = journal.contents();
    QJsonArray entries;
    for (const JournalEntry& entry : contents.entries) {
        invocation.output().print(circumstancesOf(entry).join(QLatin1Char('\t')));
        entries.append(objectOf(entry));
    }
    invocation.output().set(QStringLiteral("entries"), entries);
    if (contents.unreadable > 0) {
        invocation.output().tell(languageString(strings::kEntriesNotRead)
                                     .arg(journal.folder())
                                     .arg(contents.unreadable));
    }
    return {};
}

Result show(Invocation& invocation, const JournalEntry& entry)
{
    Output& output = invocation.output();
    for (const QString& line : circumstancesOf(entry))
        output.print(line);
    for (const QString& line : valuesInWords(entry.values))
        output.print(line);
    output.print(languageString(strings::kToBeWritten) + QLatin1Char(':'));
    const SensorValues all = overlaid(entry.values, entry.written);
    for (const auto& [id, text] : entry.written) {
        output.print(QStringLiteral("  ") + parameterInWords(id) + QStringLiteral(": ") +
                     valueInWords(id, text, all));
    }
    output.set(QStringLiteral("entries"), QJsonArray{objectOf(entry)});
    output.set(QStringLiteral("values"), namedValues(entry.values));
    output.set(QStringLiteral("written"), namedValues(entry.written));
    return {};
}

/// What was left unfinished has been replaced then: nobody has to be told of it any more.
Result putBack(Invocation& invocation, const JournalEntry& entry)
{
    const auto scope = Restoration::scopeOf(invocation.parser());
    if (!scope)
        return usage(languageString(strings::kAllOrOutput));
    if (invocation.options().port.isEmpty())
        return usage(languageString(strings::kPortNeeded));
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    const PutBackRefusal refusal = putBackRefusal(entry, session.link().ssiType());
    if (!refusal.text.isEmpty())
        return refused(refusal.text, refusal.parameter);
    Restoration restoration{.scope = *scope, .values = entry.values, .isEarlierState = true};
    restoration.values.emplace('V', entry.version);
    bool replaces = !entry.end && !invocation.options().dryRun;
    if (replaces) { // the factory text tells, as long as it is not put back, too
        SensorValues text;
        if (Result read = session.read(readPlan("F"), text); !read.isDone())
            return read;
        replaces = session.isSensorOf(entry);
    }
    const Written written = restore(invocation, restoration);
    if (!replaces || !written.replaced)
        return written.result;
    const Result noted = resultOf(session.journal().giveUp(entry));
    return written.result.isDone() ? noted : written.result;
}

} // namespace

Result runJournal(Invocation& invocation)
{
    const QStringList arguments = invocation.arguments();
    const QString& what = arguments.front();
    const bool lists = what == QLatin1String("list");
    const bool shows = what == QLatin1String("show");
    const bool putsBack = what == QLatin1String("put-back");
    if (!(lists || shows || putsBack) || arguments.size() != (lists ? 1 : 2)) {
        return usage(languageString(strings::kWrongArguments)
                         .arg(commandLineOf(*findCommand(QStringLiteral("journal")))));
    }
    if (lists)
        return list(invocation);
    const auto entry = Journal().find(arguments.back());
    if (!entry) {
        return {.exit = ExitCode::FileUnfit,
                .code = "no-entry",
                .text = languageString(strings::kNoEntry).arg(arguments.back())};
    }
    return shows ? show(invocation, *entry) : putBack(invocation, *entry);
}

} // namespace pelorin::cli
