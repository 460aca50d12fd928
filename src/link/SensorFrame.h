#pragma once

#include <QByteArray>
#include <QString>

namespace pelorin {

/// The frames that are exchanged with a sensor.

inline constexpr char kFrameTerminator = '\r';

/// Asks for a parameter.
[[nodiscard]] QByteArray readFrameOf(char id);

/// Sends a value of a parameter, or a command without one.
[[nodiscard]] QByteArray writeFrameOf(char id, const QByteArray& value);

/// The bytes of a frame as the communications log has them.
[[nodiscard]] QString frameText(QByteArrayView frame);

} // namespace pelorin
