#include "Fuzz.h"

#include "platform/core/IniText.h"

using namespace pelorin;

/// A value that is set is found again, and all others are as before.
void take(const QByteArray& bytes)
{
    IniText ini(bytes);
    const auto before = ini.entries();
    ini.set("Setup", "Port", "7");
    const IniText again(ini.text());
    fuzz::require(ini.isDamaged() || again.value("Setup", "Port") == "7");
    for (const auto& [section, key, value] : before) {
        if (!ini.isDamaged() && (section != "Setup" || key != "Port"))
            fuzz::require(again.value(section, key) == IniText(bytes).value(section, key));
    }
    ini.remove("Setup", "Port");
    fuzz::require(IniText(ini.text()).value("Setup", "Port").isNull());
}
