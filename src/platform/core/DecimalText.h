#pragma once

#include <QAnyStringView>
#include <QString>
#include <QtGlobal>

namespace pelorin {

/// The number that a user typed: read with a decimal point first, because the program itself
/// shows numbers that way, then with the decimal separator of the user's locale. Blanks around
/// it are allowed. Group separators, exponents, infinity and any other text are no number.
/// @return the number, or not-a-number if the text is not wholly one
[[nodiscard]] double intlAtof(const QString& text);

/// The decimal number at the start of a text that a device or a settings file gave: blanks, an
/// optional sign, digits with an optional point. Reading stops at the first other character;
/// without digits the number is 0. The same in every locale.
[[nodiscard]] double decimalPrefix(QAnyStringView text);

/// The decimal integer at the start of a text, read as decimalPrefix reads it but without a
/// point. A number that does not fit becomes the nearest one that does.
[[nodiscard]] qint32 integerPrefix(QAnyStringView text);

} // namespace pelorin
