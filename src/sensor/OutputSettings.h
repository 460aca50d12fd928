#pragma once

#include "sensor/ParameterCodec.h"

#include <optional>

namespace pelorin {

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
