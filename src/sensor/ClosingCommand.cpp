#include "sensor/ClosingCommand.h"

#include "link/SensorLink.h"

namespace pelorin {

RequestId requestClosingCommand(SensorLink& link)
{
    switch (link.ssiType()) {
    case 1:
        return link.requestWrite('E', QByteArray());
    case 0:
    case 2:
        return link.requestWrite('C', QByteArray());
    default:
        return 0;
    }
}

} // namespace pelorin
