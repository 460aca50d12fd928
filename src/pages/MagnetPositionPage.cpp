#include "pages/MagnetPositionPage.h"

#include "link/SensorLink.h"
#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/ParameterCodec.h"

#include <QDeadlineTimer>
#include <QPlainTextEdit>

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kCaptionControl = 1060;
constexpr int kPositionControl = 1061;
constexpr int kNoteControl = 1062;
constexpr int kCaptionText = 262;
constexpr int kNoteText = 263;

constexpr int kReadFailedText = 123;
constexpr int kNotIdentifiedText = 1100;
constexpr int kStillStreamingText = 1101;
constexpr int kSwitchSupplyText = 1102;
constexpr int kNoteNameText = 1103;
constexpr int kPositionDescriptionText = 1104;

constexpr int kPositionPoints = 48;
constexpr int kNotePoints = 14;

constexpr auto kWriteTime = 250ms;
constexpr auto kStoreTime = 2000ms;
constexpr auto kRestartTime = 2500ms;
constexpr auto kSupplyOffTime = 1000ms;
constexpr auto kRetryTime = 500ms;
constexpr auto kPollPeriod = 333ms;
constexpr auto kWaitStep = 50ms;
constexpr auto kWaitLimit = 60s; ///< far beyond three failed connects
constexpr int kConnectAttempts = 3;

QFont arial(int points)
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(points);
    return font;
}

QString noPosition()
{
    return QStringLiteral("****");
}

} // namespace

MagnetPositionPage::MagnetPositionPage(FormatRestore& restore, bool manualPower)
    : SensorPage(QStringLiteral("DLG_PELORIN_MAGNETPOS")), m_restore(restore),
      m_manualPower(manualPower)
{
    m_pollTimer.setInterval(Pacing::pause(kPollPeriod));
    connect(&m_pollTimer, &QTimer::timeout, this, &MagnetPositionPage::onTick);
}

void MagnetPositionPage::setupTranslationMap()
{
    addToTranslationMap(kCaptionControl, kCaptionText);
    addToTranslationMap(kNoteControl, kNoteText);
    addAccessibleName(kNoteControl, kNoteNameText);
}

void MagnetPositionPage::translate()
{
    SensorPage::translate();
    m_positionBox->setAccessibleDescription(languageString(kPositionDescriptionText));
}

void MagnetPositionPage::onInitDialog()
{
    m_positionBox = getControl<ColorableTextBox>(kPositionControl);
    m_positionBox->foreColor(QColor(0, 255, 0));
    m_positionBox->backColor(QColor(0, 0, 0));
    m_positionBox->setFont(arial(kPositionPoints));
    getControl<QPlainTextEdit>(kNoteControl)->setFont(arial(kNotePoints));
    showText(noPosition());
}

/// What was read of the sensor must not be overwritten while it streams.
void MagnetPositionPage::getCurrentValues()
{
    if (m_running || m_stopping)
        return;
    showText(noPosition());
    if (!link().isIdentified()) {
        setStatusText(kNotIdentifiedText);
        return;
    }
    showBusy(1);
    clearStatusText();
    m_running = true;
    m_phase = Phase::ReadFormat;
    beginSequence();
    requestRead('D');
}

void MagnetPositionPage::onLinkReply(int result)
{
    if (!m_running && !m_stopping)
        return; // given up
    if (linkWasLost()) {
        abandon();
    } else if (m_stopping && m_phase < Phase::Reconnect) {
        return; // the stop has waited for it; no further step of the start is taken
    } else if (result == 1) {
        advance();
    } else {
        fail();
    }
    postLinkResult(result);
}

void MagnetPositionPage::advance()
{
    switch (m_phase) {
    case Phase::ReadFormat:
        writeStreamingFormat();
        break;
    case Phase::WriteFormat:
        closeStreamingFormat();
        break;
    case Phase::CloseFormat:
        Pacing::sleep(kStoreTime);
        m_phase = Phase::ReadResolution;
        requestRead('A');
        break;
    case Phase::ReadResolution:
        startStream();
        break;
    case Phase::Stream:
        showPosition();
        break;
    case Phase::Reconnect:
        m_phase = Phase::Restore;
        await(m_restore.begin(link()));
        takeRestoreStep();
        break;
    case Phase::Restore:
        await(m_restore.next(link(), 1));
        takeRestoreStep();
        break;
    }
}

void MagnetPositionPage::fail()
{
    switch (m_phase) {
    case Phase::ReadFormat:
    case Phase::WriteFormat:
    case Phase::CloseFormat:
        failStart('D');
        break;
    case Phase::ReadResolution:
        failStart('A');
        break;
    case Phase::Stream:
        break; // the display keeps its text, and the next tick asks again
    case Phase::Reconnect:
    case Phase::Restore:
        reconnectAgain();
        break;
    }
}

/// What is written by then is written back when the page is left.
void MagnetPositionPage::failStart(char id)
{
    m_running = false;
    setStatusText(kReadFailedText, {parameterArgument(id)});
    showBusy(0);
}

