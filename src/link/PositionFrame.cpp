#include "link/PositionFrame.h"

#include "link/SensorFrame.h"
#include "platform/core/HexText.h"

namespace pelorin {

namespace {

constexpr int kWordBits = 32;

} // namespace

std::optional<double> decodePosition(QByteArrayView frame, const PositionScale& scale) noexcept
{
    if (frame.size() != kPositionFrameLength || frame.back() != kFrameTerminator)
        return std::nullopt;
    const QByteArrayView digits = frame.chopped(1);
    if (!isHexDigits(digits))
        return std::nullopt;

    qint32 word = hexToLong(digits);
    if (scale.dataBits > 0 && scale.dataBits < kWordBits)
        word >>= kWordBits - scale.dataBits; // keeps the sign
    return word * scale.mmPerCount;
}

} // namespace pelorin
