#pragma once

#include "Tour.h"

#include <functional>
#include <memory>
#include <vector>

namespace pelorin {

class SimulatedDisplayUnit;
class SimulatedSensor;

/// What the script is made of: each chapter shows one thing, and leaves the program so that the
/// next one can begin. They follow each other as the script has them: the log tells of what was
/// written before, the backup is restored and compared.
namespace chapters {

using Steps = std::vector<Tour::Step>;
using Sensor = std::shared_ptr<SimulatedSensor>;

/// The pages' captions, by their numbers.
enum Page : int {
    kInformation = 110,
    kOutputSetup = 168,
    kLog = 188,
    kFactory = 214,
    kTempComp = 253,
    kPosition = 261
};

// The pages.
[[nodiscard]] Steps information(Tour& tour);
[[nodiscard]] Steps livePosition(Tour& tour);
[[nodiscard]] Steps pausedAndRecorded(Tour& tour);
[[nodiscard]] Steps outputSetup(Tour& tour);
/// The first Apply meets a fault of the sensor.
[[nodiscard]] Steps verifiedApply(Tour& tour, const Sensor& sensor);
[[nodiscard]] Steps communicationsLog(Tour& tour);
[[nodiscard]] Steps factoryParameters(Tour& tour, const Sensor& sensor);
[[nodiscard]] Steps temperatureCompensation(Tour& tour);

// What the menu offers.
[[nodiscard]] Steps manualCommunications(Tour& tour);
[[nodiscard]] Steps earlierStates(Tour& tour);
[[nodiscard]] Steps backupAndRestore(Tour& tour, const Sensor& sensor);
[[nodiscard]] Steps replacedSensor(Tour& tour, const Sensor& sensor);
[[nodiscard]] Steps savedFiles(Tour& tour);
[[nodiscard]] Steps comparison(Tour& tour, const Sensor& sensor);
[[nodiscard]] Steps settings(Tour& tour);
[[nodiscard]] Steps displayUnit(Tour& tour, const std::shared_ptr<SimulatedDisplayUnit>& unit);
[[nodiscard]] Steps portsAndRevisions(Tour& tour, const Sensor& sensor);

// What several of them wait for or check.
[[nodiscard]] bool isAsking();
[[nodiscard]] bool noDialog();
/// Whether a window that is on top of the main window has the control.
[[nodiscard]] std::function<bool()> isShown(const char* control);
[[nodiscard]] QByteArray contentOf(const QString& path);
[[nodiscard]] Tour::Step holds(const Sensor& sensor, char parameter, const char* text);
[[nodiscard]] Tour::Step printHeld(Tour& tour, const Sensor& sensor, char parameter);

} // namespace chapters

} // namespace pelorin
