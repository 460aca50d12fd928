#include "Fuzz.h"

#include "sensor/FactoryParameters.h"
#include "sensor/OutputSettings.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

using namespace pelorin;

namespace {

/// Whatever a page makes of replies: shows them, and writes them back as they are.
void showAndCompose(const QList<QByteArray>& replies, std::string_view ids)
{
    OutputSettings output;
    FactoryParameters factory;
    for (std::size_t index = 0; index < ids.size(); ++index) {
        const char id = ids[index];
        const QByteArray reply = replies.value(static_cast<qsizetype>(index));
        output.decode(id, reply);
        factory.take(id, reply);
        fuzz::require(isSameValue(id, reply, reply));
        (void)parameterText(id, reply);
        (void)valueInWords(id, reply, {{id, reply}, {'A', replies.first()}});
    }
    for (const char id : std::string_view("DASNK")) {
        if (const auto text = output.composeWriteValue(id))
            fuzz::require(isWellFormed(id, *text) || id == 'A');
    }
    FactoryParameters::Texts rows;
    for (int row = 0; row < FactoryParameters::kRowCount; ++row)
        rows[static_cast<std::size_t>(row)] = factory.text(row);
    const bool isAsked = factory.offsetToChoose(rows).has_value();
    if (!factory.findFault(rows, FactoryParameters::kRowCount).message.isNull())
        return;
    for (const char id : sensorType(2).factoryWrite)
        fuzz::require((id == 'N' && isAsked) ||
                      isWellFormed(id, factory.composeWriteValue(id, rows)));
}

} // namespace

void take(const QByteArray& bytes)
{
    const int type = static_cast<int>(bytes.size() % 3);
    showAndCompose(bytes.split('\r'), sensorType(type).information);
}
