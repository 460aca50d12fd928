#include "link/PositionFrame.h"

#include "platform/core/HexText.h"

namespace pelorin {

namespace {

constexpr std::size_t kFrameLength = 9;
constexpr int kWordBits = 32;

} // namespace

std::optional<double> decodePosition(std::string_view frame, const PositionScale& scale) noexcept
{
    if (frame.size() != kFrameLength || frame.back() != '\r')
        return std::nullopt;
    const QByteArrayView digits(frame.data(), kFrameLength - 1);
    if (!isHexDigits(digits))
        return std::nullopt;

    qint32 word = hexToLong(digits);
    if (scale.dataBits > 0 && scale.dataBits < kWordBits)
        word >>= kWordBits - scale.dataBits; // keeps the sign
    return word * scale.mmPerCount;
}

} // namespace pelorin
