#include "sensor/LookupTableFile.h"

#include "platform/core/HexText.h"

#include <string_view>

namespace pelorin {

namespace {

constexpr std::string_view kMarker = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
constexpr qint64 kLargestFile = qint64{8} * 1024 * 1024;

/// Takes the first line, without its end, off a text.
std::string_view takeLine(std::string_view& text)
{
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos) {
        text = {};
        return line;
    }
    text.remove_prefix(end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

quint32 hexField(std::string_view field)
{
    return hexToInt(QLatin1String(field.data(), static_cast<qsizetype>(field.size())));
}

CompensationEntry decodedLine(std::string_view line)
{
    const auto comma = line.find(',');
    if (comma == std::string_view::npos)
        return {};
    return {static_cast<qint16>(hexField(line.substr(0, comma))),
            static_cast<qint32>(hexField(line.substr(comma + 1)))};
}

} // namespace

QByteArray lookupTableText(const CompensationTable& table)
{
    QByteArray text(kMarker.data(), static_cast<qsizetype>(kMarker.size()));
    text += "\r\n";
    for (const auto& [point, value] : table) {
        text += QString::asprintf("%04X,%08X\r\n", static_cast<quint32>(point),
                                  static_cast<quint32>(value))
                    .toLatin1();
    }
    return text;
}

std::optional<CompensationTable> lookupTableOf(const QByteArray& text)
{
    std::string_view rest(text.constData(), static_cast<std::size_t>(text.size()));
    if (takeLine(rest) != kMarker)
        return std::nullopt;
    CompensationTable table;
    while (!rest.empty())
        table.push_back(decodedLine(takeLine(rest)));
    return table;
}

WholeFile::Outcome writeLookupTableFile(const QString& path, const CompensationTable& table)
{
    return WholeFile(path).save(lookupTableText(table));
}

LookupTableReading readLookupTableFile(const QString& path)
{
    const auto [outcome, content] = WholeFile(path).read(kLargestFile);
    return {outcome, lookupTableOf(content)};
}

} // namespace pelorin
