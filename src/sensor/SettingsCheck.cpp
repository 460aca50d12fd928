#include "sensor/SettingsCheck.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/DecimalText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/Strings.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pelorin {

namespace {

using Field = SettingsFault::Field;
using Fault = std::optional<SettingsFault>;

Fault faultOfRanges(const Settings& settings)
{
    for (std::size_t type = 0; type < settings.ranges.size(); ++type) {
        const RevisionRange& range = settings.ranges[type];
        if (range.low.value_or(0) > range.high.value_or(0)) {
            return SettingsFault{Field::LowestRevision, static_cast<qsizetype>(type),
                                 languageString(strings::kLowAboveHigh).arg(type)};
        }
    }
    return std::nullopt;
}

Fault faultOfPorts(const Settings& settings, const Settings& before)
{
    const auto& ports = settings.ports;
    for (qsizetype row = 0; row < ports.size(); ++row) {
        const PortSetting& port = ports.at(row);
        const auto number = ComPortNames::numberIn(port.name);
        if (!number || *number == 0) {
            return SettingsFault{Field::Port, row,
                                 languageString(strings::kNoComNumber).arg(port.name, port.device)};
        }
        for (const PortSetting& other : ports) {
            if (other.device == port.device || ComPortNames::numberIn(other.name) != number ||
                (before.ports.contains(port) && before.ports.contains(other)))
                continue;
            return SettingsFault{
                Field::Port, row,
                languageString(strings::kNumberTwice)
                    .arg(ComPortNames::nameOf(*number), other.device, port.device)};
        }
    }
    return std::nullopt;
}

/// What would keep a file from being read again stands in no name.
bool isFitName(const QString& name)
{
    return !name.trimmed().isEmpty() && std::all_of(name.begin(), name.end(), [](QChar character) {
        return character.isPrint() || character.isSurrogate();
    });
}

Fault faultOfPackages(const Settings& settings, const Settings& before)
{
    for (qsizetype row = 0; row < settings.packages.size(); ++row) {
        const PackageSetting& package = settings.packages.at(row);
        if (before.packages.contains(package))
            continue;
        if (!isFitName(package.name)) {
            return SettingsFault{Field::PackageName, row,
                                 languageString(strings::kPackageUnnamed).arg(row + 1)};
        }
        for (const auto& [field, text] :
             {std::pair(Field::PackageSeDistance, package.seDistance),
              std::pair(Field::PackageInactiveZone, package.inactiveZone)}) {
            if (std::isnan(intlAtof(text))) {
                return SettingsFault{
                    field, row, languageString(strings::kPackageNoNumber).arg(package.name, text)};
            }
        }
    }
    return std::nullopt;
}

/// As the settings will give the numbers.
Fault faultOfDisplay(const Settings& settings, const SensorPort& sensor)
{
    if (!settings.displayEnabled || sensor.number == 0)
        return std::nullopt;
    RegistryFileEditor editor({});
    settings.enter(editor, {});
    const ComPortNames names(RegistryFile::parse(editor.content(), {}));
    const QString device = names.devicePath(settings.displayPort);
    const int number = names.numberOf(device);
    const bool same = device == sensor.device || number == sensor.number ||
                      (number != 0 && number == names.numberOf(sensor.device));
    return same ? Fault(SettingsFault{
                      Field::DisplayPort, 0,
                      languageString(strings::kPortIsBoths).arg(settings.displayPort)})
                : std::nullopt;
}

} // namespace

std::optional<SettingsFault> faultOf(const Settings& settings, const Settings& before,
                                     const SensorPort& sensor)
{
    if (auto fault = faultOfRanges(settings))
        return fault;
    if (auto fault = faultOfPorts(settings, before))
        return fault;
    if (auto fault = faultOfPackages(settings, before))
        return fault;
    return faultOfDisplay(settings, sensor);
}

QStringList overlapsOf(const Settings& settings)
{
    QStringList overlaps;
    for (std::size_t type = 0; type < settings.ranges.size(); ++type) {
        for (std::size_t other = type + 1; other < settings.ranges.size(); ++other) {
            const RevisionRange& left = settings.ranges[type];
            const RevisionRange& right = settings.ranges[other];
            const int low = std::max(left.low.value_or(0), right.low.value_or(0));
            const int high = std::min(left.high.value_or(0), right.high.value_or(0));
            if (left.isSet() && right.isSet() && low <= high) {
                overlaps << languageString(strings::kRangesOverlap)
                                .arg(QString::number(type), QString::number(other),
                                     revisionText(low), revisionText(high));
            }
        }
    }
    return overlaps;
}

} // namespace pelorin
