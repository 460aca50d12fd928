#include "cli/Commands.h"
#include "cli/Invocation.h"
#include "cli/Output.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <QJsonArray>

namespace pelorin::cli {

Result runPorts(Invocation& invocation)
{
    QJsonArray array;
    const auto ports = ComPortNames().presentPorts();
    for (const PresentPort& port : ports) {
        const QString name = ComPortNames::nameOf(port.number, port.device); // opened by either
        const QString description =
            port.simulated ? languageString(strings::kSimulated) : port.adapter.description;
        QJsonObject object{{QStringLiteral("device"), port.device}};
        if (port.number != 0) {
            object.insert(QStringLiteral("number"), port.number);
            object.insert(QStringLiteral("name"), name);
        }
        const std::pair<const char*, QString> others[] = {
            {"description", port.adapter.description}, {"serialNumber", port.adapter.serialNumber}};
        for (const auto& [member, text] : others) {
            if (!text.isEmpty())
                object.insert(QLatin1String(member), text);
        }
        array.append(object);
        QStringList fields{name, port.device, description, port.adapter.serialNumber};
        while (fields.last().isEmpty())
            fields.removeLast();
        invocation.output().print(fields.join(QLatin1Char('\t')));
    }
    invocation.output().set(QStringLiteral("ports"), array);
    return {};
}

} // namespace pelorin::cli
