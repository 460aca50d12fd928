#pragma once

#include "platform/core/LineSettings.h"
#include "platform/core/Strings.h"

#include <QString>

#include <chrono>
#include <functional>

namespace pelorin {

class ComPort;
class SerialDevices;

/// Which step of making a port ready failed. The value is the number of the text that says so.
enum class PortStep : int {
    None = 0,
    Open = strings::kPortNotOpened,
    Line = strings::kLineNotSet,
    Timeouts = strings::kTimeoutsNotSet,
    Queues = strings::kQueuesNotSet,
    Thread = strings::kWorkerNotStarted ///< the port is fine, but there is no thread to use it
};

/// Why a port could not be made ready.
struct PortFailure
{
    PortStep step = PortStep::None; ///< None: it is ready
    int error = 0;                  ///< the system's error code

    [[nodiscard]] explicit operator bool() const { return step != PortStep::None; }

    /// What the user is told about a failure, in the current language.
    [[nodiscard]] QString message(const QString& deviceName) const;
};

/// What a user who may not use a port is told and advised.
/// @param name of the port for the user
[[nodiscard]] QString noPermissionText(const QString& name, const QString& device,
                                       const SerialDevices& devices);

/// Opens a port and sets its line, the usual time limits and queues of 128 bytes. A port that
/// cannot be configured is closed again.
[[nodiscard]] PortFailure openPort(ComPort& port, const LineSettings& line);

/// The same, and again as long as it fails only since the device was just plugged in.
/// @param device its path
/// @param pause waits on this thread; false ends the attempts
[[nodiscard]] PortFailure
openPluggedPort(ComPort& port, const LineSettings& line, const QString& device,
                const std::function<bool(std::chrono::milliseconds)>& pause);

} // namespace pelorin
