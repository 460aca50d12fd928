#include "Fuzz.h"

#include "platform/core/IniText.h"

using namespace pelorin;

/// A value that is set is found again, and all others are as before.
void take(const QByteArray& bytes)
{
    const IniText before(bytes);
    IniText ini = before;
    ini.set("Setup", "Port", "7");
    const IniText again(ini.text());
    fuzz::require(ini.isDamaged() || again.value("Setup", "Port") == "7");
    for (const auto& [section, key, value] : before.entries()) {
        if (!ini.isDamaged() && (section != "Setup" || key != "Port"))
            fuzz::require(again.value(section, key) == before.value(section, key));
    }
    ini.remove("Setup", "Port");
    fuzz::require(IniText(ini.text()).value("Setup", "Port").isNull());
}
