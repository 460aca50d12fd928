#include "sensor/SensorTypes.h"

#include "link/SensorIdentification.h"

#include <array>

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

} // namespace

const SensorType& sensorType(int ssiType)
{
    const bool known = ssiType >= 0 && ssiType < kSsiTypeCount;
    return kTypes[static_cast<std::size_t>(known ? ssiType : kSsiTypeUnknown)];
}

int parameterName(char id)
{
    constexpr std::string_view kIds = "DALFVUSPZNMJKO";
    constexpr std::array kNames = {122, 140, 142, 138, 139, 143, 145,
                                   147, 148, 149, 150, 151, 153, 154};
    static_assert(kIds.size() == kNames.size());
    const auto index = kIds.find(id);
    return index < kNames.size() ? kNames[index] : 0;
}

} // namespace pelorin
