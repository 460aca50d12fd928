#pragma once

#include "app/PelorinMainWindow.h"
#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "platform/core/UserFolders.h"
#include "sensor/FormatRestore.h"
#include "sensor/KeptFormats.h"
#include "sensor/SequenceRunner.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedSensor.h"
#include "support/Languages.h"
#include "support/LogLines.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

#include <functional>
#include <memory>
#include <optional>

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
                           const QByteArray& settings = {})
        : m_settings(kSimulatedBounds + kPlainWrites + settings),
          m_sensor(std::make_shared<SimulatedSensor>(options))
    {
        Pacing::setSpeeds({100, 200, 1});   // a loaded machine must not miss a time limit
        (void)QFile::remove(profilePath()); // of a test before
    }

    /// Opens the port and shows the main window, which then connects by itself.
    /// @param between what happens before there is the window
    void start(const std::function<void()>& between = [] {})
    {
        std::optional<bool> opened;
        m_runner.openPort(kPort, [&opened](bool result) { opened = result; });
        if (!waitFor([&opened] { return opened.has_value(); }) || !*opened)
            qWarning("The simulated port could not be opened");
        between();
        m_window = std::make_unique<PelorinMainWindow>(
            m_factory, PelorinMainWindow::Conversation{m_runner, m_formats, m_restore},
            m_languages);
        m_window->resize(1280, 720);
        m_window->show();
    }
    /// Starts, and waits until page 0 has read its values. @return false if it does not
    [[nodiscard]] bool startConnected()
    {
        start();
        return waitFor([this] { return m_window->currentPage() == 0; }) && waitIdle();
    }

    [[nodiscard]] SimulatedSensor& sensor() { return *m_sensor; }
    [[nodiscard]] const std::shared_ptr<SimulatedSensor>& sharedSensor() { return m_sensor; }
    [[nodiscard]] SimulatedDisplayUnit& displayUnit() { return *m_displayUnit; }
    [[nodiscard]] const ComPortFactory& factory() const { return m_factory; }
    [[nodiscard]] SensorLink& link() { return m_link; }
    [[nodiscard]] SequenceRunner& runner() { return m_runner; }
    [[nodiscard]] KeptFormats& formats() { return m_formats; }
    [[nodiscard]] LanguageManager& languages() { return m_languages; }
    [[nodiscard]] const TestRegistry& settings() const { return m_settings; }
    [[nodiscard]] PelorinMainWindow& window() { return *m_window; }
    /// Destroys the window, as at the program's end.
    void destroyWindow() { m_window.reset(); }

    using Wrapper = std::function<std::unique_ptr<ComPort>(std::unique_ptr<ComPort>)>;
    /// What is put around each port that is made from now on.
    void wrapPorts(Wrapper wrapper) { m_wrapper = std::move(wrapper); }
    /// How often the sensor's port has been opened or tried.
    [[nodiscard]] int openAttempts() const { return m_openAttempts; }

    /// Waits until the window takes input. @return false if it does not
    [[nodiscard]] bool waitIdle()
    {
        constexpr int kIdlePasses = 4; // in one of which comes what a plan leaves to be told
        QObject ignoresKeys;
        int idle = 0;
        return waitFor([&] {
            // Input that comes right after a plan is dropped: the filter has taken it then.
            QKeyEvent key(QEvent::KeyRelease, Qt::Key_unknown, {});
            const bool taken = QCoreApplication::sendEvent(&ignoresKeys, &key);
            if (idle < kIdlePasses) // else it was idle, whatever begins then
                idle = taken || m_window->isBusy() ? 0 : idle + 1;
            return idle == kIdlePasses;
        });
    }
    [[nodiscard]] QListWidget& pageList() { return page<QListWidget>("pageList"); }
    /// Clicks a row of the page list.
    void clickPage(int row)
    {
        const QRect place = pageList().visualItemRect(pageList().item(row));
        QTest::mouseClick(pageList().viewport(), Qt::LeftButton, {}, place.center());
    }
    /// Clicks a page's row and waits until it is shown and idle.
    [[nodiscard]] bool choosePage(int row)
    {
        clickPage(row);
        return waitFor([&] { return m_window->currentPage() == row; }) && waitIdle();
    }
    /// Closes the window as the desktop does when its button is clicked.
    void closeByHand()
    {
        QCloseEvent event;
        QSpontaneKeyEvent::setSpontaneous(&event);
        (void)qApp->notify(m_window->windowHandle(), &event);
    }
    void clickRefresh() { QTest::mouseClick(&page<QPushButton>("refreshButton"), Qt::LeftButton); }
    /// Opens the menu that has the command and clicks its item. @return false if it is greyed
    [[nodiscard]] bool clickCommand(int command)
    {
        QMenuBar& bar = *m_window->menuBar();
        const auto click = [](auto& menu, QAction* item) {
            QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(item).center());
        };
        for (QAction* top : bar.actions()) {
            QMenu* menu = top->menu();
            for (QAction* item : menu ? menu->actions() : QList<QAction*>{top}) {
                if (item->data().toInt() != command)
                    continue;
                click(bar, top);
                const bool enabled = item->isEnabled();
                if (menu && enabled)
                    click(*menu, item);
                if (menu)
                    menu->close();
                return enabled;
            }
        }
        return false;
    }

    /// What the sensor has received since the last call, blanks between the frames.
    [[nodiscard]] QString frames()
    {
        QStringList frames;
        for (const std::string& frame : m_sensor->takeReceivedFrames())
            frames << QString::fromStdString(frame);
        return frames.join(u' ');
    }
    /// Those of them that write or close.
    [[nodiscard]] QString writtenFrames()
    {
        static const QRegularExpression write(QStringLiteral("^.N"));
        return frames().split(u' ').filter(write).join(u' ');
    }

    [[nodiscard]] QString statusText() { return page<QLabel>("messagePane").text(); }
    /// What the strip above the page says.
    [[nodiscard]] QString noticeText() { return page<QLabel>("noticeText").text(); }
    /// What the light says, in words.
    [[nodiscard]] QString lightText() { return page<QLabel>("linkLight").accessibleDescription(); }
    [[nodiscard]] QStringList logged() { return logLines(m_link.commLog()); }
    /// How often a sensor has been connected and identified.
    [[nodiscard]] qsizetype connects()
    {
        return logged().filter(QStringLiteral("SSI Type")).size();
    }

    /// A page of the window, or one of its other parts by name.
    template <class Part>
    [[nodiscard]] Part& page(const char* name = nullptr)
    {
        return *m_window->findChild<Part*>(QLatin1String(name));
    }

