#include "app/ConnectionSupervisor.h"

#include "app/BusyFilter.h"
#include "app/CommandGate.h"
#include "app/LinkStatusBar.h"
#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/MessageBox.h"

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kConnectingText = 116;
constexpr int kConnectedText = 117;
constexpr int kNotConnectedText = 118;
constexpr int kSwitchOnText = 244;
constexpr int kSwitchOffText = 245;
constexpr int kNoBoundsText = 1005;

constexpr int kReconnectLimit = 10;
constexpr auto kReconnectPeriod = 500ms;
constexpr auto kSupplyOffTime = 500ms;
constexpr auto kSwitchOnTime = 3000ms;
constexpr auto kStoreTime = 500ms;

} // namespace

ConnectionSupervisor::ConnectionSupervisor(QWidget& window, SensorLink& link, const Shared& shared,
                                           bool manualPower)
    : QObject(&window), m_window(window), m_link(link), m_gate(shared.gate), m_busy(shared.busy),
      m_statusBar(shared.statusBar), m_manualPower(manualPower)
{
    m_statusBar.setPort(m_link.portNumber());
    m_reconnectTimer.setInterval(Pacing::pause(kReconnectPeriod));
    connect(&m_reconnectTimer, &QTimer::timeout, this, &ConnectionSupervisor::onReconnectTimer);
}

bool ConnectionSupervisor::isConnecting() const
{
    return m_operation == Operation::Connect || m_operation == Operation::RestoreFormat;
}

bool ConnectionSupervisor::isWriting() const
{
    return m_operation == Operation::RestoreFormat || m_operation == Operation::Write;
}

void ConnectionSupervisor::connectSensor()
{
    m_operation = Operation::Connect;
    m_statusBar.showString(kConnectingText);
    if (m_manualPower) {
        m_link.forgetIdentification();
        askForSupply();
    }
    m_busy.begin();
    m_request = m_manualPower ? m_link.requestRead('V') : m_link.requestConnect();
}

/// Has the user switch the sensor's supply off and on while PROG frames stream. The frames go
/// on also when the port was reopened in between.
void ConnectionSupervisor::askForSupply()
{
    if (messageBox(&m_window, languageString(kSwitchOffText), QMessageBox::Ok | QMessageBox::Cancel,
                   QMessageBox::Information) != QMessageBox::Ok)
        return;
    m_keepAlive = 1;
    m_link.setKeepAlive(m_keepAlive);
    (void)messageBox(&m_window, languageString(kSwitchOnText), QMessageBox::Ok,
                     QMessageBox::Information);
    if (!m_gate.isCloseWanted())
        Pacing::sleep(kSwitchOnTime);
    m_keepAlive = 0;
    m_link.setKeepAlive(m_keepAlive);
}

void ConnectionSupervisor::writeCommand(char id)
{
    m_busy.begin();
    m_operation = Operation::Write;
    m_request = m_link.requestWrite(id, QByteArray());
}

bool ConnectionSupervisor::takeLinkReply(RequestId request, int result)
{
    if (request == 0 || request != m_request)
        return false;
    m_request = 0;
    if (m_operation == Operation::Connect) {
        onConnected(result);
    } else if (m_operation == Operation::RestoreFormat) {
        awaitRestore(m_formatRestore.next(m_link, result));
    } else {
        Pacing::sleep(kStoreTime);
        m_operation = Operation::None;
        m_busy.release();
        Q_EMIT connectWanted();
    }
    return true;
}

/// A data format that could not be written back before goes first, before any page reads it.
void ConnectionSupervisor::onConnected(int result)
{
    if (result == 1 && m_manualPower)
        (void)m_link.identifyFromLastReply(); // the sensor has answered, whatever type it is
    const RequestId restore = result == 1 ? m_formatRestore.begin(m_link) : 0;
    if (restore == 0) {
        finishConnect(result);
    } else {
        awaitRestore(restore);
    }
}

void ConnectionSupervisor::awaitRestore(RequestId request)
{
    m_operation = Operation::RestoreFormat;
    m_request = request;
    if (request == 0)
        finishConnect(m_link.isIdentified() ? 1 : 0); // not if the link was lost meanwhile
}

/// The connect is settled before a page is shown: leaving a page can send requests of its own.
void ConnectionSupervisor::finishConnect(int result)
{
    m_operation = Operation::None;
    m_busy.release();
    m_statusBar.showString(result == 1 ? kConnectedText : kNotConnectedText);
    m_statusBar.setLinkState(result);
    if (!m_link.versionText().isEmpty() && m_link.ssiType() == kSsiTypeUnknown) {
        m_statusBar.setExplanation(QStringLiteral("SSY Type: Unknown\n") +
                                   languageString(kNoBoundsText));
    }
    Q_EMIT connected(result == 1);
}

bool ConnectionSupervisor::changePort(int port)
{
    m_link.close();
    if (!openPort(port, 1))
        return false;
    m_statusBar.setPort(port);
    return true;
}

/// A success ends the reconnecting.
bool ConnectionSupervisor::openPort(int port, int showErrors)
{
    if (!m_link.open(port, showErrors))
        return false;
    stopReconnect();
    m_link.setKeepAlive(m_keepAlive); // opened again while the user switches the supply
    return true;
}

void ConnectionSupervisor::onLinkLost()
{
    if (m_reconnectBusy || m_stopped)
        return;
    m_reconnectBusy = true;
    const int port = m_link.portNumber();
    m_statusBar.setText(
        QStringLiteral("Lost communication with COM%1, trying to reconnect...").arg(port));
    m_statusBar.setLinkState(0);
    if (m_link.linkFailed() == 1) {
        ++m_reconnectAttempts;
        if (!m_reconnectTimer.isActive())
            m_reconnectTimer.start();
        Q_EMIT lost();
        m_link.close();
        if (openPort(port, 0))
            Q_EMIT connectWanted();
    }
    m_reconnectBusy = false;
}

/// After eleven attempts the user decides, once no other dialog is open.
void ConnectionSupervisor::onReconnectTimer()
{
    if (m_reconnectAttempts <= kReconnectLimit) {
        onLinkLost();
        return;
    }
    if (CommandGate::isDialogOpen())
        return;
    const CommandGate::Scope scope(m_gate);
    stopReconnect();
    const auto answer = messageBox(
        &m_window,
        QStringLiteral("Serial communications port COM%1 no longer exists, please check the "
                       "connection and retry.")
            .arg(m_link.portNumber()),
        QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Question);
    if (answer == QMessageBox::Retry) {
        onLinkLost();
    } else {
        Q_EMIT givenUp();
    }
}

void ConnectionSupervisor::stopReconnect()
{
    m_reconnectTimer.stop();
    m_reconnectAttempts = 0;
}

void ConnectionSupervisor::stop()
{
    m_stopped = true;
    m_reconnectTimer.stop();
}

void ConnectionSupervisor::switchSupplyOff(bool afterWriting)
{
    if (afterWriting)
        Pacing::sleep(kStoreTime);
    if (m_manualPower)
        return;
    if (m_operation == Operation::Connect) {
        m_link.close(1); // the worker would switch the supply on again
    } else if (m_link.linkFailed() == 0) {
        m_link.setRts(0);
    }
    Pacing::sleep(kSupplyOffTime);
}

} // namespace pelorin
