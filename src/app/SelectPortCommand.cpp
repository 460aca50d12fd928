#include "app/SelectPortCommand.h"

#include "app/Closing.h"
#include "app/CommandGate.h"
#include "app/ConnectionSupervisor.h"
#include "link/SensorLink.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"

#include <utility>

namespace pelorin {

SelectPortCommand::SelectPortCommand(QWidget& window, Parts parts)
    : QObject(&window), m_window(window), m_parts(std::move(parts))
{
    connect(&m_parts.connection, &ConnectionSupervisor::givenUp, this, &SelectPortCommand::giveUp);
}

void SelectPortCommand::run()
{
    const int formerPort = m_parts.link.openedPort();
    if (formerPort != 0)
        m_lastPort = formerPort;
    SelectPortDialog dialog(&m_window, m_lastPort);
    if (dialog.exec() != QDialog::Accepted ||
        (m_parts.link.isOpen() && dialog.selectedPort() == formerPort))
        return;
    if (!m_parts.isDisplayUnits(dialog.selectedPort()))
        return change(dialog.selectedPort());
    m_parts.gate.addNotice(
        languageString(strings::kPortIsDisplays).arg(ComPortNames::nameOf(dialog.selectedPort())));
}

void SelectPortCommand::change(int port)
{
    const bool isFirst = m_parts.link.openedPort() == 0;
    m_parts.connection.changePort(port, [this, isFirst](bool opened) {
        if (opened) {
            Q_EMIT portChanged(isFirst);
            return;
        }
        m_parts.gate.addNotice({m_parts.link.openFailure(), {}, [this, isFirst](int) {
                                    if (!isFirst)
                                        giveUp();
                                }});
    });
}

void SelectPortCommand::giveUp()
{
    m_lastPort = m_parts.link.openedPort(); // of a change that failed the one before
    m_parts.closing.askFirst(languageString(strings::kEndsWithoutPort), [this] {
        m_parts.connection.leavePort([this] { Q_EMIT portLeft(); });
    });
}

} // namespace pelorin
