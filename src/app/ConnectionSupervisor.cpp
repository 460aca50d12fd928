#include "app/ConnectionSupervisor.h"

#include "app/CommandGate.h"
#include "app/LinkStatusBar.h"
#include "link/CommLogTexts.h"
#include "link/SensorIdentification.h"
#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/FailureText.h"
#include "sensor/SafeWriter.h"
#include "sensor/SequenceRunner.h"

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kReconnectLimit = 10;
constexpr auto kReconnectPeriod = 500ms;
constexpr auto kSupplyOffTime = 500ms;
constexpr auto kCommandStoreTime = 500ms;

} // namespace

ConnectionSupervisor::ConnectionSupervisor(QWidget& window, const Shared& shared, bool manualPower)
    : QObject(&window), m_window(window), m_gate(shared.gate), m_statusBar(shared.statusBar),
      m_runner(shared.runner), m_link(shared.runner.link()), m_formats(shared.formats),
      m_restore(shared.restore), m_writer(shared.writer), m_manualPower(manualPower)
{
    m_statusBar.setPort(m_link.openedPort());
    m_reconnectTimer.setInterval(Pacing::pause(kReconnectPeriod));
    connect(&m_reconnectTimer, &QTimer::timeout, this, &ConnectionSupervisor::onReconnectTimer);
    connect(&m_runner, &SequenceRunner::portStuck, this, [this](auto& name) {
        m_gate.addNotice(languageString(strings::kPortStuck).arg(name));
    });
}

bool ConnectionSupervisor::connectSensor()
{
    m_runner.reserveConnect(*this);
    // From the event loop: boxes must not be shown while the runner tells that the stream has
    // ended.
    const bool begun = m_runner.endStream(*this, [this](bool /*restored*/) {
        QMetaObject::invokeMethod(this, &ConnectionSupervisor::beginConnect, Qt::QueuedConnection);
    });
    if (begun)
        m_isConnecting = true;
    return begun;
}

/// Without a port the Connect comes when that is open again.
void ConnectionSupervisor::beginConnect()
{
    if (m_stopped || m_link.linkFailed() == 1) {
        m_isConnecting = false;
        return;
    }
    m_statusBar.showString(strings::kConnecting);
    m_statusBar.setExplanation(nullptr);
    Q_EMIT sensorLeft();
    Plan plan = connectPlan();
    if (m_manualPower) {
        m_link.forgetIdentification();
        plan = connectByHandPlan(askForSupply());
    }
    const bool begun = !m_stopped && m_runner.start(*this, plan, {.ended = [this](auto& outcome) {
        m_keepAlive = 0;
        m_link.setKeepAlive(0);
        onConnected(outcome);
    }});
    if (!begun)
        m_isConnecting = false;
}

/// Has the user switch the sensor's supply off and on while PROG frames stream. The frames go
/// on also when the port was reopened in between.
bool ConnectionSupervisor::askForSupply()
{
    const CommandGate::Scope scope(m_gate);
    if (messageBox(&m_window, languageString(strings::kSwitchSupplyOff),
                   QMessageBox::Ok | QMessageBox::Cancel,
                   QMessageBox::Information) != QMessageBox::Ok)
        return false;
    m_keepAlive = 1;
    m_link.setKeepAlive(m_keepAlive);
    (void)messageBox(&m_window, languageString(strings::kSwitchSupplyOn), QMessageBox::Ok,
                     QMessageBox::Information);
    return true;
}

void ConnectionSupervisor::writeCommand(char id)
{
    const bool begun = !m_runner.isConnectWanted() &&
                       m_runner.start(*this, commandPlan(id, kCommandStoreTime),
                                      {.ended = [this](const Outcome& outcome) {
                                          if (outcome.isDone()) {
                                              Q_EMIT connectWanted();
                                          } else if (outcome.kind != Outcome::Kind::Abandoned) {
                                              m_gate.addNotice(writingFailure(outcome));
                                          }
                                      }});
    if (!begun) {
        m_gate.addNotice(languageString(strings::kBeingConnected));
    }
}

