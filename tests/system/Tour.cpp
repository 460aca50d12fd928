// The tour: runs the program on a simulated sensor, visits every page by real clicks, saves one
// picture a page and prints the values shown.

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QStatusBar>
#include <QTableWidget>
#include <QTest>

#include <cstdio>

using namespace pelorin;

namespace {

constexpr int kConnectTime = 20'000; ///< ms; far beyond two attempts

void print(const QString& line)
{
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

/// Drives the program as a technician would, and stops it with a message where it does not
/// behave.
class Tour
{
public:
    Tour(PelorinMainWindow& window, QDir folder) : m_window(window), m_folder(std::move(folder)) {}

    [[nodiscard]] bool visitInformation()
    {
        if (!waitIdle() || m_window.currentPage() != 0)
            return fail("the sensor was not connected");
        const auto* list = m_window.findChild<SensorInfoPage*>()->findChild<QTableWidget*>();
        print(QStringLiteral("Sensor information"));
        for (int row = 0; row < list->rowCount(); ++row) {
            print(QStringLiteral("  %1 %2 %3")
                      .arg(list->item(row, 0)->text(), -34)
                      .arg(list->item(row, 1)->text(), -44)
                      .arg(list->item(row, 2)->text()));
        }
        return save("information");
    }

    [[nodiscard]] bool visitPosition()
    {
        if (!choosePage(1))
            return false;
        const auto* box = m_window.findChild<QLabel*>(QStringLiteral("positionBox"));
        QStringList positions;
        for (int update = 0; update < 3; ++update) {
            const QString last = positions.isEmpty() ? box->text() : positions.back();
            if (!QTest::qWaitFor([&] { return box->text() != last; }, kConnectTime))
                return fail("the position does not move");
            positions << box->text();
        }
        print(QStringLiteral("Magnet position: %1 mm").arg(positions.join(QStringLiteral(", "))));
        return save("position") && choosePage(0);
    }

private:
    [[nodiscard]] bool waitIdle()
    {
        return QTest::qWaitFor(
            [this] {
                return m_window.currentPage() >= 0 && !m_window.isBusy();
            },
            kConnectTime);
    }

    [[nodiscard]] bool choosePage(int index)
    {
        auto* list = m_window.findChild<QListWidget*>(QStringLiteral("pageList"));
        const QPoint place = list->visualItemRect(list->item(index)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
        const bool shown = QTest::qWaitFor(
            [&] { return m_window.currentPage() == index && !m_window.isBusy(); }, kConnectTime);
        return shown || fail("a page did not come up");
    }

    [[nodiscard]] bool save(const char* name)
    {
        const QString path = m_folder.filePath(QLatin1String(name) + QStringLiteral(".png"));
        if (!m_window.grab().save(path))
            return fail("a picture could not be saved");
        print(QStringLiteral("  saved %1").arg(path));
        return true;
    }

    static bool fail(const char* what)
    {
        print(QStringLiteral("The tour failed: %1").arg(QLatin1String(what)));
        return false;
    }

    PelorinMainWindow& m_window;
    QDir m_folder;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const QDir folder(arguments.value(1, QStringLiteral(".")));
    const QString port = arguments.value(2, QStringLiteral("/CP:99"));
    if (!folder.mkpath(QStringLiteral(".")))
        return EXIT_FAILURE;

    SimulatedPorts simulators;
    ComPortFactory factory([](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    });
    factory.addScheme(QStringLiteral("simulator:"),
                      [&simulators](const QString& name) { return simulators.makePort(name); });
    PelorinApp pelorin(factory);
    if (!pelorin.initInstance(port) || !pelorin.mainWindow())
        return EXIT_FAILURE;

    if (const auto sensor = simulators.sensor(QStringLiteral("simulator:sensor?type=2")))
        sensor->setMoving(true);
    Tour tour(*pelorin.mainWindow(), folder);
    const bool passed = tour.visitInformation() && tour.visitPosition();
    pelorin.requestClose();
    pelorin.exitInstance();
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
}
