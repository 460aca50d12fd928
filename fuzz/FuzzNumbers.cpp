#include "Fuzz.h"

#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "sensor/CompensationEntry.h"

#include <cmath>

using namespace pelorin;

void take(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    if (isHex(text)) {
        QString digits = text.trimmed();
        if (digits.startsWith(QLatin1String("0x"), Qt::CaseInsensitive))
            digits.remove(0, 2);
        fuzz::require(hexToInt(text) == digits.toULongLong(nullptr, 16));
    }
    if (isHexDigits(bytes))
        fuzz::require(hexToLong(bytes) == static_cast<qint32>(bytes.right(8).toUInt(nullptr, 16)));
    const double typed = intlAtof(text);
    fuzz::require(std::isnan(typed) || std::isfinite(typed));
    fuzz::require(!std::isnan(decimalPrefix(text)));
    (void)integerPrefix(text);
    const CompensationEntry entry = entryOf({text, text});
    fuzz::require(entryOf(textsOf(entry)) == entry);
}
