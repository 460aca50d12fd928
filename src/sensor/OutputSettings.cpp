#include "sensor/OutputSettings.h"

#include "platform/core/DecimalText.h"

namespace pelorin {

void OutputSettings::decode(char id, const QByteArray& reply)
{
    switch (id) {
    case 'D':
        format = DataFormat::decode(reply);
        break;
    case 'A':
        micrometres = integerPrefix(reply);
        break;
    case 'U':
        gradient = decodeGradient(reply);
        break;
    case 'N':
        offsetMm = decodeOffsetCounts(reply) * resolutionMm();
        break;
    case 'L':
        strokeMm = decodeStrokeMm(reply);
        break;
    case 'K':
        extension = Extension::decode(reply);
        break;
    default:
        break;
    }
}

std::optional<QByteArray> OutputSettings::composeWriteValue(char id) const
{
    switch (id) {
    case 'D':
        return format.encode();
    case 'A':
        return encodeResolution(micrometres);
    case 'S':
        return encodeScale(gradient, resolutionMm());
    case 'N':
        return encodeOffset(offsetMm, resolutionMm(), format.multiplier());
    case 'K':
        return extension.encode();
    default:
        return std::nullopt;
    }
}

} // namespace pelorin
