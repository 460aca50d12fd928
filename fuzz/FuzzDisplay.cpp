#include "Fuzz.h"
#include "TalkingPort.h"

#include "display/DisplayProtocol.h"

using namespace pelorin;

void take(const QByteArray& bytes)
{
    fuzz::TalkingPort port(bytes);
    DisplayProtocol protocol(port, 1);
    (void)protocol.setUp();
    (void)protocol.apply({});
    for (int reading = 0; reading < 3; ++reading) {
        if (const auto text = protocol.readDisplay())
            fuzz::require(text->size() <= 14);
    }
}
