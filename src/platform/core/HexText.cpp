#include "platform/core/HexText.h"

#include <QString>

#include <algorithm>
#include <optional>

namespace pelorin {

namespace {

std::optional<quint32> digitValue(QChar character)
{
    const char16_t code = character.unicode();
    if (code >= u'0' && code <= u'9')
        return code - u'0';
    if (code >= u'A' && code <= u'F')
        return code - u'A' + 10U;
    if (code >= u'a' && code <= u'f')
        return code - u'a' + 10U;
    return std::nullopt;
}

/// The text without the blanks around it and without its "0x".
QString digitsOf(QAnyStringView text)
{
    const QString trimmed = text.toString().trimmed();
    const bool prefixed = trimmed.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    return prefixed && trimmed.size() > 2 && digitValue(trimmed.at(2)) ? trimmed.mid(2) : trimmed;
}

} // namespace

qint32 hexToLong(QAnyStringView text)
{
    const QString characters = text.toString();
    quint32 value = 0;
    quint32 weight = 1;
    for (auto character = characters.crbegin(); character != characters.crend(); ++character) {
        const auto digit = digitValue(*character);
        if (!digit)
            break;
        value += *digit * weight;
        weight *= 16;
    }
    return static_cast<qint32>(value);
}

quint32 hexToInt(QAnyStringView text)
{
    const QString digits = digitsOf(text);
    quint32 value = 0;
    for (const QChar character : digits) {
        const auto digit = digitValue(character);
        if (!digit)
            break;
        value = value * 16 + *digit;
    }
    return value;
}

bool isHex(QAnyStringView text)
{
    const QString digits = digitsOf(text);
    quint64 value = 0;
    for (const QChar character : digits) {
        const auto digit = digitValue(character);
        if (!digit)
            return false;
        value = value * 16 + *digit;
        if (value > 0xFFFFFFFF)
            return false;
    }
    return !digits.isEmpty();
}

bool isHexDigits(QByteArrayView text)
{
    const auto isDigit = [](char character) {
        return digitValue(QLatin1Char(character)).has_value();
    };
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace pelorin
