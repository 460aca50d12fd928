#include "sensor/FailureText.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterWords.h"

#include <QStringList>

namespace pelorin {

namespace {

QStringList reasons(const Outcome& outcome, int failedText)
{
    QStringList lines;
    if (outcome.parameter != 0)
        lines << languageString(failedText).arg(parameterArgument(outcome.parameter));
    if (outcome.kind == Outcome::Kind::Lost)
        lines << languageString(strings::kLinkLost);
    return lines;
}

} // namespace

QString parameterArgument(char id)
{
    return QString::number(static_cast<unsigned char>(id));
}

QString writingFailure(const Outcome& outcome)
{
    if (outcome.kind == Outcome::Kind::StreamNotEnded)
        return languageString(strings::kStreamNotEnded);
    QStringList lines = reasons(outcome, strings::kWriteFailed);
    lines
        << QString()
        << (outcome.written.isEmpty()
                ? languageString(strings::kNothingWrittenBefore)
                : languageString(strings::kWrittenBefore).arg(parametersInWords(outcome.written)));
    return lines.join(QLatin1Char('\n'));
}

QString readingFailure(const Outcome& outcome)
{
    if (outcome.kind == Outcome::Kind::StreamNotEnded)
        return languageString(strings::kStreamNotEnded);
    return reasons(outcome, strings::kReadFailed).join(QLatin1Char('\n'));
}

} // namespace pelorin
