#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/SensorTypes.h"

namespace pelorin::cli {

namespace {

void printSensor(Output& output, const SensorLink& link)
{
    const QString version = QString::fromLatin1(link.versionText());
    if (!link.isIdentified()) {
        output.print(languageString(strings::kSensorNotIdentified).arg(version));
        return;
    }
    output.print(
        languageString(link.isTypeByHand() ? strings::kSensorByHand : strings::kSensorOfType)
            .arg(QString::number(link.ssiType()), version));
}

} // namespace

/// A sensor that is not identified may lack any parameter: what it answers is shown.
Result runInfo(Invocation& invocation)
{
    Session& session = invocation.session();
    Result connected = session.connectSensor();
    if (!connected.isDone() && connected.exit != ExitCode::NotIdentified)
        return connected;
    const std::string_view ids = sensorType(session.link().ssiType()).information;
    SensorValues values;
    Result read = session.read(connected.isDone() ? readPlan(ids) : tolerantReadPlan(ids), values);
    printSensor(invocation.output(), session.link());
    for (const QString& line : valuesInWords(values))
        invocation.output().print(line);
    invocation.output().set(QStringLiteral("values"), namedValues(values));
    const bool tolerable = read.isDone() || read.parameter != 0; // else lost, or interrupted
    return connected.isDone() || !tolerable ? read : connected;
}

} // namespace pelorin::cli
