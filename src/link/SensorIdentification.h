#pragma once

#include <QByteArray>
#include <QString>

namespace pelorin {

/// The sensor types that differ in their parameters and in the command that closes a write
/// sequence, as the program counts them.
inline constexpr int kSsiTypeCount = 3;
inline constexpr int kSsiTypeUnknown = kSsiTypeCount;

/// Finds the sensor's type from its version answer, whose first two characters are the firmware
/// revision in hexadecimal, and the site's revision bounds in the settings. Any thread.
/// @return 0, 1 or 2, the lowest whose bounds hold the revision, or kSsiTypeUnknown
[[nodiscard]] int ssiTypeOfVersion(const QByteArray& versionText);

/// What the user is told of a sensor whose version answer gives no type.
[[nodiscard]] QString unidentifiedText(const QByteArray& versionText);

} // namespace pelorin
