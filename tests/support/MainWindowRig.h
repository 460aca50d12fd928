#pragma once

#include "app/PelorinMainWindow.h"
#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "sensor/FormatRestore.h"
#include "sensor/KeptFormats.h"
#include "sensor/SequenceRunner.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedSensor.h"
#include "support/Languages.h"
#include "support/TestRegistry.h"

#include <QString>

#include <functional>
#include <memory>

class QListWidget;

namespace pelorin::test {

/// The real main window on a simulated sensor, in English, the clock running fast. Input is
/// given as a user gives it, by clicks and keys. The device "simulator:display" is a display unit,
/// every other one the sensor.
class MainWindowRig
{
public:
    static constexpr int kPort = 7;

    /// @param settings what the settings file holds besides the revision bounds
    explicit MainWindowRig(const SimulatedSensor::Options& options = {.type = 2},
                           const QByteArray& settings = {});
    ~MainWindowRig();

    /// Opens the port and shows the main window, which then connects by itself.
    void start();
    /// Starts, and waits until page 0 has read its values. @return false if it does not
    [[nodiscard]] bool startConnected();

    [[nodiscard]] SimulatedSensor& sensor() { return *m_sensor; }
    [[nodiscard]] SimulatedDisplayUnit& displayUnit() { return *m_displayUnit; }
    [[nodiscard]] const ComPortFactory& factory() const { return m_factory; }
    [[nodiscard]] SensorLink& link() { return m_link; }
    [[nodiscard]] SequenceRunner& runner() { return m_runner; }
    [[nodiscard]] KeptFormats& formats() { return *m_formats; }
    [[nodiscard]] LanguageManager& languages() { return m_languages; }
    [[nodiscard]] const TestRegistry& settings() const { return m_settings; }
    [[nodiscard]] PelorinMainWindow& window() { return *m_window; }
    /// Destroys the window, as at the program's end.
    void destroyWindow() { m_window.reset(); }

    using Wrapper = std::function<std::unique_ptr<ComPort>(std::unique_ptr<ComPort>)>;
    /// What is put around each of the sensor's ports that is made from now on.
    void wrapPorts(Wrapper wrapper) { m_wrapper = std::move(wrapper); }
    /// How often the sensor's port has been opened or tried.
    [[nodiscard]] int openAttempts() const { return m_openAttempts; }

    /// Waits until the window takes input. @return false if it does not
    [[nodiscard]] bool waitIdle();
    [[nodiscard]] QListWidget& pageList();
    /// Clicks a row of the page list.
    void clickPage(int row);
    /// Clicks a page's row and waits until it is shown and idle.
    [[nodiscard]] bool choosePage(int row);
    void clickRefresh();
    /// Opens the menu that has the command and clicks its item. @return false if it is greyed
    [[nodiscard]] bool clickCommand(int command);

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames();

    [[nodiscard]] QString statusText();
    /// What the light says, in words.
    [[nodiscard]] QString lightText();
    [[nodiscard]] QStringList logged();

    /// A page of the window.
    template <class Page>
    [[nodiscard]] Page& page()
    {
        return *m_window->findChild<Page*>();
    }

private:
    [[nodiscard]] std::unique_ptr<ComPort> makePort(const QString& device);

    TestRegistry m_settings;
    Languages m_languages;
    std::shared_ptr<SimulatedSensor> m_sensor;
    int m_openAttempts = 0;
    Wrapper m_wrapper;
    std::shared_ptr<SimulatedDisplayUnit> m_displayUnit;
    ComPortFactory m_factory;
    SensorLink m_link;
    SequenceRunner m_runner;
    std::unique_ptr<KeptFormats> m_formats;
    std::unique_ptr<FormatRestore> m_restore;
    std::unique_ptr<PelorinMainWindow> m_window;
};

} // namespace pelorin::test
