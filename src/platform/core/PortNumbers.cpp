#include "platform/core/PortNumbers.h"

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

QString nameOf(int number)
{
    return QStringLiteral("COM%1").arg(number);
}

} // namespace

QMap<int, QString> keptPortNumbers()
{
    QMap<int, QString> numbers;
    const auto texts = Profile().readTexts(section());
    for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
        const int number = it.key().mid(3).toInt();
        if (number > 0 && it.key() == nameOf(number))
            numbers[number] = it.value();
    }
    return numbers;
}

WholeFile::Outcome keepPortNumber(int number, const QString& device)
{
    SettingsFile settings(SettingsFile::placesOfThisRun());
    if (settings.problem().isEmpty() && settings.replaced().isEmpty()) {
        RegistryFileEditor editor(settings.content());
        editor.set(serialPortsKey(), device, nameOf(number));
        return settings.save(editor.content());
    }
    return Profile().writeTexts(section(), {{nameOf(number), device}});
}

} // namespace pelorin
