#include "support/MainWindowRig.h"

#include "platform/core/Pacing.h"
#include "sensor/FormatRestore.h"
#include "simulator/SimulatedComPort.h"
#include "support/LogLines.h"

#include <QFile>
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

} // namespace

MainWindowRig::MainWindowRig(const SimulatedSensor::Options& options, const QByteArray& settings)
    : m_settings(kSimulatedBounds + settings), m_languages(1),
      m_sensor(std::make_shared<SimulatedSensor>(options)),
      m_displayUnit(std::make_shared<SimulatedDisplayUnit>()),
      m_factory([this](const QString& device) { return makePort(device); }), m_link(m_factory)
{
    Pacing::setSpeeds(kFast);
    QFile::remove(FormatRestore::usersFile()); // of an earlier test
}

MainWindowRig::~MainWindowRig() = default;

std::unique_ptr<ComPort> MainWindowRig::makePort(const QString& device)
{
    if (device == QLatin1String("simulator:display"))
        return std::make_unique<SimulatedComPort>(m_displayUnit);
    ++m_openAttempts;
    return std::make_unique<SimulatedComPort>(m_sensor);
}

void MainWindowRig::start()
{
    if (m_link.open(kPort, 0) != 1)
        qWarning("The simulated port could not be opened");
    m_window = std::make_unique<PelorinMainWindow>(m_factory, m_link, m_languages);
    m_window->resize(1280, 720);
    m_window->show();
}

bool MainWindowRig::startConnected()
{
    start();
    return QTest::qWaitFor([this] { return m_window->currentPage() == 0; }) && waitIdle();
}

bool MainWindowRig::waitIdle()
{
    QCoreApplication::sendPostedEvents(); // a page that has just been shown reports that it reads
    return QTest::qWaitFor([this] { return !m_window->isBusy(); });
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
    if (!QTest::qWaitFor([&] { return m_window->currentPage() == row; }))
        return false;
    QCoreApplication::sendPostedEvents(); // the page has said that it is busy
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
