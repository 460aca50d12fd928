#pragma once

#include "cli/Result.h"
#include "sensor/Plan.h"
#include "sensor/WriteResult.h"

#include <QCommandLineOption>
#include <QStringList>

namespace pelorin::cli {

class Invocation;
class Output;

/// How a command that writes has ended.
struct Written
{
    Result result{};
    bool replaced = false; ///< whether anything has left, or all was there already; of a part of
                           ///< what was saved never
};

/// The options of every command that writes.
[[nodiscard]] QList<QCommandLineOption> writingOptions();

/// Writes to the sensor what the user agrees to, with all that belongs to it, and says what has
/// become of it. On a dry run only the plan is shown.
/// @param questions what has to be agreed to besides, each a text of its own
[[nodiscard]] Written write(Invocation& invocation, WriteRequest request,
                            const QStringList& questions = {});

/// Shows a plan, frame by frame.
void showPlan(Output& output, const Plan& plan);

} // namespace pelorin::cli
