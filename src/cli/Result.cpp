#include "cli/Result.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/FailureText.h"
#include "sensor/Outcome.h"

namespace pelorin::cli {

Result resultOf(const Outcome& outcome)
{
    switch (outcome.kind) {
    case Outcome::Kind::Done:
        return {};
    case Outcome::Kind::Abandoned:
        return interrupted();
    case Outcome::Kind::Lost:
        return {.exit = ExitCode::Failed, .code = "lost", .text = readingFailure(outcome)};
    case Outcome::Kind::Failed:
    case Outcome::Kind::StreamNotEnded:
        break;
    }
    return {.exit = ExitCode::Failed,
            .code = "failed",
            .text = readingFailure(outcome),
            .parameter = outcome.parameter};
}

Result resultOf(const WholeFile::Outcome& outcome)
{
    if (outcome.isDone())
        return {};
    return {.exit = ExitCode::FileUnfit, .code = "file", .text = outcome.message()};
}

Result usage(const QString& text)
{
    return {.exit = ExitCode::Usage, .code = "usage", .text = text};
}

Result refused(const QString& text, char parameter)
{
    return {.exit = ExitCode::Refused, .code = "refused", .text = text, .parameter = parameter};
}

Result interrupted()
{
    return {.exit = ExitCode::Interrupted,
            .code = "interrupted",
            .text = languageString(strings::kInterrupted)};
}

} // namespace pelorin::cli
