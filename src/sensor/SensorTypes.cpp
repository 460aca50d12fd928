#include "sensor/SensorTypes.h"

#include "link/SensorIdentification.h"
#include "platform/core/Strings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pelorin {

namespace {

constexpr std::array<SensorType, kSsiTypeCount + 1> kTypes = {{
    {.information = "DALFVUSPZN",
     .outputRead = "DAUNL",
     .outputWrite = "DASN",
     .factoryRead = "FDLUPAN",
     .factoryWrite = "FLUSZPDN",
     .backup = "DALUSPZN",
     .closing = 'C'},
    {.information = "DALFVUSPZNM",
     .outputRead = "DAUNL",
     .outputWrite = "DASN",
     .factoryRead = "FDLUPANM",
     .factoryWrite = "FLUSZPDNM",
     .backup = "DALUSPZNM",
     .closing = 'E'},
    {.information = "DALFVUSPZNMJKO",
     .outputRead = "DAUNLK",
     .outputWrite = "DASNK",
     .factoryRead = "FDLUPANMJO",
     .factoryWrite = "FLUSZPDNMJO",
     .backup = "DALUSPZNMJKO",
     .closing = 'C'},
    // Not identified: it may have everything, and nothing is written to it.
    {.information = "DALFVUSPZNMJKO",
     .outputRead = "DAUNL",
     .outputWrite = "DASN",
     .factoryRead = "FDLUPANMJO",
     .factoryWrite = "FLUSZPDNMJO",
     .backup = {},
     .closing = 0},
}};

constexpr std::array<std::pair<char, int>, 14> kNames = {{
    {'D', strings::kDataFormat},
    {'A', strings::kResolution},
    {'L', strings::kStrokeLength},
    {'F', strings::kFactoryText},
    {'V', strings::kFirmwareVersion},
    {'U', strings::kGradient},
    {'S', strings::kScaleFactor},
    {'P', strings::kFactoryTextP},
    {'Z', strings::kCycleCodeZ},
    {'N', strings::kOffset},
    {'M', strings::kCycleCodeM},
    {'J', strings::kFactoryValueJ},
    {'K', strings::kAdvancedSetup},
    {'O', strings::kFactoryValueO},
}};

} // namespace

const SensorType& sensorType(int ssiType)
{
    const bool known = ssiType >= 0 && ssiType < kSsiTypeCount;
    return kTypes[static_cast<std::size_t>(known ? ssiType : kSsiTypeUnknown)];
}

int parameterName(char id)
{
    const auto hasId = [id](const auto& name) { return name.first == id; };
    const auto found = std::find_if(kNames.begin(), kNames.end(), hasId);
    return found != kNames.end() ? found->second : 0;
}

} // namespace pelorin
