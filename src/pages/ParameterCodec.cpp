#include "pages/ParameterCodec.h"

#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"

namespace pelorin {

DataFormat DataFormat::decode(const QByteArray& text)
{
    DataFormat format;
    format.flags = static_cast<quint8>(hexToLong(text.left(2)));
    format.errorSkipCount = static_cast<quint8>(hexToLong(text.mid(2, 2)));
    format.dataBits = static_cast<quint8>(hexToLong(text.right(2)));
    return format;
}

QByteArray DataFormat::encode() const
{
    return QString::asprintf("%02X%02X%02X", unsigned{flags}, unsigned{errorSkipCount},
                             unsigned{dataBits})
        .toLatin1();
}

int DataFormat::multiplier() const
{
    return 1 << ((flags & kMultiplierMask) >> 6);
}

Extension Extension::decode(const QByteArray& text)
{
    return {hexToLong(text.left(2)), hexToLong(text.mid(2, 2)), hexToLong(text.right(2))};
}

double decodeResolutionMm(const QByteArray& text)
{
    return integerPrefix(text) * 0.001;
}

double decodeStrokeMm(const QByteArray& text)
{
    return integerPrefix(text.mid(2));
}

double decodeGradient(const QByteArray& text)
{
    return integerPrefix(text) * 0.01;
}

} // namespace pelorin
