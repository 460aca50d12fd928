#include "platform/core/DecimalText.h"

#include <QByteArray>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace pelorin {

namespace {

/// Whether a text is made of digits, signs and decimal separators alone. What the conversions
/// of the toolkit take beyond that (exponents, "inf", "nan") is kept out here.
bool looksLikeNumber(const QString& text, const QLocale& locale)
{
    const QString others = QLatin1String("+-.") + locale.positiveSign() + locale.negativeSign() +
                           locale.decimalPoint();
    return std::all_of(text.cbegin(), text.cend(), [&others](QChar character) {
        return character.isDigit() || others.contains(character);
    });
}

struct NumberStart
{
    bool negative = false;
    std::string_view digits; ///< what follows blanks and sign
};

NumberStart numberStart(const QByteArray& text)
{
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()));
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\n\v\f\r"), rest.size()));
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    return {negative, rest};
}

/// from_chars takes a second sign, "inf" and "nan", which are no digits here.
bool startsWithDigit(std::string_view text, bool pointAllowed)
{
    return !text.empty() &&
           ((text.front() >= '0' && text.front() <= '9') || (pointAllowed && text.front() == '.'));
}

} // namespace

double intlAtof(const QString& text)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    QLocale locale;
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    const QString trimmed = text.trimmed();
    if (!looksLikeNumber(trimmed, locale))
        return notANumber;

    bool ok = false;
    double number = trimmed.toDouble(&ok);
    if (!ok)
        number = locale.toDouble(trimmed, &ok);
    return ok && std::isfinite(number) ? number : notANumber;
}

double decimalPrefix(QAnyStringView text)
{
    const QByteArray latin = text.toString().toLatin1();
    const auto [negative, digits] = numberStart(latin);
    double number = 0.0;
    if (startsWithDigit(digits, true)) {
        std::from_chars(digits.data(), digits.data() + digits.size(), number,
                        std::chars_format::fixed);
    }
    return negative ? -number : number;
}

qint32 integerPrefix(QAnyStringView text)
{
    const QByteArray latin = text.toString().toLatin1();
    const auto [negative, digits] = numberStart(latin);
    qint64 number = 0;
    if (startsWithDigit(digits, false)) {
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (result.ec == std::errc::result_out_of_range)
            number = std::numeric_limits<qint64>::max();
    }
    const qint64 value = negative ? -number : number;
    return static_cast<qint32>(std::clamp<qint64>(value, std::numeric_limits<qint32>::min(),
                                                  std::numeric_limits<qint32>::max()));
}

} // namespace pelorin
