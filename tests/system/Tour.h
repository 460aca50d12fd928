#pragma once

#include <QDir>
#include <QString>

#include <memory>

class QTableWidget;

namespace pelorin {

class PelorinMainWindow;
class SimulatedSensor;

/// Drives the program on a simulated sensor as a technician would, by real clicks, saves pictures
/// and prints the values shown. What does not behave ends the tour with a message.
class Tour
{
public:
    Tour(PelorinMainWindow& window, std::shared_ptr<SimulatedSensor> sensor, QDir folder);

    [[nodiscard]] PelorinMainWindow& window() const { return m_window; }
    [[nodiscard]] SimulatedSensor& sensor() const { return *m_sensor; }
    [[nodiscard]] const QDir& folder() const { return m_folder; }

    /// Clicks a page's row and waits until it is shown and idle.
    [[nodiscard]] bool choosePage(int row);
    /// Waits until a page is shown and nothing runs.
    [[nodiscard]] bool waitIdle();
    /// Saves a picture of a window under a name.
    [[nodiscard]] bool save(const char* name, QWidget& window) const;
    [[nodiscard]] bool save(const char* name) const;

    static void print(const QString& line);
    /// Prints the rows of a list.
    static void print(const QTableWidget& list);
    /// @return false
    static bool fail(const char* what);

private:
    PelorinMainWindow& m_window;
    std::shared_ptr<SimulatedSensor> m_sensor;
    QDir m_folder;
};

} // namespace pelorin
