#pragma once

#include <QDir>
#include <QString>

#include <memory>

class QFileDialog;
class QTableWidget;

namespace pelorin {

class PelorinMainWindow;
class SimulatedDisplayUnit;
class SimulatedSensor;

/// Drives the program on a simulated sensor as a technician would, by real clicks, saves pictures
/// and prints the values shown. What does not behave ends the tour with a message.
class Tour
{
public:
    /// The pages, by the numbers of their captions.
    enum class Page {
        Information = 110,
        Position = 261,
        OutputSetup = 168,
        Log = 188,
        Factory = 214,
        TempComp = 253
    };
    static constexpr int kTimeLimit = 30'000; ///< ms; far beyond a connect and a page's sequence

    Tour(PelorinMainWindow& window, std::shared_ptr<SimulatedSensor> sensor,
         std::shared_ptr<SimulatedDisplayUnit> displayUnit, QDir folder);

    [[nodiscard]] PelorinMainWindow& window() const { return m_window; }
    [[nodiscard]] SimulatedSensor& sensor() const { return *m_sensor; }
    [[nodiscard]] SimulatedDisplayUnit& displayUnit() const { return *m_displayUnit; }
    [[nodiscard]] const QDir& folder() const { return m_folder; }

    /// Clicks a page's row and waits until it is shown and idle.
    [[nodiscard]] bool choosePage(Page page);
    /// Clicks the item of a command in its menu. @return false if there is none
    [[nodiscard]] bool clickCommand(int command);
    /// Types the path of a file and presses Enter.
    static void enterPath(const QFileDialog& dialog, const QString& path);
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
    std::shared_ptr<SimulatedDisplayUnit> m_displayUnit;
    QDir m_folder;
};

} // namespace pelorin
