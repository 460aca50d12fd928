#include "cli/Writing.h"

#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "link/SensorFrame.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterWords.h"

#include <utility>

namespace pelorin::cli {

namespace {

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;

QString noJournalName()
{
    return QStringLiteral("no-journal");
}

/// What a step sends; empty for one without a frame of its own.
QByteArray frameOf(const Step& step)
{
    if (step.reads())
        return readFrameOf(step.id);
    if (step.kind == Step::Kind::Write || step.kind == Step::Kind::Close)
        return writeFrameOf(step.id, step.value);
    return {};
}

/// What is to be written, beside what the sensor has as far as that is known.
QStringList reviewOf(const WriteRequest& request)
{
    QStringList lines;
    const SensorValues wanted = overlaid(request.base, request.values);
    for (const char id : request.order) {
        QString line = parameterInWords(id) + QStringLiteral(": ");
        if (const auto has = request.base.find(id); has != request.base.end())
            line += valueInWords(id, has->second, request.base) + QStringLiteral(" -> ");
        lines << line + valueInWords(id, request.values.at(id), wanted);
    }
    return lines;
}

Result ask(Invocation& invocation, const WriteRequest& request, QStringList questions)
{
    if (!invocation.options().yes && invocation.terminal().isThere())
        invocation.output().tell(reviewOf(request).join(QLatin1Char('\n')));
    questions << languageString(strings::kAskToWrite);
    for (const QString& question : std::as_const(questions)) {
        const auto answer = invocation.confirm(question);
        if (invocation.isInterrupted())
            return interrupted();
        if (!answer) {
            return {.exit = ExitCode::Refused,
                    .code = "not-confirmed",
                    .text = question + QLatin1Char('\n') + languageString(strings::kNotConfirmed)};
        }
        if (!*answer)
            return refused(languageString(strings::kNothingWritten));
    }
    return {};
}

/// What was lost is compared by nobody: this program connects once.
QString wordsOf(WriteResult written)
{
    if (written.reason == Reason::LinkLost) {
        written.reason = Reason::None;
        if (written.outcome.isDone())
            written.problem = languageString(strings::kLinkLost);
    }
    return textOf(written);
}

Result failed(const WriteResult& written)
{
    const bool lost = written.outcome.kind == Outcome::Kind::Lost;
    return {.exit = ExitCode::Failed,
            .code = lost ? "lost" : "failed",
            .text = wordsOf(written),
            .parameter = written.outcome.parameter};
}

Result resultOfNothing(const WriteResult& written)
{
    const auto kind = written.outcome.kind;
    const bool hasFailed = kind == Outcome::Kind::Lost || kind == Outcome::Kind::Failed;
    return hasFailed ? failed(written) : refused(wordsOf(written));
}

/// What was written only in part has failed, unless the sensor tells what it has.
Result resultOfUnchecked(const WriteResult& written)
{
    if (!written.outcome.isDone())
        return failed(written);
    return {.exit = ExitCode::NotChecked, .code = "not-checked", .text = wordsOf(written)};
}

Result resultOf(const WriteResult& written, bool isInterrupted)
{
    if (isInterrupted && (written.kind == Kind::NotWritten || written.reason == Reason::Closed)) {
        Result result = interrupted();
        result.text += QLatin1Char('\n') + wordsOf(written);
        return result;
    }
    switch (written.kind) {
    case Kind::Verified:
        return {};
    case Kind::Differs:
        return {.exit = ExitCode::Differs};
    case Kind::NotChecked:
        return resultOfUnchecked(written);
    case Kind::NotWritten:
        break;
    }
    return resultOfNothing(written);
}

void show(Output& output, const WriteResult& written)
{
    if (!written.entry.isEmpty())
        output.set(QStringLiteral("entry"), written.entry);
    if (!written.has.empty())
        output.set(QStringLiteral("values"), namedValues(overlaid(written.before, written.has)));
    if (written.kind != Kind::Verified && written.kind != Kind::Differs)
        return;
    output.print(wordsOf(written));
    QJsonArray differences;
    for (const Difference& difference : written.differences)
        differences.append(namedDifference(difference.id, difference.written, difference.has));
    output.set(QStringLiteral("differences"), differences);
}

} // namespace

QList<QCommandLineOption> writingOptions()
{
    return {{noJournalName(), languageString(strings::kNoJournalOption)}};
}

Written write(Invocation& invocation, WriteRequest request, const QStringList& questions)
{
    Session& session = invocation.session();
    if (invocation.options().dryRun) {
        showPlan(invocation.output(), session.planOf(request));
        return {};
    }
    const int changes = session.runner().changes();
    if (Result asked = ask(invocation, request, questions); !asked.isDone())
        return {asked};
    if (changes != session.runner().changes()) {
        return {
            {.exit = ExitCode::Failed, .code = "lost", .text = languageString(strings::kLinkLost)}};
    }

    QString reason;
    const bool withoutJournal = invocation.parser().isSet(noJournalName());
    const auto question = [&](const QString& why, const std::function<void(bool)>& answer) {
        reason = why;
        const bool canBeAsked = !invocation.options().yes && invocation.terminal().isThere();
        answer(withoutJournal || (canBeAsked && invocation.terminal().askYesNo(why)));
    };
    const WriteResult written = session.write(std::move(request), question);
    show(invocation.output(), written);
    Result result = resultOf(written, invocation.isInterrupted());
    if (written.kind == Kind::NotWritten && result.exit == ExitCode::Refused && !reason.isEmpty()) {
        result.code = "journal";
        result.text =
            QStringList{result.text, reason, languageString(strings::kNoJournalWrites)}.join(
                QLatin1Char('\n'));
    }
    return {result, written.kind != Kind::NotWritten};
}

void showPlan(Output& output, const Plan& plan)
{
    QJsonArray steps;
    for (const Step& step : plan) {
        QJsonObject object;
        const QByteArray frame = frameOf(step);
        QString line = frameText(frame);
        if (!frame.isEmpty()) {
            object.insert(QStringLiteral("id"), QString(QLatin1Char(step.id)));
            object.insert(QStringLiteral("frame"), QString::fromLatin1(frame.toHex()));
        }
        if (step.kind == Step::Kind::Write) {
            line += QStringLiteral("  ") + textInWords(step.id, step.value);
            object.insert(QStringLiteral("raw"), QString::fromLatin1(step.value));
        } else if (step.kind == Step::Kind::Connect) {
            line = languageString(strings::kRestarting);
            object.insert(QStringLiteral("restart"), true);
        }
        output.print(line);
        if (const auto pause = static_cast<int>(step.pauseAfter.count()); pause > 0) {
            output.print(QStringLiteral("  ") + languageString(strings::kThenPause).arg(pause));
            object.insert(QStringLiteral("pause"), pause);
        }
        steps.append(object);
    }
    output.set(QStringLiteral("plan"), steps);
}

} // namespace pelorin::cli
