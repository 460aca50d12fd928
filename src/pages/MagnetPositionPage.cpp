#include "pages/MagnetPositionPage.h"

#include "link/SensorLink.h"
#include "pages/ParameterCodec.h"
#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/ColorableTextBox.h"

#include <QDeadlineTimer>
#include <QPlainTextEdit>

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

constexpr int kFormatDigits = 6;

QFont arial(int points)
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(points);
    return font;
}

QByteArray formatText(qint32 format)
{
    return padValueText(QByteArray::number(static_cast<quint32>(format), 16).toUpper(),
                        kFormatDigits);
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

/// Starts once: what was read of the sensor must not be overwritten while it streams.
void MagnetPositionPage::getCurrentValues()
{
    if (m_started)
        return;
    showText(noPosition());
    if (!link().isIdentified()) {
        setStatusText(kNotIdentifiedText);
        return;
    }
    showBusy(1);
    clearStatusText();
    m_started = true;
    m_formatWritten = false;
    m_phase = Phase::ReadFormat;
    m_format = {link().portNumber(), link().versionText(), {}, {}};
    beginSequence();
    requestRead('D');
}

void MagnetPositionPage::onLinkReply(int result)
{
    if (linkWasLost())
        abandon();
    else if (m_stopping && m_phase < Phase::Reconnect)
        return; // the stop has waited for it; no further step of the start is taken
    else if (result == 1)
        advance();
    else
        fail();
    postLinkResult(result);
}

void MagnetPositionPage::advance()
{
    switch (m_phase) {
    case Phase::ReadFormat:
        writeStreamingFormat();
        break;
    case Phase::WriteFormat:
        Pacing::sleep(kWriteTime);
        m_phase = Phase::CloseFormat;
        if (!sendClosingCommand())
            stopStart();
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
        writeOwnFormat();
        break;
    case Phase::RestoreFormat:
        Pacing::sleep(kWriteTime);
        m_phase = Phase::CloseRestore;
        if (!sendClosingCommand())
            endRestore(false);
        break;
    case Phase::CloseRestore:
        Pacing::sleep(kRestartTime);
        endRestore(true);
        break;
    }
}

void MagnetPositionPage::fail()
{
    switch (m_phase) {
    case Phase::Stream:
        break; // the display keeps its text, and the next tick asks again
    case Phase::Reconnect:
        if (++m_restoreAttempts >= kConnectAttempts) {
            endRestore(false);
        } else {
            Pacing::sleep(kRetryTime);
            requestConnect();
        }
        break;
    case Phase::RestoreFormat:
    case Phase::CloseRestore:
        endRestore(false);
        break;
    case Phase::ReadFormat:
        setStatusText(kReadFailedText, {parameterArgument('D')});
        m_started = false;
        showBusy(0);
        break;
    default:
        stopStart();
        break;
    }
}

/// A later step of the start has failed: leaving the page restores the sensor.
void MagnetPositionPage::stopStart()
{
    showBusy(0);
    postStatusText();
}

void MagnetPositionPage::writeStreamingFormat()
{
    constexpr qint32 kStreamBit = DataFormat::kStream << 16;
    const qint32 format = hexToLong(link().lastReply());
    m_format.own = formatText(format);
    m_format.streaming = formatText((format & 0xFFFFFF) | kStreamBit);
    m_formatWritten = true;
    m_phase = Phase::WriteFormat;
    requestWrite('D', m_format.streaming);
}

/// The sensor starts to stream when its supply returns.
void MagnetPositionPage::startStream()
{
    link().setRts(0);
    m_resolution = integerPrefix(link().lastReply());
    link().setStreamMode(1, hexToLong(m_format.own), m_resolution);
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
    if (m_manualPower)
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
    if (m_started)
        abandon();
}

/// Runs once per start, never inside itself.
/// @return true if there was something to stop
bool MagnetPositionPage::stop()
{
    if (!m_started || m_stopping)
        return false;
    m_stopping = true;
    m_pollTimer.stop();
    showText(noPosition());
    showBusy(1);
    waitUntil([this] { return !isAwaitingReply(); });
    if (m_started && linkWasLost())
        abandon();
    if (m_started && m_formatWritten)
        restoreFormat();
    m_started = false;
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
    if (m_restoreDone)
        return; // lost while it waited
    m_phase = Phase::Reconnect;
    requestConnect();
    waitUntil([this] { return m_restoreDone; });
    if (!m_restoreDone)
        endRestore(false);
}

/// The saved format goes only to the sensor that it came from.
void MagnetPositionPage::writeOwnFormat()
{
    if (link().versionText() != m_format.version) {
        endRestore(false);
        return;
    }
    m_phase = Phase::RestoreFormat;
    requestWrite('D', m_format.own);
}

void MagnetPositionPage::endRestore(bool restored)
{
    m_restoreDone = true;
    if (restored) {
        m_formatWritten = false;
        if (m_manualPower)
            clearStatusText();
        return;
    }
    m_restore.keep(m_format);
    m_formatWritten = false;
    Q_EMIT formatKept(languageString(kStillStreamingText)
                          .arg(QString::number(m_format.port), QString::fromLatin1(m_format.own)));
}

/// The link is gone: the sensor keeps the format that it has until it is connected again.
void MagnetPositionPage::abandon()
{
    m_pollTimer.stop();
    showText(noPosition());
    if (m_formatWritten)
        endRestore(false);
    m_restoreDone = true;
    m_started = false;
    showBusy(0);
}

void MagnetPositionPage::waitUntil(const std::function<bool()>& done)
{
    const QDeadlineTimer limit(kWaitLimit);
    while (!done() && !limit.hasExpired())
        Pacing::processDelay(kWaitStep);
}

} // namespace pelorin
