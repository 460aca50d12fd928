#pragma once

#include "platform/core/LineSettings.h"

#include <QString>

namespace pelorin {

class ComPort;

/// Which step of making a port ready failed. The value is the number of the text that says so.
enum class PortStep : int { None = 0, Open = 101, Line = 102, Timeouts = 103, Queues = 104 };

/// Why a port could not be made ready.
struct PortFailure
{
    PortStep step = PortStep::None; ///< None: it is ready
    int error = 0;                  ///< the system's error code

    [[nodiscard]] explicit operator bool() const { return step != PortStep::None; }

    /// What the user is told about a failure, in the current language.
    [[nodiscard]] QString message(const QString& deviceName) const;
};

/// Opens a port and sets its line, the usual time limits and queues of 128 bytes. A port that
/// cannot be configured is closed again.
[[nodiscard]] PortFailure openPort(ComPort& port, const LineSettings& line);

} // namespace pelorin
