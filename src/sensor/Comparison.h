#pragma once

#include "sensor/SensorValues.h"

#include <QString>

#include <string_view>
#include <vector>

namespace pelorin {

/// A parameter as a sensor has it, beside what was saved of it.
struct ComparedParameter
{
    enum class State { Equal, Differs, NotSaved };

    char id = 0;
    QByteArray sensor{};
    QByteArray saved{}; ///< empty if it was not saved
    State state = State::NotSaved;
    QString sensorInWords{}; ///< in the current language, as the next
    QString savedInWords{};

    bool operator==(const ComparedParameter&) const = default;
};

/// Compares parameters by what their texts mean.
/// @param ids in the order of the result
[[nodiscard]] std::vector<ComparedParameter>
compare(std::string_view ids, const SensorValues& sensor, const SensorValues& saved);

/// A state in the current language; empty for what was not saved.
[[nodiscard]] QString stateText(ComparedParameter::State state);

/// A comparison as a file of values separated by commas, in UTF-8, with a line of headings.
[[nodiscard]] QByteArray csvOf(const std::vector<ComparedParameter>& parameters);

/// The saved side of it alone.
[[nodiscard]] QByteArray csvOfSaved(const std::vector<ComparedParameter>& parameters);

} // namespace pelorin
