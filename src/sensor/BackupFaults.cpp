#include "sensor/BackupFaults.h"

#include "sensor/ParameterCodec.h"

namespace pelorin {

namespace {

constexpr int kShortest = 6; ///< of what a sensor has ever answered
constexpr int kLongest = 8;

bool isUsable(const QByteArray& text)
{
    return text.size() >= kShortest && text.size() <= kLongest && isPrintable(text);
}

} // namespace

BackupFaults BackupFaults::of(const SensorValues& values, std::string_view parameters)
{
    BackupFaults faults;
    for (const char id : parameters) {
        const auto value = values.find(id);
        if (value == values.end() || value->second.isEmpty()) {
            faults.missing += id;
        } else if (!isUsable(value->second)) {
            faults.unfit += id;
        }
    }
    return faults;
}

} // namespace pelorin
