#include "platform/core/LineSettings.h"

#include <charconv>

namespace pelorin {

namespace {

/// Takes the text up to the next comma off the front of rest.
std::string_view takeField(std::string_view& rest) noexcept
{
    const auto comma = rest.find(',');
    const auto field = rest.substr(0, comma);
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    return field;
}

bool parseNumber(std::string_view field, int& number) noexcept
{
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    return error == std::errc() && end == field.data() + field.size();
}

} // namespace

std::optional<LineSettings> LineSettings::parse(std::string_view text) noexcept
{
    LineSettings line;
    const bool baudRead = parseNumber(takeField(text), line.baud) && line.baud > 0;
    const auto parity = takeField(text);
    const bool dataBitsRead = parseNumber(takeField(text), line.dataBits);
    const bool stopBitsRead = parseNumber(text, line.stopBits);
    if (!baudRead || parity.size() != 1 || !dataBitsRead || !stopBitsRead)
        return std::nullopt;

    line.parity = parity.front();
    const bool parityKnown = line.parity == 'N' || line.parity == 'E' || line.parity == 'O';
    const bool sizesKnown =
        (line.dataBits == 7 || line.dataBits == 8) && (line.stopBits == 1 || line.stopBits == 2);
    if (!parityKnown || !sizesKnown)
        return std::nullopt;
    return line;
}

} // namespace pelorin
