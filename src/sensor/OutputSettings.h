#pragma once

#include "sensor/ParameterCodec.h"

#include <array>
#include <optional>

namespace pelorin {

// What a user is offered to choose from, in the order of the lists.
inline constexpr std::array kOfferedDataBits = {24, 25};
inline constexpr std::array kOfferedResolutions = {5, 10, 50, 100, 20, 2, 1}; ///< micrometres

/// What shapes a sensor's SSI output: read from its parameters, and written back to them.
struct OutputSettings
{
    DataFormat format;     ///< 'D'
    int micrometres = 0;   ///< 'A', the resolution
    double gradient = 0.0; ///< 'U', read only; 'S' follows from it and the resolution
    double offsetMm = 0.0; ///< 'N', which belongs to the measurement direction
    double strokeMm = 0.0; ///< 'L', read only
    Extension extension;   ///< 'K', type 2 only

    [[nodiscard]] double resolutionMm() const { return micrometres * 0.001; }

    /// Takes the answer to a read. The offset is counted in the resolution, read before.
    void decode(char id, const QByteArray& reply);

    /// The text to write; nothing if it cannot carry the value.
    [[nodiscard]] std::optional<QByteArray> composeWriteValue(char id) const;
};

} // namespace pelorin