/// A data format that could not be written back before goes first, before any page reads it. With
/// the supply switched by hand a sensor that answers is connected, whatever type it is.
void ConnectionSupervisor::onConnected(const Outcome& outcome)
{
    if (outcome.kind == Outcome::Kind::Lost || outcome.kind == Outcome::Kind::Abandoned) {
        m_isConnecting = false; // whoever has ended it says what comes next
        return;
    }
    m_reconnectAttempts = 0;
    if (!outcome.isDone())
        return finishConnect(false, FormatRestore::Result::NothingKept);
    if (m_manualPower)
        (void)m_link.identifyFromLastReply();
    const int losses = m_link.lossCount();
    m_restore.begin(
        *this, [this, losses](FormatRestore::Result format) { onFormatRestored(format, losses); });
}

/// What was being written when the link was lost comes next, before any page is shown.
void ConnectionSupervisor::onFormatRestored(FormatRestore::Result format, int losses)
{
    m_writer.compareAfterConnect(format == FormatRestore::Result::NothingKept,
                                 [this, format, losses] {
                                     if (m_link.lossCount() == losses) {
                                         finishConnect(true, format);
                                     } else {
                                         m_isConnecting = false;
                                     }
                                 });
}

/// The connect is settled before a page is shown, which has a plan of its own.
void ConnectionSupervisor::finishConnect(bool success, FormatRestore::Result format)
{
    m_isConnecting = false;
    m_statusBar.showString(success ? strings::kConnected : strings::kNotConnected);
    m_statusBar.setLinkState(success ? 1 : 0);
    explainIdentification();
    if (format == FormatRestore::Result::NotRead)
        m_gate.addNotice(languageString(strings::kFormatNotRead));
    if (!std::exchange(m_keptFormatsTold, true)) {
        tellKeptFormats(m_formats.all()); // also what an earlier run could not write back
    } else if (format == FormatRestore::Result::NotRestored) {
        tellKeptFormats(m_restore.keptForSensor());
    }
    Q_EMIT connected(success);
}

/// Says why a sensor that has answered is not identified.
void ConnectionSupervisor::explainIdentification()
{
    const QByteArray version = m_link.versionText();
    if (m_link.isTypeByHand()) {
        m_statusBar.setExplanation([revision = revisionText(version), type = m_link.ssiType()] {
            return languageString(strings::kChosenByHand).arg(revision, QString::number(type));
        });
    }
    if (version.isEmpty() || m_link.ssiType() != kSsiTypeUnknown)
        return;
    m_statusBar.setExplanation([version] {
        return QLatin1String(logtexts::kOfNoType) + QStringLiteral("\n") +
               unidentifiedText(version);
    });
}

void ConnectionSupervisor::tellKeptFormats(const QList<KeptFormat>& formats)
{
    for (const KeptFormat& kept : formats) {
        if (!kept.readBack)
            Q_EMIT formatKept(kept);
    }
}

void ConnectionSupervisor::changePort(int port, const std::function<void(bool)>& done)
{
    afterStream([this, port, done] {
        leaveSensor();
        m_statusBar.setText(languageString(strings::kPortOpening).arg(port));
        m_opener.open(port, &m_window, [this, done](PortOpener::Result result) {
            if (m_stopped)
                return; // what becomes of it nobody has waited for
            const bool opened = result == PortOpener::Result::Opened;
            m_reconnectBusy = false;
            m_reconnectAttempts = 0;
            m_statusBar.showString(strings::kNotConnected);
            if (result == PortOpener::Result::Left) { // the choice of a port needs a free gate
                forgetPort();
                connect(&m_gate, &CommandGate::freed, this, &ConnectionSupervisor::portWanted,
                        Qt::SingleShotConnection);
                return m_gate.wake();
            }
            if (opened)
                onOpened();
            done(opened);
            if (opened && m_link.linkFailed() == 1) // lost again before this was told
                onLinkLost();
        });
        m_reconnectBusy = true; // no attempt takes the place of what the user has chosen
    });
}

void ConnectionSupervisor::leavePort(const std::function<void()>& done)
{
    afterStream([this, done] {
        leaveSensor();
        m_runner.closePort(false, [this, done] {
            m_reconnectBusy = false;
            m_reconnectAttempts = 0;
            m_statusBar.showString(strings::kNotConnected);
            forgetPort();
            done();
        });
        m_reconnectBusy = true; // no attempt opens it again
    });
}