/// The own format is kept before the sensor gets another one: from here on it outlasts whatever
/// happens to the link, the sensor and the computer.
void MagnetPositionPage::writeStreamingFormat()
{
    const auto digits = formatDigits(link().lastReply());
    if (!digits) {
        failStart('D');
        return;
    }
    const QByteArray own = m_restore.ownFormat(link(), *digits);
    m_format = {link().portNumber(), link().versionText(), own, streamingFormat(own)};
    m_restore.keep(m_format);
    m_sensorHas = Format::Written;
    m_phase = Phase::WriteFormat;
    requestWrite('D', m_format.streaming);
}

void MagnetPositionPage::closeStreamingFormat()
{
    Pacing::sleep(kWriteTime);
    m_sensorHas = Format::Streaming;
    m_phase = Phase::CloseFormat;
    if (!sendClosingCommand())
        failStart('D');
}

/// The sensor starts to stream when its supply returns. Without a resolution every position would
/// be shown as another one.
void MagnetPositionPage::startStream()
{
    const QByteArray reply = link().lastReply();
    const int resolution = integerPrefix(reply); // micrometres
    if (!isWellFormed('A', reply) || resolution <= 0) {
        failStart('A');
        return;
    }
    link().setRts(0);
    link().setStreamMode(1, hexToLong(m_format.own), resolution);
    if (m_manualPower)
        setStatusText(kSwitchSupplyText);
    Pacing::sleep(kRestartTime);
    link().setRts(1);
    m_pollTimer.start();
    showBusy(0);
}

void MagnetPositionPage::onTick()
{
    if (isAwaitingReply())
        return;
    m_phase = Phase::Stream;
    requestPosition();
}

void MagnetPositionPage::showPosition()
{
    if (m_manualPower && m_positionBox->text() == noPosition())
        clearStatusText(); // the supply has been switched
    showText(QString::asprintf("%01.01f", link().position()));
}

void MagnetPositionPage::showText(const QString& text)
{
    if (text != m_positionBox->text())
        m_positionBox->setText(text);
}

void MagnetPositionPage::setNewValues()
{
    (void)stop();
}

bool MagnetPositionPage::releaseLink()
{
    return stop();
}

void MagnetPositionPage::linkLost()
{
    if (m_running || m_stopping || m_sensorHas != Format::Own)
        abandon();
}

/// Runs once per start, never inside itself.
/// @return true if there was something to stop
bool MagnetPositionPage::stop()
{
    if (m_stopping || (!m_running && m_sensorHas == Format::Own))
        return false;
    m_stopping = true;
    m_pollTimer.stop();
    showText(noPosition());
    showBusy(1);
    waitUntil([this] { return !isAwaitingReply(); });
    if (linkWasLost())
        abandon();
    if (m_sensorHas != Format::Own)
        restoreFormat();
    m_running = false;
    m_stopping = false;
    showBusy(0);
    return true;
}

void MagnetPositionPage::restoreFormat()
{
    m_restoreDone = false;
    m_restoreAttempts = 0;
    link().setRts(0);
    link().setStreamMode(0, 0, 0);
    if (m_manualPower)
        setStatusText(kSwitchSupplyText);
    Pacing::processDelay(kSupplyOffTime);
    if (!m_restoreDone) { // the link was not lost while it waited
        m_phase = Phase::Reconnect;
        requestConnect();
        waitUntil([this] { return m_restoreDone; });
    }
    if (m_manualPower && m_sensorHas != Format::Own)
        clearStatusText();
    endRestore();
}

void MagnetPositionPage::reconnectAgain()
{
    if (++m_restoreAttempts >= kConnectAttempts) {
        m_restoreDone = true;
        return;
    }
    Pacing::sleep(kRetryTime);
    m_phase = Phase::Reconnect;
    requestConnect();
}

/// After the last step the sensor has its own format again, or never had another one, or is
/// another sensor, which gets nothing.
void MagnetPositionPage::takeRestoreStep()
{
    m_restoreDone = !isAwaitingReply();
    const bool same = link().versionText() == m_format.version;
    if (m_restoreDone && same && m_sensorHas == Format::Written)
        m_restore.drop(m_format);
}

/// What could not be written back stays kept, and the user has to know.
void MagnetPositionPage::endRestore()
{
    if (std::exchange(m_sensorHas, Format::Own) == Format::Own || !m_restore.isKept(m_format))
        return;
    if (m_format.own == m_format.streaming) {
        m_restore.drop(m_format);
    } else {
        Q_EMIT formatKept(
            languageString(kStillStreamingText)
                .arg(QString::number(m_format.port), QString::fromLatin1(m_format.own)));
    }
}

/// The link is gone: the sensor keeps the format that it has until it is connected again.
void MagnetPositionPage::abandon()
{
    m_pollTimer.stop();
    m_running = false;
    m_restoreDone = true;
    showText(noPosition());
    endRestore();
    showBusy(0);
}

void MagnetPositionPage::waitUntil(const std::function<bool()>& done)
{
    const QDeadlineTimer limit(kWaitLimit);
    while (!done() && !limit.hasExpired())
        Pacing::processDelay(kWaitStep);
}

} // namespace pelorin
