#include "app/SettingsCommand.h"

#include "app/CommandGate.h"
#include "app/ConnectionSupervisor.h"
#include "app/MainMenu.h"
#include "app/PagePane.h"
#include "link/SensorLink.h"
#include "pages/SettingsDialog.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/PositionStream.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

namespace pelorin {

namespace {

/// The device that the settings name for a port; empty if they name none.
QString deviceOf(const Settings& settings, const QString& name)
{
    QString device;
    for (const PortSetting& port : settings.ports) {
        if (ComPortNames::numberIn(port.name) == ComPortNames::numberIn(name))
            device = port.device; // the last one counts
    }
    return device;
}

bool isDisplaySame(const Settings& before, const Settings& after)
{
    return before.displayEnabled == after.displayEnabled &&
           before.displayPort == after.displayPort && before.displayNode == after.displayNode &&
           deviceOf(before, before.displayPort) == deviceOf(after, after.displayPort);
}

} // namespace

SettingsCommand::SettingsCommand(QWidget& window, const Parts& parts)
    : QObject(&window), m_window(window), m_parts(parts)
{
}

/// While the stream ends the dialog takes no input, like everything else.
void SettingsCommand::run()
{
    SafeWriter& writer = m_parts.writer;
    SequenceRunner& runner = writer.runner();
    const SensorLink& link = runner.link();
    (void)runner.endStream(*this, [](bool /*restored*/) {});
    const Settings before = Settings::inForce();
    SettingsDialog dialog(&m_window,
                          {.sensor = {link.hasOpened() ? link.portNumber() : 0, link.device()},
                           .version = link.versionText(),
                           .isSensorInUse = [&] { return runner.isBusy() || writer.isRunning(); },
                           .hasTables = [this] { return m_parts.pages.hasTables(); }});
    if (dialog.exec() == QDialog::Accepted)
        apply(before, Settings::inForce());
}

void SettingsCommand::apply(const Settings& before, const Settings& after)
{
    m_parts.writer.setSettings({.enabled = after.safeWrites, .manualPower = after.manualPower});
    m_parts.stream.setManualPower(after.manualPower);
    m_parts.connection.setManualPower(after.manualPower);
    m_parts.menu.offerDisplayUnit(after.displayEnabled);
    m_parts.pages.showTempComp(after.tempComp);
    if (!isDisplaySame(before, after))
        Q_EMIT displayUnitChanged();
    followPort(before, after);
}

/// What was identified in another way counts no more.
void SettingsCommand::followPort(const Settings& before, const Settings& after)
{
    if (before.ports != after.ports && hasPortMoved()) {
        const int number = m_parts.writer.runner().link().portNumber();
        m_parts.connection.leavePort([this, number] {
            m_parts.gate.addNotice({languageString(strings::kPortMoved).arg(number),
                                    {},
                                    [this](int) { Q_EMIT portWanted(); }});
        });
    } else if (before.ranges != after.ranges || before.manualPower != after.manualPower) {
        m_parts.writer.runner().link().forgetIdentification();
        Q_EMIT connectWanted();
    }
}

bool SettingsCommand::hasPortMoved() const
{
    const SensorLink& link = m_parts.writer.runner().link();
    return link.hasOpened() && ComPortNames().numberOf(link.device()) != link.portNumber();
}

} // namespace pelorin
