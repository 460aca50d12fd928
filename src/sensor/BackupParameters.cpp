#include "sensor/BackupParameters.h"

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kWriteDataMaximum = 9; ///< what a frame to the sensor can carry

} // namespace

bool hasControlCharacters(const QByteArray& text)
{
    return std::any_of(text.cbegin(), text.cend(), [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x20 || byte == 0x7F;
    });
}

BackupFaults BackupFaults::of(const BackupValues& values, std::string_view parameters)
{
    BackupFaults faults;
    for (const char id : parameters) {
        const QByteArray& text = values[id];
        if (text.isEmpty())
            faults.missing += id;
        else if (text.size() > kWriteDataMaximum || hasControlCharacters(text))
            faults.unfit += id;
    }
    return faults;
}

} // namespace pelorin
