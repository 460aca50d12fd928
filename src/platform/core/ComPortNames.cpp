#include "platform/core/ComPortNames.h"

#include "platform/core/PortNumbers.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/SettingsLocation.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kDevicesPerKind = 32;
constexpr int kFirstFreeNumber = 100; ///< behind the fixed ones
constexpr const char* kKinds[] = {"ttyS", "ttyUSB", "ttyACM"};

/// Where the system keeps a link to each adapter, named after maker and serial number.
QString adapterFolder()
{
    return QStringLiteral("/dev/serial/by-id");
}

QString fixedDevice(int number)
{
    const int kind = (number - 1) / kDevicesPerKind;
    if (number < 1 || kind >= static_cast<int>(std::size(kKinds)))
        return QString();
    return QStringLiteral("/dev/%1%2")
        .arg(QLatin1String(kKinds[kind]), QString::number((number - 1) % kDevicesPerKind));
}

int fixedNumber(const QString& device)
{
    for (int number = 1; number <= kDevicesPerKind * static_cast<int>(std::size(kKinds));
         ++number) {
        if (device == fixedDevice(number))
            return number;
    }
    return 0;
}

bool isSimulatedDevice(const QString& device)
{
    return device.startsWith(kSimulatedScheme);
}

/// The device behind a link; a device that does not exist stands for itself.
QString resolved(const QString& device)
{
    const QString target = QFileInfo(device).canonicalFilePath();
    return target.isEmpty() ? device : target;
}

} // namespace

QString PresentPort::details() const
{
    QStringList texts{shortName, adapter.description, adapter.manufacturer, adapter.serialNumber};
    texts.removeAll(QString());
    return texts.join(QStringLiteral(", "));
}

ComPortNames::ComPortNames() : ComPortNames(RegistryFile::read(registryFilePath())) {}

ComPortNames::ComPortNames(const RegistryFile& settings)
{
    for (const auto& entry : settings.entries(serialPortsKey())) {
        const auto* const name = std::get_if<QString>(&entry.value);
        const auto number = name ? numberIn(*name) : std::nullopt;
        // A site's export also lists the devices of the machine that it comes from.
        if (number && !isWindowsPath(entry.name))
            m_devices.insert(*number, entry.name);
    }
    const auto kept = keptPortNumbers();
    for (auto it = kept.cbegin(); it != kept.cend(); ++it) {
        if (!m_devices.contains(it.key()) && numberOf(it.value()) == 0)
            m_devices.insert(it.key(), it.value());
    }
}

QString ComPortNames::nameOf(int number, const QString& unnumbered)
{
    return number == 0 ? unnumbered : QStringLiteral("COM%1").arg(number);
}

std::optional<int> ComPortNames::numberIn(const QString& name)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^(?:\\\\\.\\)?COM(\d{1,9})$)"),
                                            QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(name);
    return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

QString ComPortNames::devicePath(const QString& name) const
{
    const auto number = numberIn(name);
    if (!number)
        return name;
    if (m_devices.contains(*number))
        return m_devices.value(*number);
    const QString device = fixedDevice(*number);
    return numberOf(device) == *number ? device : QString();
}

int ComPortNames::numberOf(const QString& device) const
{
    const QString target = resolved(device);
    for (auto it = m_devices.cbegin(); it != m_devices.cend(); ++it) {
        if (it.value() == device || resolved(it.value()) == target)
            return it.key();
    }
    const int number = fixedNumber(target);
    return m_devices.contains(number) ? 0 : number;
}

QList<PresentPort> ComPortNames::presentPorts() const
{
    return presentPorts(SerialDevices().all());
}

QList<PresentPort> ComPortNames::presentPorts(const QList<SerialDevice>& system) const
{
    QMap<int, PresentPort> ports;
    for (auto it = m_devices.cbegin(); it != m_devices.cend(); ++it) {
        const bool simulated = isSimulatedDevice(it.value());
        const QString name = simulated ? it.value() : QFileInfo(it.value()).fileName();
        if (simulated || QFileInfo::exists(it.value()))
            ports.insert(it.key(), {it.key(), it.value(), name, {}, simulated});
    }
    QList<PresentPort> unnumbered;
    for (const SerialDevice& adapter : system) {
        const int number = m_devices.key(adapter.byId.isEmpty() ? adapter.path : adapter.byId,
                                         numberOf(adapter.path));
        const PresentPort port{number, m_devices.value(number, adapter.path),
                               QFileInfo(adapter.path).fileName(), adapter, false};
        if (number == 0) {
            unnumbered << port;
        } else {
            ports.insert(number, port);
        }
    }
    return ports.values() + unnumbered;
}

int ComPortNames::freeNumber() const
{
    int number = kFirstFreeNumber;
    while (m_devices.contains(number))
        ++number;
    return number;
}

QString ComPortNames::stableName(const QString& device)
{
    return stableName(device, adapterFolder());
}

QString ComPortNames::stableName(const QString& device, const QString& linkFolder)
{
    const QString target = QFileInfo(device).canonicalFilePath();
    if (target.isEmpty() || isSimulatedDevice(device))
        return device;
    const auto links = QDir(linkFolder).entryInfoList(QDir::Files | QDir::System, QDir::Name);
    const auto found = std::find_if(links.cbegin(), links.cend(), [&target](const auto& link) {
        return link.canonicalFilePath() == target;
    });
    return found == links.cend() ? device : found->filePath();
}

QString ComPortNames::deviceFolder()
{
    return QFileInfo::exists(adapterFolder()) ? adapterFolder() : QStringLiteral("/dev");
}

bool ComPortNames::isSimulated(const QString& name) const
{
    return isSimulatedDevice(devicePath(name));
}

} // namespace pelorin
