#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace pelorin {

/// The sensor types that differ in their parameters and in the command that closes a write
/// sequence, as the program counts them.
inline constexpr int kSsiTypeCount = 3;
inline constexpr int kSsiTypeUnknown = kSsiTypeCount;

/// An inclusive range of firmware revisions of one type; without any only revision 0.
struct RevisionBounds
{
    int low = 0; ///< 0 to 255, as the next
    int high = 0;

    [[nodiscard]] bool hasAny() const { return low != 0 || high != 0; }
    /// The range that holds a revision, too.
    [[nodiscard]] RevisionBounds widenedTo(int revision) const;

    bool operator==(const RevisionBounds&) const = default;
};

/// By sensor type.
using AllRevisionBounds = std::array<RevisionBounds, kSsiTypeCount>;

/// Those of the settings. Any thread.
[[nodiscard]] AllRevisionBounds revisionBounds();

/// Whether the range of a type can be widened to a revision without touching that of another one.
[[nodiscard]] bool canWiden(const AllRevisionBounds& bounds, int type, int revision);

/// The firmware revision in a version answer.
[[nodiscard]] int revisionOf(const QByteArray& versionText);
/// The same as it stands there.
[[nodiscard]] QString revisionText(const QByteArray& versionText);
/// A firmware revision in two hexadecimal digits.
[[nodiscard]] QString revisionText(int revision);

/// Finds the sensor's type from its version answer, whose first two characters are the firmware
/// revision in hexadecimal, and the site's revision bounds in the settings. Any thread.
/// @return 0, 1 or 2, the lowest whose bounds hold the revision, or kSsiTypeUnknown
[[nodiscard]] int ssiTypeOfVersion(const QByteArray& versionText);

/// What the user is told of a sensor whose version answer gives no type.
[[nodiscard]] QString unidentifiedText(const QByteArray& versionText);

} // namespace pelorin
