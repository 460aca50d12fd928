#pragma once

#include "sensor/OutputSettings.h"
#include "sensor/SensorValues.h"

#include <QString>

#include <optional>
#include <vector>

namespace pelorin {

/// What output settings may be chosen and written, for all that write them.

inline constexpr int kLargestSkipCount = 255;

/// Why output settings are not written to a sensor.
enum class OutputRefusal {
    None,
    NotSaved, ///< parameters that the sensor needs, as the next two
    NoValue,
    NotOffered, ///< by the page for the output settings
    NoResolution,
    ResolutionTooFine, ///< for the sensor's type, as the next
    ModeNotOffered,
    ModeNotInReverse,
    OffsetUnknown, ///< the direction changes, and the saved offset does not fit the sensor
    DoesNotFit
};

/// The number of the text that tells the user so.
[[nodiscard]] int textNumberOf(OutputRefusal refusal);

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
