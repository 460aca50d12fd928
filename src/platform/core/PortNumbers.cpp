#include "platform/core/PortNumbers.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/Profile.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/SettingsFile.h"

namespace pelorin {

namespace {

QString section()
{
    return QStringLiteral("Ports");
}

} // namespace

QMap<int, QString> keptPortNumbers()
{
    QMap<int, QString> numbers;
    const auto texts = Profile().readTexts(section());
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const int number = ComPortNames::numberIn(it.key()).value_or(0);
        if (number > 0 && it.key() == ComPortNames::nameOf(number))
            numbers[number] = it.value();
    }
    return numbers;
}

WholeFile::Outcome keepPortNumber(int number, const QString& device)
{
    SettingsFile settings(SettingsFile::placesOfThisRun());
    if (settings.problem().isEmpty() && settings.replaced().isEmpty()) {
        RegistryFileEditor editor(settings.content());
        editor.set(serialPortsKey(), device, ComPortNames::nameOf(number));
        return settings.save(editor.content());
    }
    return Profile().writeTexts(section(), {{ComPortNames::nameOf(number), device}});
}

} // namespace pelorin
