#include "Fuzz.h"
#include "TalkingPort.h"

#include "link/CommLog.h"
#include "link/SensorProtocol.h"

using namespace pelorin;

void take(const QByteArray& bytes)
{
    fuzz::TalkingPort port(bytes);
    CommLog log;
    SensorProtocol protocol(port, log, {[] {}, [] {}, [](auto) { return true; }});
    (void)protocol.readPositionFrame();
    for (const char id : std::string_view("DAN")) {
        if (const auto reply = protocol.readParameter(id))
            fuzz::require(reply->size() >= 6 && reply->size() <= 8 && !reply->contains('\r'));
    }
    (void)protocol.connect();
    fuzz::require(protocol.rawExchange("VA\r").bytes.size() <= bytes.size());
    const auto lines = log.snapshot();
    for (int index = 0; index < lines.size(); ++index)
        (void)lines.line(index);
}
