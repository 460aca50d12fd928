#include "platform/core/PortOpening.h"

#include "platform/core/ComPort.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/SerialDevices.h"
#include "platform/core/Strings.h"

#include <cerrno>

namespace pelorin {

namespace {

constexpr int kQueueSize = 128;
constexpr std::chrono::milliseconds kOpenPeriod{500};

PortFailure configure(ComPort& port, const LineSettings& line)
{
    if (const int error = port.setLine(line); error != 0)
        return {PortStep::Line, error};
    if (const int error = port.setTimeouts(ComPort::Timeouts()); error != 0)
        return {PortStep::Timeouts, error};
    if (const int error = port.setQueueSizes(kQueueSize, kQueueSize); error != 0)
        return {PortStep::Queues, error};
    return {};
}

} // namespace

QString PortFailure::message(const QString& deviceName) const
{
    const QString text = languageString(textNumberOf(step));
    if (step == PortStep::Thread)
        return text.arg(error);
    QString message = text.arg(deviceName, QString::number(error));
    if (step != PortStep::Open)
        return message;
    if (error == EACCES || error == EPERM) {
        const QString device = ComPortNames().devicePath(deviceName);
        message += QLatin1Char('\n') + noPermissionText(deviceName, device, SerialDevices());
    } else if (error == EBUSY) {
        message += QLatin1Char('\n') + languageString(strings::kPortInUse).arg(deviceName);
    }
    return message;
}

QString noPermissionText(const QString& name, const QString& device, const SerialDevices& devices)
{
    const QString group = devices.groupOf(device);
    return group.isEmpty() ? languageString(strings::kPermissionOfAdministrator).arg(name)
                           : languageString(strings::kNoPermission).arg(name, group);
}

PortFailure openPort(ComPort& port, const LineSettings& line)
{
    if (const int error = port.open(); error != 0)
        return {PortStep::Open, error};
    const PortFailure failure = configure(port, line);
    if (failure)
        port.close();
    return failure;
}

PortFailure openPluggedPort(ComPort& port, const LineSettings& line, const QString& device,
                            const std::function<bool(std::chrono::milliseconds)>& pause)
{
    const auto mayPass = [&device](const PortFailure& failure) {
        const auto now = std::chrono::system_clock::now().time_since_epoch();
        return failure.step == PortStep::Open &&
               SerialDevices().mayPass(failure.error, device,
                                       std::chrono::duration_cast<std::chrono::seconds>(now));
    };
    PortFailure failure = openPort(port, line);
    while (mayPass(failure) && pause(Pacing::pause(kOpenPeriod)))
        failure = openPort(port, line);
    return failure;
}

} // namespace pelorin
