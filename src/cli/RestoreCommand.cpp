#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/Restoration.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/BackupFaults.h"
#include "sensor/SensorTypes.h"

namespace pelorin::cli {

Result runRestore(Invocation& invocation)
{
    const auto scope = Restoration::scopeOf(invocation.parser());
    if (!scope)
        return usage(languageString(strings::kAllOrOutput));
    Restoration restoration{.scope = *scope};
    const QString path = invocation.arguments().front();
    if (Result read = readBackup(path, restoration.values); !read.isDone())
        return read;
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    const auto faults =
        BackupFaults::of(restoration.values, sensorType(session.link().ssiType()).backup);
    if (const QString problem = textOf(faults); !problem.isEmpty())
        return {.exit = ExitCode::FileUnfit, .code = "backup-unfit", .text = problem};
    return restore(invocation, restoration).result;
}

} // namespace pelorin::cli