/// What was told of the sensor is not true of the next one, and not while there is none.
void ConnectionSupervisor::leaveSensor()
{
    m_reconnectTimer.stop();
    m_runner.cancelConnect();
    m_link.forgetIdentification();
    m_statusBar.setExplanation(nullptr);
    m_statusBar.setLinkState(-1);
    Q_EMIT sensorLeft();
}

/// No port is open, and none is tried.
void ConnectionSupervisor::forgetPort()
{
    m_link.forgetPort();
    m_statusBar.setPort(0);
    Q_EMIT sensorLeft();
}

/// Does what the user has decided about the port when the stream has ended. While something else
/// runs that is awaited, too: a decision that was dropped would leave the wrong port open for ever.
void ConnectionSupervisor::afterStream(const std::function<void()>& then)
{
    const bool begun = m_runner.endStream(*this, [this, then](bool /*restored*/) {
        if (!m_stopped)
            then();
    });
    if (!begun) {
        connect(
            &m_runner, &SequenceRunner::busyChanged, this, [this, then] { afterStream(then); },
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    }
}

void ConnectionSupervisor::onOpened()
{
    m_reconnectTimer.stop();
    m_failureTold = false;
    m_statusBar.setPort(m_link.portNumber());
    m_link.setKeepAlive(m_keepAlive); // opened again while the user switches the supply
}

/// A port that opens but loses every frame comes here without the timer.
void ConnectionSupervisor::onLinkLost()
{
    if (m_reconnectBusy || m_stopped)
        return;
    m_runner.linkLost();
    if (m_reconnectBusy || m_stopped)
        return; // another port is being opened, which waited for the end of the stream
    m_statusBar.setText(QStringLiteral("Lost communication with COM%1, trying to reconnect...")
                            .arg(m_link.portNumber()));
    m_statusBar.setLinkState(0);
    m_statusBar.setExplanation(nullptr);
    Q_EMIT sensorLeft();
    if (m_link.linkFailed() != 1)
        return;
    if (!m_reconnectTimer.isActive())
        m_reconnectTimer.start();
    if (m_reconnectAttempts <= kReconnectLimit)
        tryAgain();
}

void ConnectionSupervisor::tryAgain()
{
    ++m_reconnectAttempts;
    m_runner.reopenPort([this](bool opened) {
        m_reconnectBusy = false;
        if (m_stopped)
            return;
        if (!opened)
            return tellWhy();
        onOpened();
        if (m_link.linkFailed() == 1) // lost again before this was told
            return onLinkLost();
        m_runner.reserveConnect(*this);
        Q_EMIT connectWanted();
    });
    m_reconnectBusy = true;
}

/// A port that is there and cannot be used is told of once; one that is not has its question. An
/// attempt that another port has taken the place of has no result.
void ConnectionSupervisor::tellWhy()
{
    if (m_reconnectTimer.isActive() && m_link.hasFoundDevice() &&
        !std::exchange(m_failureTold, true))
        m_gate.addNotice(m_link.openFailure());
}

/// After eleven attempts the user decides, once no other dialog is open; until then they go on.
void ConnectionSupervisor::onReconnectTimer()
{
    if (m_reconnectBusy || m_stopped)
        return;
    if (m_reconnectAttempts <= kReconnectLimit || !m_gate.isFree()) {
        tryAgain();
        return;
    }
    const CommandGate::Scope scope(m_gate);
    m_reconnectTimer.stop();
    m_reconnectBusy = true; // the losses of more than one frame may be told during the question
    const auto answer = messageBox(
        &m_window,
        QStringLiteral("Serial communications port COM%1 no longer exists, please check the "
                       "connection and retry.")
            .arg(m_link.portNumber()),
        QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Question);
    m_reconnectBusy = false;
    m_reconnectAttempts = 0;
    if (answer == QMessageBox::Retry) {
        onLinkLost();
    } else {
        Q_EMIT givenUp();
    }
}

void ConnectionSupervisor::stop()
{
    m_stopped = true;
    m_reconnectTimer.stop();
}

void ConnectionSupervisor::shutDown(std::function<void()> done)
{
    const bool supplyOff = !m_manualPower && m_link.isOpen() && m_link.linkFailed() == 0;
    m_runner.closePort(supplyOff, [this, supplyOff, done = std::move(done)] {
        QTimer::singleShot(supplyOff ? Pacing::pause(kSupplyOffTime) : 0ms, this, done);
    });
}

} // namespace pelorin
