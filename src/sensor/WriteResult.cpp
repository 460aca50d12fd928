#include "sensor/WriteResult.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/ParameterWords.h"

#include <QStringList>

namespace pelorin {

namespace {

using Kind = WriteResult::Kind;
using Reason = WriteResult::Reason;

int reasonOf(const WriteResult& result)
{
    switch (result.reason) {
    case Reason::NotRestarted:
        return strings::kNotRestarted;
    case Reason::NoAnswer:
        return strings::kNotReadBack;
    case Reason::AnotherSensor:
        return strings::kAnotherSensor;
    case Reason::AnotherPort:
        return strings::kAnotherPort;
    case Reason::Closed:
        return strings::kClosedBefore;
    case Reason::SwitchedOff:
        return strings::kSafeWritesOff;
    case Reason::LinkLost:
        return strings::kLostBeforeChecked;
    case Reason::Undivided:
        return strings::kUndivided;
    case Reason::None:
        break;
    }
    return 0;
}

QString differenceInWords(const Difference& difference, const WriteResult& result)
{
    return languageString(strings::kDifference)
        .arg(parameterInWords(difference.id),
             valueInWords(difference.id, difference.written,
                          overlaid(result.before, result.request.values)),
             valueInWords(difference.id, difference.has, overlaid(result.before, result.has)));
}

} // namespace

int headlineOf(const WriteResult& result)
{
    switch (result.kind) {
    case Kind::Verified:
        return strings::kVerified;
    case Kind::Differs:
        return strings::kDiffers;
    case Kind::NotChecked:
        return strings::kNotChecked;
    case Kind::NotWritten:
        break;
    }
    return strings::kNothingWritten;
}

QString textOf(const WriteResult& result)
{
    QStringList lines;
    if (result.kind == Kind::NotWritten) {
        lines << languageString(strings::kNothingWritten);
    } else if (result.nothingChanged) {
        lines << languageString(strings::kNothingChanged);
    } else {
        lines << languageString(headlineOf(result)) << languageString(reasonOf(result));
    }
    if (result.kind != Kind::NotWritten && result.reason != Reason::Closed &&
        !result.outcome.isDone())
        lines << writingFailure(result.outcome);
    if (!result.unanswered.isEmpty())
        lines << languageString(strings::kUnanswered).arg(parametersInWords(result.unanswered));
    for (const Difference& difference : result.differences)
        lines << differenceInWords(difference, result);
    lines << result.problem;
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

} // namespace pelorin
