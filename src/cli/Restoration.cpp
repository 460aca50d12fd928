#include "cli/Restoration.h"

#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterWords.h"
#include "sensor/RestoreChoice.h"
#include "sensor/SensorTypes.h"

#include <utility>

namespace pelorin::cli {

namespace {

using Scope = Restoration::Scope;

QString allName()
{
    return QStringLiteral("all");
}

QString outputOnlyName()
{
    return QStringLiteral("output-only");
}

Written writeRestored(Invocation& invocation, WriteRequest request)
{
    request.by = WriteRequest::By::CommandLine;
    request.closing = kRestoreClosing;
    request.storePause = kRestorePause;
    QStringList questions;
    if (const QString doubts = doubtsInWords(request.order, request.values); !doubts.isEmpty())
        questions << languageString(strings::kWriteDoubtful) + QLatin1Char('\n') + doubts;
    return write(invocation, std::move(request), questions);
}

/// Without safe writes everything is written that was saved, unseen; only a format that the sensor
/// may still have for its position stream is looked for.
Written restoreUnseen(Invocation& invocation, const Restoration& restoration)
{
    Session& session = invocation.session();
    if (restoration.scope != Scope::All)
        return {refused(languageString(strings::kOnlyAllUnseen))};
    if (session.formats().isRestoreOpen()) {
        SensorValues values;
        if (Result read = session.read(readPlan("D", true), values); !read.isDone())
            return {read};
        if (Result format = session.checkFormat(values['D']); !format.isDone())
            return {format};
    }
    const std::string_view order = sensorType(session.link().ssiType()).backup;
    WriteRequest request;
    request.order = QByteArrayView(order).toByteArray();
    request.values = restoration.values;
    return writeRestored(invocation, std::move(request));
}

void tellNotes(Output& output, int ssiType, const SensorValues& sensor,
               const Restoration& restoration)
{
    const QByteArray unlike = unlikeSaved(ssiType, sensor, restoration.values);
    if (restoration.scope == Scope::All && !unlike.isEmpty()) {
        const int text =
            restoration.isEarlierState ? strings::kNotAsThen : strings::kPerhapsAnotherSensor;
        output.tell(languageString(text).arg(parametersInWords(unlike)));
    }
    if (asksForStream(restoration.values))
        output.tell(languageString(strings::kStreamNotWritten));
}

} // namespace

QList<QCommandLineOption> Restoration::options()
{
    return QList<QCommandLineOption>{
               {allName(), languageString(strings::kAllParameters)},
               {outputOnlyName(), languageString(strings::kOutputSettingsOnly)}} +
           writingOptions();
}

std::optional<Scope> Restoration::scopeOf(const QCommandLineParser& parser)
{
    const bool all = parser.isSet(allName());
    if (all == parser.isSet(outputOnlyName()))
        return std::nullopt;
    return all ? Scope::All : Scope::OutputOnly;
}

Written restore(Invocation& invocation, const Restoration& restoration)
{
    Session& session = invocation.session();
    if (!areWritesSafe() && !restoration.isEarlierState)
        return restoreUnseen(invocation, restoration);
    const int type = session.link().ssiType();
    WriteRequest request;
    SensorValues& sensor = request.base;
    if (Result read = session.read(readPlan(sensorType(type).information, true), sensor);
        !read.isDone())
        return {read};
    if (Result format = session.checkFormat(sensor['D']); !format.isDone())
        return {format};
    const RestoreChoice choice =
        restoration.scope == Scope::All
            ? chooseAll(type, sensor, restoration.values, restoration.isEarlierState)
            : chooseOutputSettings(type, sensor, restoration.values);
    if (const QString refusal = refusalText(choice); !refusal.isEmpty())
        return {refused(refusal, choice.refused.isEmpty() ? '\0' : choice.refused.front())};
    invocation.output().set(QStringLiteral("values"), namedValues(sensor));
    tellNotes(invocation.output(), type, sensor, restoration);
    if (choice.order.isEmpty()) {
        invocation.output().print(languageString(strings::kNothingDiffers));
        return {.replaced = restoration.scope == Scope::All};
    }
    request.order = choice.order;
    request.values = choice.values;
    Written written = writeRestored(invocation, std::move(request));
    written.replaced = written.replaced && restoration.scope == Scope::All;
    return written;
}

} // namespace pelorin::cli
