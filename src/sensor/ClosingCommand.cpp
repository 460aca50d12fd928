#include "sensor/ClosingCommand.h"

#include "link/SensorLink.h"
#include "sensor/SensorTypes.h"

namespace pelorin {

RequestId requestClosingCommand(SensorLink& link)
{
    const char command = sensorType(link.ssiType()).closing;
    return command != 0 ? link.requestWrite(command, QByteArray()) : 0;
}

} // namespace pelorin
