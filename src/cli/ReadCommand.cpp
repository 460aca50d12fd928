#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/SensorTypes.h"

namespace pelorin::cli {

namespace {

/// The identifiers that were asked for.
/// @param fault gets the first that is none; null if all are
QByteArray identifiers(const QStringList& arguments, QString& fault)
{
    QByteArray ids;
    for (const QString& argument : arguments) {
        const char id = argument.size() == 1 ? argument.front().toUpper().toLatin1() : '\0';
        if (id == '\0' || allParameters().find(id) == std::string_view::npos) {
            fault = argument;
            break;
        }
        ids.append(id);
    }
    return ids;
}

} // namespace

Result runRead(Invocation& invocation)
{
    QString fault;
    QByteArray ids = identifiers(invocation.arguments(), fault);
    if (!fault.isNull())
        return usage(languageString(strings::kNoParameter).arg(fault));
    Session& session = invocation.session();
    Result connected = session.connectSensor();
    if (!connected.isDone() && connected.exit != ExitCode::NotIdentified)
        return connected;
    if (ids.isEmpty())
        ids = QByteArrayView(sensorType(session.link().ssiType()).information).toByteArray();
    QJsonArray array;
    const Outcome outcome =
        session.run(readPlan(ids), languageString(strings::kReading), [&](const Reply& reply) {
            const QString id(QLatin1Char(reply.id));
            const QString text = QString::fromLatin1(reply.text);
            invocation.output().print(id + QLatin1Char(' ') + text);
            array.append(QJsonObject{{QStringLiteral("id"), id}, {QStringLiteral("raw"), text}});
        });
    invocation.output().set(QStringLiteral("values"), array);
    return resultOf(outcome);
}

} // namespace pelorin::cli
