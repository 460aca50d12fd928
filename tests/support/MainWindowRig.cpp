#include "support/MainWindowRig.h"

#include "platform/core/Pacing.h"
#include "platform/core/UserFolders.h"
#include "simulator/SimulatedComPort.h"
#include "support/LogLines.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace pelorin::test {

namespace {

constexpr Pacing::Speeds kFast{100, 200, 1}; // a loaded machine must not miss a time limit

/// Clicks an item of an open menu or of the menu bar.
template <class Menu>
void clickItem(Menu& menu, QAction* action)
{
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
}

/// Whether input reaches the program's objects again: what comes right after a plan is dropped.
bool takesInput()
{
    struct Probe : QObject
    {
        bool event(QEvent* /*event*/) override { return reached = true; }
        bool reached = false;
    } probe;
    QKeyEvent event(QEvent::KeyRelease, Qt::Key_unknown, {});
    QCoreApplication::sendEvent(&probe, &event);
    return probe.reached;
}

} // namespace

MainWindowRig::MainWindowRig(const SimulatedSensor::Options& options, const QByteArray& settings)
    : m_settings(kSimulatedBounds + settings), m_languages(1),
      m_sensor(std::make_shared<SimulatedSensor>(options)),
      m_displayUnit(std::make_shared<SimulatedDisplayUnit>()),
      m_factory([this](const QString& device) { return makePort(device); }), m_link(m_factory),
      m_runner(m_link)
{
    Pacing::setSpeeds(kFast);
    QDir(keptFormatsFolder()).removeRecursively(); // of an earlier test
    m_formats = std::make_unique<KeptFormats>();
    m_restore = std::make_unique<FormatRestore>(m_runner, *m_formats);
}

MainWindowRig::~MainWindowRig() = default;

std::unique_ptr<ComPort> MainWindowRig::makePort(const QString& device)
{
    if (device == QLatin1String("simulator:display"))
        return std::make_unique<SimulatedComPort>(m_displayUnit);
    ++m_openAttempts;
    auto port = std::make_unique<SimulatedComPort>(m_sensor);
    return m_wrapper ? m_wrapper(std::move(port)) : std::move(port);
}

void MainWindowRig::start()
{
    bool answered = false;
    bool opened = false;
    m_runner.openPort(kPort, [&](bool result) {
        answered = true;
        opened = result;
    });
    if (!waitFor([&] { return answered; }) || !opened)
        qWarning("The simulated port could not be opened");
    m_window = std::make_unique<PelorinMainWindow>(
        m_factory, PelorinMainWindow::Conversation{m_runner, *m_formats, *m_restore}, m_languages);
    m_window->resize(1280, 720);
    m_window->show();
}

bool MainWindowRig::startConnected()
{
    start();
    return waitFor([this] { return m_window->currentPage() == 0; }) && waitIdle();
}

bool MainWindowRig::waitIdle()
{
    // What a plan leaves to be told comes in one of the next passes of the event loop.
    constexpr int kPasses = 4;
    int idle = 0;
    return waitFor([&] {
        idle = !m_window->isBusy() && takesInput() ? idle + 1 : 0;
        return idle >= kPasses;
    });
}

QListWidget& MainWindowRig::pageList()
{
    return *m_window->findChild<QListWidget*>(QStringLiteral("pageList"));
}

void MainWindowRig::clickPage(int row)
{
    auto& list = pageList();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
}

bool MainWindowRig::choosePage(int row)
{
    clickPage(row);
    if (!waitFor([&] { return m_window->currentPage() == row; }))
        return false;
    return waitIdle();
}

void MainWindowRig::clickRefresh()
{
    QTest::mouseClick(m_window->findChild<QPushButton*>(QStringLiteral("refreshButton")),
                      Qt::LeftButton);
}

bool MainWindowRig::clickCommand(int command)
{
    QMenuBar& bar = *m_window->menuBar();
    for (QAction* top : bar.actions()) {
        if (top->data().toInt() == command) {
            clickItem(bar, top);
            return true;
        }
        for (QAction* item : top->menu() ? top->menu()->actions() : QList<QAction*>()) {
            if (item->data().toInt() != command)
                continue;
            clickItem(bar, top);
            const bool enabled = item->isEnabled();
            if (enabled)
                clickItem(*top->menu(), item);
            top->menu()->close();
            return enabled;
        }
    }
    return false;
}

QString MainWindowRig::frames()
{
    QStringList frames;
    for (const std::string& frame : m_sensor->takeReceivedFrames())
        frames << QString::fromStdString(frame);
    return frames.join(QLatin1Char(' '));
}

QString MainWindowRig::statusText()
{
    return m_window->findChild<QLabel*>(QStringLiteral("messagePane"))->text();
}

QString MainWindowRig::lightText()
{
    return m_window->findChild<QLabel*>(QStringLiteral("linkLight"))->accessibleDescription();
}

QStringList MainWindowRig::logged()
{
    return logLines(m_link.commLog());
}

} // namespace pelorin::test
