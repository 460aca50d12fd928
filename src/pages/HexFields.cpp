#include "pages/HexFields.h"

#include "platform/core/HexText.h"

namespace pelorin {

std::vector<HexField> hexFieldsOf(const QString& text)
{
    std::vector<HexField> fields;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = text.indexOf(QLatin1Char(','), start);
        if (end < 0)
            end = text.size();
        const QString field = text.mid(start, end - start);
        fields.push_back({start, field, static_cast<char>(hexToInt(field)), isHex(field)});
        start = end + 1;
    }
    return fields;
}

QString hexFieldsText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(',').toUpper());
}

} // namespace pelorin
