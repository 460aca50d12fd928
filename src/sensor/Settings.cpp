#include "sensor/Settings.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/SettingsLocation.h"

#include <algorithm>
#include <functional>
#include <set>

namespace pelorin {

namespace {

struct Switch
{
    const char* name;
    bool Settings::*on;
};

constexpr std::array<Switch, 4> kSwitches = {{{"ManualPowerMode", &Settings::manualPower},
                                              {"SafeWrites", &Settings::safeWrites},
                                              {"EnableTempComp", &Settings::tempComp},
                                              {"EnableQDL3", &Settings::displayEnabled}}};

struct PackageText
{
    const char* name;
    QString PackageSetting::*text;
};

constexpr std::array<PackageText, 3> kPackageTexts = {
    {{"Name", &PackageSetting::name},
     {"SEDistance", &PackageSetting::seDistance},
     {"InactiveZone", &PackageSetting::inactiveZone}}};

QString displayPortName()
{
    return QStringLiteral("QDL3Comport");
}

QString displayNodeName()
{
    return QStringLiteral("QDL3NodeID");
}

QString boundsKey()
{
    return productKey(QStringLiteral("Firmware Rev Bounds"));
}

QString boundName(int type, bool high)
{
    return QStringLiteral("Type%1%2")
        .arg(QString::number(type), high ? QStringLiteral("High") : QStringLiteral("Low"));
}

QString packagesKey()
{
    return productKey(QStringLiteral("Package Parameters"));
}

QString packageName(int number)
{
    return QStringLiteral("Package%1").arg(number);
}

QString packageKey(int number)
{
    return packagesKey() + QLatin1Char('\\') + packageName(number);
}

/// Only the low eight bits of a bound count.
std::optional<int> boundOf(const RegistryFile& file, const RegistryConfig& config, int type,
                           bool high)
{
    const QString name = boundName(type, high);
    if (!file.value(boundsKey(), name))
        return std::nullopt;
    return static_cast<quint8>(config.getValue(name, 0));
}

QList<PortSetting> portsOf(const RegistryFile& file)
{
    QList<PortSetting> ports;
    for (const auto& entry : file.entries(serialPortsKey())) {
        const auto* const name = std::get_if<QString>(&entry.value);
        if (name && ComPortNames::numberIn(*name) && !isWindowsPath(entry.name))
            ports.append({entry.name, *name});
    }
    return ports;
}

void enterBound(RegistryFileEditor& editor, const QString& name, std::optional<int> bound)
{
    if (bound) {
        editor.set(boundsKey(), name, static_cast<quint32>(*bound));
    } else {
        editor.remove(boundsKey(), name);
    }
}

/// Packages behind a missing number, which nobody reads, stay behind one: new packages neither take
/// their numbers nor close the gap before them.
void keepGap(RegistryFileEditor& editor, int before, int after)
{
    std::set<int, std::greater<>> behind;
    for (const QString& name : editor.keysBelow(packagesKey())) {
        const int number = name.mid(name.lastIndexOf(QLatin1Char('e')) + 1).toInt();
        if (number > before && name == packageName(number).toCaseFolded())
            behind.insert(number);
    }
    if (behind.empty() || *behind.rbegin() > after)
        return;
    for (const int number : behind)
        editor.renameKey(packageKey(number), packageName(number + after - before));
}

/// @return the packages that the file had and keeps, under their new numbers
QList<PackageSetting> enterRemovals(RegistryFileEditor& editor, const QList<PackageSetting>& before,
                                    const QList<PackageSetting>& after)
{
    QList<PackageSetting> kept;
    for (const PackageSetting& package : before) {
        const auto isIt = [&package](auto& other) { return other.number == package.number; };
        const auto number = static_cast<int>(kept.size());
        if (std::none_of(after.begin(), after.end(), isIt)) {
            editor.removeKey(packageKey(package.number));
            continue;
        }
        if (number != package.number)
            editor.renameKey(packageKey(package.number), packageName(number));
        kept.append(package);
    }
    return kept;
}

/// New packages stand behind those that the file had.
void enterPackages(RegistryFileEditor& editor, const QList<PackageSetting>& before,
                   const QList<PackageSetting>& after)
{
    keepGap(editor, static_cast<int>(before.size()), static_cast<int>(after.size()));
    const QList<PackageSetting> kept = enterRemovals(editor, before, after);
    for (qsizetype row = 0; row < after.size(); ++row) {
        const PackageSetting older = kept.value(row);
        for (const auto& [name, text] : kPackageTexts) {
            if (row >= kept.size() || after.at(row).*text != older.*text) {
                editor.set(packageKey(static_cast<int>(row)), QLatin1String(name),
                           after.at(row).*text);
            }
        }
    }
}

void enterPorts(RegistryFileEditor& editor, const QList<PortSetting>& before,
                const QList<PortSetting>& after)
{
    for (const PortSetting& port : before) {
        const auto isIt = [&port](auto& other) { return other.device == port.device; };
        if (std::none_of(after.begin(), after.end(), isIt))
            editor.remove(serialPortsKey(), port.device);
    }
    for (const PortSetting& port : after) {
        if (!before.contains(port))
            editor.set(serialPortsKey(), port.device, port.name);
    }
}

} // namespace

QList<PackageSetting> packagesOf(const RegistryFile& file)
{
    QList<PackageSetting> packages;
    RegistryConfig config(file);
    for (int number = 0; config.setStorage(packageKey(number)) == 1; ++number) {
        PackageSetting package{.number = number};
        for (const auto& [name, text] : kPackageTexts)
            package.*text = config.getValue(QLatin1String(name), QString());
        packages.append(package);
    }
    return packages;
}

Settings Settings::of(const RegistryFile& file)
{
    Settings settings;
    RegistryConfig config(file);
    if (config.setStorage(productKey()) == 1) {
        for (const auto& [name, on] : kSwitches)
            settings.*on = switchIn(config, QLatin1String(name), settings.*on);
        settings.displayPort = config.getValue(displayPortName(), settings.displayPort);
        settings.displayNode = config.getValue(displayNodeName(), settings.displayNode);
    }
    (void)config.setStorage(boundsKey());
    for (int type = 0; type < kSsiTypeCount; ++type) {
        settings.ranges[static_cast<std::size_t>(type)] = {boundOf(file, config, type, false),
                                                           boundOf(file, config, type, true)};
    }
    settings.packages = packagesOf(file);
    settings.ports = portsOf(file);
    return settings;
}

Settings Settings::inForce()
{
    return of(RegistryFile::read(registryFilePath()));
}

void Settings::enter(RegistryFileEditor& editor, const Settings& before) const
{
    for (const auto& [name, on] : kSwitches) {
        if (this->*on != before.*on)
            editor.set(productKey(), QLatin1String(name), quint32{this->*on ? 1U : 0U});
    }
    if (displayPort != before.displayPort)
        editor.set(productKey(), displayPortName(), displayPort);
    if (displayNode != before.displayNode)
        editor.set(productKey(), displayNodeName(), static_cast<quint32>(displayNode));
    for (int type = 0; type < kSsiTypeCount; ++type) {
        const RevisionRange& range = ranges[static_cast<std::size_t>(type)];
        const RevisionRange& older = before.ranges[static_cast<std::size_t>(type)];
        if (range.low != older.low)
            enterBound(editor, boundName(type, false), range.low);
        if (range.high != older.high)
            enterBound(editor, boundName(type, true), range.high);
    }
    enterPackages(editor, before.packages, packages);
    enterPorts(editor, before.ports, ports);
}

} // namespace pelorin
