#include "Tour.h"
#include "Visits.h"

#include "app/PelorinMainWindow.h"
#include "simulator/SimulatedSensor.h"

#include <QLabel>
#include <QTest>

namespace pelorin {

bool visitPosition(Tour& tour)
{
    constexpr int kUpdates = 3;
    tour.sensor().setMoving(true);
    if (!tour.choosePage(Tour::Page::Position))
        return false;
    const auto* box = tour.window().findChild<QLabel*>(QStringLiteral("positionBox"));
    if (!QTest::qWaitFor([&] { return box->text() != QStringLiteral("****"); }, Tour::kTimeLimit))
        return Tour::fail("there is no position");
    QStringList positions;
    for (int update = 0; update < kUpdates; ++update) {
        const QString last = box->text();
        if (!QTest::qWaitFor([&] { return box->text() != last; }, Tour::kTimeLimit))
            return Tour::fail("the position does not move");
        positions << box->text();
    }
    Tour::print(QStringLiteral("Magnet position: %1 mm").arg(positions.join(QStringLiteral(", "))));
    return tour.save("position") && tour.choosePage(Tour::Page::Information);
}

} // namespace pelorin
