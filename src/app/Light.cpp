#include "app/Light.h"

#include "platform/ui/Pictures.h"

#include <array>

namespace pelorin {

QPixmap lightPixmap(Light light)
{
    constexpr QSize kSize(13, 13); // logical pixels
    constexpr std::array kNames = {"BMP_PELORIN_GREENLED", "BMP_PELORIN_REDLED",
                                   "BMP_PELORIN_GRAYLED"};
    return picture(QLatin1String(kNames[static_cast<std::size_t>(light)])).pixmap(kSize);
}

} // namespace pelorin
