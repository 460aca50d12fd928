#include "Script.h"

#include "Chapters.h"
#include "app/Commands.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"

#include <QFile>

#include <bit>

namespace pelorin {

std::vector<Tour::Step> script(Tour& tour, SimulatedPorts& simulators, int language)
{
    for (const char* name : {"log.txt", "backup.dat", "comparison.csv", "lookup-table.csv",
                             "recording.csv", "report.pdf"}) // of an earlier tour
        (void)QFile::remove(tour.path(QLatin1String(name)));

    using namespace chapters;
    const auto sensor = simulators.sensor(QStringLiteral("simulator:sensor?type=2&moving=1"));
    const auto unit = simulators.displayUnit(QStringLiteral("simulator:display"));
    std::vector<Tour::Step> steps = {
        tour.command(kFirstLanguageCommand + std::countr_zero(static_cast<unsigned>(language)))};
    for (const auto& chapter :
         {information(tour), livePosition(tour), pausedAndRecorded(tour), outputSetup(tour),
          verifiedApply(tour, sensor), communicationsLog(tour), manualCommunications(tour),
          factoryParameters(tour, sensor), earlierStates(tour), backupAndRestore(tour, sensor),
          replacedSensor(tour, sensor), savedFiles(tour), comparison(tour, sensor),
          temperatureCompensation(tour), settings(tour), displayUnit(tour, unit),
          portsAndRevisions(tour, sensor)})
        steps.insert(steps.end(), chapter.begin(), chapter.end());
    return steps;
}

} // namespace pelorin
