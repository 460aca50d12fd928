#pragma once

#include <QByteArrayView>
#include <QList>

#include <chrono>
#include <optional>

namespace pelorin {

/// How a streamed SSI word becomes a length.
struct PositionScale
{
    int dataBits = 0;        ///< width of the SSI word, 0 to 255; 0 while no stream is selected
    double mmPerCount = 0.0; ///< resolution; 0 while no stream is selected
};

/// A position of the stream, and when its frame was whole.
struct PositionSample
{
    std::chrono::steady_clock::time_point time;
    double millimetres;

    bool operator==(const PositionSample&) const = default;
};

/// What a followed stream hands over.
struct PositionBatch
{
    QList<PositionSample> samples; ///< in the order of their frames
    int malformed = 0;             ///< how many frames were none

    bool operator==(const PositionBatch&) const = default;
};

inline constexpr qsizetype kPositionFrameLength = 9;

/// Decodes one frame of the position stream: eight hexadecimal digits and CR. The SSI word
/// stands left-aligned in 32 bits.
/// @return millimetres, signed; nothing if the frame is another. Any thread.
[[nodiscard]] std::optional<double> decodePosition(QByteArrayView frame,
                                                   const PositionScale& scale) noexcept;

} // namespace pelorin
