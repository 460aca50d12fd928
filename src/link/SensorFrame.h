#pragma once

#include <QByteArray>
#include <QString>

namespace pelorin {

/// The frames that are exchanged with a sensor.

inline constexpr char kFrameTerminator = '\r';

// The second byte says what a frame does.
inline constexpr char kFrameGet = 'A';
inline constexpr char kFrameSet = 'N';

/// Asks for a parameter.
[[nodiscard]] QByteArray readFrameOf(char id);

/// Sends a value of a parameter, or a command without one.
[[nodiscard]] QByteArray writeFrameOf(char id, const QByteArray& value);

/// The bytes of a frame as the communications log has them.
[[nodiscard]] QString frameText(QByteArrayView frame);
/// The same back, from a line of the log that holds them.
[[nodiscard]] QByteArray bytesOfFrameText(const QString& line);

} // namespace pelorin
