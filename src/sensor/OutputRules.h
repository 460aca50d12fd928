#pragma once

#include "platform/core/Strings.h"
#include "sensor/OutputSettings.h"
#include "sensor/SensorValues.h"

#include <QString>

#include <optional>
#include <vector>

namespace pelorin {

/// What output settings may be chosen and written, for all that write them.

inline constexpr int kLargestSkipCount = 255;

/// Why output settings are not written to a sensor: the numbers of the texts that tell the user.
enum class OutputRefusal {
    None = 0,
    NotSaved = strings::kBackupMissing, ///< parameters that the sensor needs, as the next two
    NoValue = strings::kBackupNotUsable,
    NotOffered = strings::kNotOffered, ///< by the page for the output settings
    NoResolution = strings::kNoResolution,
    ResolutionTooFine = strings::kResolutionTooFine, ///< for the sensor's type, as the next
    ModeNotOffered = strings::kModeNotOffered,
    ModeNotInReverse = strings::kModeNotInReverse,
    OffsetUnknown = strings::kOffsetToBeCalculated, ///< the direction changes, and the saved offset
                                                    ///< does not fit the sensor
    DoesNotFit = strings::kDoesNotFit
};

/// What a sensor of a type cannot do.
[[nodiscard]] OutputRefusal refusalOf(int ssiType, const OutputSettings& wanted);

/// The parameters that hold a setting which cannot be chosen. A sensor may have others.
[[nodiscard]] QByteArray notOffered(int ssiType, const OutputSettings& settings);

/// A difference needs two magnets, every other output is of one.
[[nodiscard]] int magnetsFor(int extensionMode);

/// What the user has to agree to before a sensor does what it does not do yet: numbers of texts.
[[nodiscard]] std::vector<int> questionsBefore(int ssiType, const OutputSettings& wanted,
                                               const OutputSettings& read);

/// All that is written for settings.
/// @param offset in the place of that of the settings
/// @return nothing if a text cannot carry its value
[[nodiscard]] std::optional<SensorValues> composeOutput(int ssiType, const OutputSettings& settings,
                                                        const std::optional<QByteArray>& offset);

/// Whether this is the password for the error skip count.
[[nodiscard]] bool isSkipCountPassword(const QString& password);

} // namespace pelorin
