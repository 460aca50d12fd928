#include "Fuzz.h"

#include "sensor/BackupFaults.h"
#include "sensor/BackupFile.h"
#include "sensor/Comparison.h"
#include "sensor/ParameterWords.h"
#include "sensor/RestoreChoice.h"
#include "sensor/SensorTypes.h"

using namespace pelorin;

/// What a backup file holds is shown, chosen from and compared before anything is written.
void take(const QByteArray& bytes)
{
    const auto values = BackupFile::valuesOf(bytes);
    if (!values)
        return;
    const SensorValues sensor{{'D', "400019"}, {'A', "00000005"}, {'N', "00000A"}, {'U', "281234"},
                              {'L', "AB0500"}, {'S', "001000"},   {'K', "000001"}, {'V', "3A0104"}};
    for (int type = 0; type < 3; ++type) {
        for (const auto& choice : {chooseAll(type, sensor, *values, true),
                                   chooseOutputSettings(type, sensor, *values)}) {
            for (const char id : choice.order)
                fuzz::require(choice.values.count(id) == 1);
            (void)refusalText(choice);
        }
        (void)BackupFaults::of(*values, sensorType(type).backup);
        (void)unlikeSaved(type, sensor, *values);
    }
    for (const auto& [id, text] : *values)
        (void)valueInWords(id, text, *values);
    SensorValues notEmpty = *values;
    std::erase_if(notEmpty, [](const auto& value) { return value.second.isEmpty(); });
    fuzz::require(BackupFile::valuesOf(BackupFile::textOf(*values)) == notEmpty);
}
