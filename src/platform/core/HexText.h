#pragma once

#include <QAnyStringView>
#include <QByteArrayView>
#include <QtGlobal>

namespace pelorin {

/// The value of the run of hexadecimal digits at the end of a sensor's answer. Whatever stands
/// before the run is ignored; an empty run gives 0. The value wraps at 32 bits: only the last
/// eight digits count, and eight digits from 80000000 on are negative.
[[nodiscard]] qint32 hexToLong(QAnyStringView text);

/// The value of a hexadecimal text as somebody types it: blanks around it, a leading "0x" and
/// both letter cases are understood. Reading stops at the first other character, so a text that
/// does not begin with a hexadecimal digit gives 0. The value keeps its low 32 bits.
[[nodiscard]] quint32 hexToInt(QAnyStringView text);

/// Whether hexToInt reads the whole text and loses nothing: at least one digit, no other
/// character, a value of at most 32 bits.
[[nodiscard]] bool isHex(QAnyStringView text);

/// Whether a text of the device is hexadecimal digits of either case, at least one, and nothing
/// else.
[[nodiscard]] bool isHexDigits(QByteArrayView text);

} // namespace pelorin
