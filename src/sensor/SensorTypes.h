#pragma once

#include <string_view>

namespace pelorin {

/// What sensors of a type have: identifiers of parameters, in the order in which they are
/// exchanged. All texts last as long as the program.
struct SensorType
{
    std::string_view information; ///< every parameter there is, as the first page reads them
    std::string_view outputRead;
    std::string_view outputWrite;
    std::string_view factoryRead;
    std::string_view factoryWrite;
    std::string_view backup; ///< saved and restored; empty for a sensor not identified
    char closing; ///< the command that takes written values into effect; 0 if not identified

    [[nodiscard]] bool has(char id) const { return information.find(id) != information.npos; }
};

/// @param ssiType 0, 1 or 2; any other is a sensor not identified
[[nodiscard]] const SensorType& sensorType(int ssiType);

/// The number of the string that names a parameter; 0 if there is none.
[[nodiscard]] int parameterName(char id);

} // namespace pelorin