private:
    [[nodiscard]] std::unique_ptr<ComPort> makePort(const QString& device)
    {
        const bool isDisplay = device == QLatin1String("simulator:display");
        m_openAttempts += isDisplay ? 0 : 1;
        auto port = isDisplay ? std::make_unique<SimulatedComPort>(m_displayUnit)
                              : std::make_unique<SimulatedComPort>(m_sensor);
        return m_wrapper ? m_wrapper(std::move(port)) : std::move(port);
    }

    /// Of an earlier test; before kept formats and journal are read.
    const bool m_emptied =
        QDir(keptFormatsFolder()).removeRecursively() && QDir(journalFolder()).removeRecursively();
    TestRegistry m_settings;
    Languages m_languages{1};
    std::shared_ptr<SimulatedSensor> m_sensor;
    int m_openAttempts = 0;
    Wrapper m_wrapper;
    std::shared_ptr<SimulatedDisplayUnit> m_displayUnit = std::make_shared<SimulatedDisplayUnit>();
    ComPortFactory m_factory{[this](const QString& device) { return makePort(device); }};
    SensorLink m_link{m_factory};
    SequenceRunner m_runner{m_link};
    KeptFormats m_formats;
    FormatRestore m_restore{m_runner, m_formats};
    std::unique_ptr<PelorinMainWindow> m_window;
};

} // namespace pelorin::test
