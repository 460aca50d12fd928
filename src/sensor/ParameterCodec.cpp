#include "sensor/ParameterCodec.h"

#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

namespace pelorin {

namespace {

QByteArray sixHexDigits(quint32 value)
{
    return QString::asprintf("%06X", value).toLatin1();
}

QByteArray threeBytes(qint32 first, qint32 second, qint32 third)
{
    const auto byte = [](qint32 value) { return static_cast<quint8>(value); };
    return sixHexDigits(quint32{byte(first)} << 16 | quint32{byte(second)} << 8 | byte(third));
}

bool isDigits(QByteArrayView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
}

bool isBlanksAndDigits(QByteArrayView text)
{
    const auto digits =
        std::find_if(text.begin(), text.end(), [](char character) { return character != ' '; });
    return isDigits(text.sliced(digits - text.begin()));
}

bool isCodeAndNumber(QByteArrayView text)
{
    constexpr int kCodeWidth = 2;
    return text.size() > kCodeWidth && isPrintable(text.first(kCodeWidth)) &&
           isBlanksAndDigits(text.sliced(kCodeWidth));
}

/// A number as a text of its own, without the blanks and zeros in front.
QByteArray significant(const QByteArray& number)
{
    qsizetype zeros = 0;
    while (zeros + 1 < number.size() && (number[zeros] == ' ' || number[zeros] == '0'))
        ++zeros;
    return number.mid(zeros);
}

struct ReplyForm
{
    std::string_view ids;
    bool (*isOfForm)(QByteArrayView text);
    int shortest;
    int longest;
};
constexpr int kAnyLength = std::numeric_limits<int>::max();
constexpr std::array<ReplyForm, 5> kReplyForms = {{{"AU", isBlanksAndDigits, 1, kAnyLength},
                                                   {"L", isCodeAndNumber, 3, kAnyLength},
                                                   {"DKSZM", isHexDigits, 6, 6},
                                                   {"NJO", isHexDigits, 6, 8},
                                                   {"FPV", isPrintable, 6, 8}}};

} // namespace

bool isPrintable(QByteArrayView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character >= ' ' && character <= '~'; });
}

bool isWellFormed(char id, const QByteArray& reply)
{
    for (const auto& [ids, isOfForm, shortest, longest] : kReplyForms) {
        if (ids.find(id) != ids.npos)
            return reply.size() >= shortest && reply.size() <= longest && isOfForm(reply);
    }
    return false;
}

bool isSameValue(char id, const QByteArray& one, const QByteArray& other)
{
    if (one == other)
        return true;
    if (!isWellFormed(id, one) || !isWellFormed(id, other))
        return false;
    switch (id) {
    case 'A':
    case 'U':
        return significant(one) == significant(other);
    case 'L':
        return one.left(2) == other.left(2) && significant(one.mid(2)) == significant(other.mid(2));
    case 'N':
        return decodeOffsetCounts(one) == decodeOffsetCounts(other);
    case 'F':
    case 'P':
    case 'V':
        return false; // texts
    default:
        return significant(one.toUpper()) == significant(other.toUpper());
    }
}

QByteArray padValueText(const QByteArray& text, int width)
{
    return text.size() > width ? text.right(width) : text.rightJustified(width, '0');
}

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
    return threeBytes(flags, errorSkipCount, dataBits);
}

int DataFormat::multiplier() const
{
    return 1 << ((flags & kMultiplierMask) >> 6);
}

Extension Extension::decode(const QByteArray& text)
{
    return {hexToLong(text.left(2)), hexToLong(text.mid(2, 2)), hexToLong(text.right(2))};
}

QByteArray Extension::encode() const
{
    return threeBytes(extension, mode, magnets);
}

double decodeResolutionMm(const QByteArray& text)
{
    return integerPrefix(text) * 0.001;
}

QByteArray encodeResolution(int micrometres)
{
    return QString::asprintf("%08d", micrometres).toLatin1();
}

double decodeStrokeMm(const QByteArray& text)
{
    return integerPrefix(text.mid(2));
}

QByteArray encodeStroke(const QByteArray& packageCode, const QByteArray& millimetres)
{
    return packageCode + millimetres.rightJustified(4, '0');
}

double decodeGradient(const QByteArray& text)
{
    return integerPrefix(text) * 0.01;
}

std::optional<QByteArray> encodeGradient(double gradient)
{
    constexpr double kLargest = 999'999'999;
    const double hundredths = std::round(gradient * 100.0);
    if (!(hundredths >= 0.0 && hundredths <= kLargest))
        return std::nullopt;
    return QString::asprintf("%06d", static_cast<qint32>(hundredths)).toLatin1();
}

std::optional<QByteArray> encodeScale(double gradient, double resolutionMm)
{
    constexpr double kLargest = 0xFFFFFF;
    const double scale = std::trunc(gradient / (resolutionMm * 1000) * 512);
    if (!(scale >= 0.0 && scale <= kLargest))
        return std::nullopt;
    return sixHexDigits(static_cast<quint32>(scale));
}

int cycleCode(double strokeMm)
{
    if (strokeMm >= 600)
        return cycleCodeM(strokeMm);
    if (strokeMm >= 300)
        return static_cast<int>(strokeMm * 2.994011976047904 + 170.0);
    return static_cast<int>(strokeMm * 5.988023952095808 + 528.0);
}

/// The code of long strokes is taken for all.
int cycleCodeM(double strokeMm)
{
    return static_cast<int>(strokeMm * 1.497005988023952 + 208.0);
}

QByteArray encodeCycleCode(double strokeMm)
{
    return QString::asprintf("%04X32", static_cast<unsigned>(cycleCode(strokeMm))).toLatin1();
}

QByteArray encodeCycleCodeM(double strokeMm, quint8 suffix)
{
    return sixHexDigits(static_cast<quint32>(cycleCodeM(strokeMm)) << 8 | suffix);
}

QByteArray encodeFactoryValue(quint32 value)
{
    return sixHexDigits(value);
}

qint32 decodeOffsetCounts(const QByteArray& text)
{
    const QByteArray kNegative = QByteArrayLiteral("FF");
    const bool negative = text.left(2).toUpper() == kNegative;
    return hexToLong(negative ? kNegative + text : text);
}

std::optional<QByteArray> encodeOffsetCounts(qint64 counts)
{
    const QByteArray text = sixHexDigits(static_cast<quint32>(counts & 0xFFFFFF));
    if (decodeOffsetCounts(text) != counts)
        return std::nullopt;
    return text;
}

std::optional<QByteArray> encodeOffset(double offsetMm, double resolutionMm, int multiplier)
{
    constexpr double kFarBeyond = 1e9; // any text's counts, and still an integer
    const double counts = std::round(offsetMm / resolutionMm) * multiplier;
    if (!(std::abs(counts) < kFarBeyond))
        return std::nullopt;
    return encodeOffsetCounts(static_cast<qint64>(counts));
}

} // namespace pelorin
