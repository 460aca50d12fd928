#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/NamedValues.h"
#include "cli/Output.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <algorithm>

namespace pelorin::cli {

namespace {

/// One side of a comparison.
struct Side
{
    QString name;
    SensorValues values{};

    [[nodiscard]] QByteArray text(char id) const { return textOf(values, id); }

    [[nodiscard]] QString inWords(char id) const
    {
        const QByteArray raw = text(id);
        return name + QStringLiteral(": ") +
               (raw.isEmpty() ? languageString(strings::kNotThere) : valueInWords(id, raw, values));
    }
};

/// @param ids what has to be equal
Result compareSides(Output& output, const QByteArray& ids, const Side& saved, const Side& found)
{
    QJsonArray differences;
    for (const char id : ids) {
        if (isSameValue(id, saved.text(id), found.text(id)))
            continue;
        differences.append(namedDifference(id, saved.text(id), found.text(id)));
        output.print(parameterInWords(id));
        output.print(QStringLiteral("  ") + saved.inWords(id));
        output.print(QStringLiteral("  ") + found.inWords(id));
    }
    output.set(QStringLiteral("differences"), differences);
    if (!differences.isEmpty())
        return {.exit = ExitCode::Differs};
    output.print(languageString(strings::kAllEqual));
    return {};
}

/// The parameters for which a condition holds.
template <class Condition>
QByteArray parameters(Condition condition)
{
    QByteArray ids;
    for (const char id : allParameters()) {
        if (condition(id))
            ids.append(id);
    }
    return ids;
}

/// A backup has to hold everything that is saved of the sensor's type; what else it holds counts.
Result compareSensor(Invocation& invocation, const Side& saved)
{
    Session& session = invocation.session();
    if (Result connected = session.connectSensor(); !connected.isDone())
        return connected;
    const SensorType& type = sensorType(session.link().ssiType());
    Side sensor{.name = languageString(strings::kSensor)};
    if (Result read = session.read(readPlan(type.information, true), sensor.values); !read.isDone())
        return read;
    invocation.output().set(QStringLiteral("values"), namedValues(sensor.values));
    const QByteArray ids = parameters([&](char id) {
        return !saved.text(id).isEmpty() || type.backup.find(id) != std::string_view::npos;
    });
    return compareSides(invocation.output(), ids, saved, sensor);
}

} // namespace

Result runCompare(Invocation& invocation)
{
    std::array<Side, 2> sides;
    const QStringList paths = invocation.arguments();
    for (qsizetype index = 0; index < paths.size(); ++index) {
        Side& side = sides[static_cast<std::size_t>(index)];
        side.name = paths[index];
        if (Result read = readBackup(paths[index], side.values); !read.isDone())
            return read;
    }
    const auto& [first, second] = sides;
    if (!invocation.options().port.isEmpty())
        return compareSensor(invocation, first);
    const QByteArray ids = parameters([&first = first, &second = second](char id) {
        return !first.text(id).isEmpty() || !second.text(id).isEmpty();
    });
    return compareSides(invocation.output(), ids, first, second);
}

} // namespace pelorin::cli
