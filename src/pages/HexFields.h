#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace pelorin {

/// One byte of a text such as "50,52,4F", in which somebody types bytes.
struct HexField
{
    qsizetype start = 0; ///< where the field begins in the text
    QString text;        ///< what stands between the commas
    char byte = 0;       ///< the low eight bits of its value
    bool isHex = false;  ///< false: the byte is what can be made of the text, 0 for nothing
};

/// The fields of a text, each ended by a comma; the last comma may be left out. An empty text has
/// none.
[[nodiscard]] std::vector<HexField> hexFieldsOf(const QString& text);

/// The bytes as two upper-case digits each, with commas in between.
[[nodiscard]] QString hexFieldsText(const QByteArray& bytes);

} // namespace pelorin
