#pragma once

#include "platform/core/Strings.h"
#include "sensor/OutputRules.h"
#include "sensor/SensorValues.h"

#include <QString>

#include <chrono>
#include <map>

namespace pelorin {

/// What of saved values is to be written to a sensor: what differs, in the order of writing. The
/// position stream that a saved data format may ask for is never written.
struct RestoreChoice
{
    using Refusal = OutputRefusal;

    /// What a value comes from if it is not the saved one: the numbers of the texts that say so.
    enum class Origin {
        OwnMultiplier = strings::kOwnMultiplier, ///< saved, with the sensor's multiplier
        OwnVelocity = strings::kOwnGradient,     ///< computed from the sensor's pulse velocity
        OwnLength = strings::kOwnLength ///< the sensor's own offset, counted in the resolution to
                                        ///< be written
    };

    Refusal refusal = Refusal::None; ///< nothing is to be written then
    QByteArray refused{};            ///< the parameters that are the reason
    QByteArray order{};
    SensorValues values{};
    std::map<char, Origin> origins{}; ///< also of what stays as it is

    bool operator==(const RestoreChoice&) const = default;
};

inline constexpr char kRestoreClosing = 'E'; ///< the command that has restored values stored
inline constexpr std::chrono::milliseconds kRestorePause{500}; ///< after it

/// The sensor becomes what was saved, its calibration included. What was not saved stays.
/// @param sensor every parameter of the type
/// @param withFactoryText whether 'F' goes first, if it was saved
[[nodiscard]] RestoreChoice chooseAll(int ssiType, const SensorValues& sensor,
                                      const SensorValues& saved, bool withFactoryText = false);

/// A replaced sensor gets the output settings of the one before, and keeps its own calibration.
[[nodiscard]] RestoreChoice chooseOutputSettings(int ssiType, const SensorValues& sensor,
                                                 const SensorValues& saved);

/// Why a choice is refused, in the current language; empty if it is not.
[[nodiscard]] QString refusalText(const RestoreChoice& choice);

/// The parameters that tell one sensor from another and are not as they were saved, the version
/// among them. What was not saved tells nothing.
[[nodiscard]] QByteArray unlikeSaved(int ssiType, const SensorValues& sensor,
                                     const SensorValues& saved);

/// Whether a saved data format asks for the position stream.
[[nodiscard]] bool asksForStream(const SensorValues& saved);

} // namespace pelorin
