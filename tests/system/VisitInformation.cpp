#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "pages/SensorInfoPage.h"

#include <QTableWidget>

namespace pelorin {

bool visitInformation(Tour& tour)
{
    if (!tour.waitIdle())
        return false;
    Tour::print(QStringLiteral("Sensor information"));
    Tour::print(*tour.window().findChild<SensorInfoPage*>()->findChild<QTableWidget*>());
    return tour.save("information");
}

} // namespace pelorin
