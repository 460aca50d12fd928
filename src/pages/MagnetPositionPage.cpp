#include "pages/MagnetPositionPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/FailureText.h"
#include "sensor/PositionStream.h"

#include <QPlainTextEdit>

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kCaptionControl = 1060;
constexpr int kPositionControl = 1061;
constexpr int kNoteControl = 1062;

constexpr int kPositionPoints = 48;
constexpr int kNotePoints = 14;
constexpr auto kPollPeriod = 333ms;

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

MagnetPositionPage::MagnetPositionPage(PositionStream& stream)
    : SensorPage(QStringLiteral("DLG_PELORIN_MAGNETPOS")), m_stream(stream)
{
    m_pollTimer.setInterval(Pacing::pause(kPollPeriod));
    connect(&m_pollTimer, &QTimer::timeout, &m_stream, &PositionStream::requestPosition);
    connect(&m_stream, &PositionStream::streaming, this, [this] { m_pollTimer.start(); });
    connect(&m_stream, &PositionStream::position, this, &MagnetPositionPage::showPosition);
    connect(&m_stream, &PositionStream::missed, this, [this] {
        showText(noPosition());
        postLinkResult(0);
    });
    connect(&m_stream, &PositionStream::stepBegun, this, &MagnetPositionPage::showStep);
    connect(&m_stream, &PositionStream::failed, this, [this](char id) {
        stopPolling();
        m_isStepShown = false;
        setStatusText(strings::kReadFailed, {parameterArgument(id)});
        postLinkResult(0);
    });
    connect(&m_stream, &PositionStream::supplyWanted, this,
            [this] { showStep(strings::kSwitchSupply); });
    connect(&m_stream, &PositionStream::stopping, this, [this] {
        m_interrupted = m_pollTimer.isActive();
        stopPolling();
    });
    connect(&m_stream, &PositionStream::ended, this, [this] {
        stopPolling();
        clearStep();
    });
    connect(&m_stream, &PositionStream::noticed, this, &MagnetPositionPage::noticed);
}

void MagnetPositionPage::setupTranslationMap()
{
    addToTranslationMap(kCaptionControl, strings::kPositionCaption);
    addToTranslationMap(kNoteControl, strings::kPositionNote);
    addAccessibleName(kNoteControl, strings::kNoteName);
}

void MagnetPositionPage::translate()
{
    SensorPage::translate();
    m_positionBox->setAccessibleDescription(languageString(strings::kPositionDescription));
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

/// A stream that runs goes on: what was read of the sensor must not be overwritten meanwhile.
void MagnetPositionPage::getCurrentValues()
{
    m_interrupted = false;
    if (!link().isIdentified()) {
        showText(noPosition());
        setStatusText(strings::kPositionNotIdentified);
    } else if (m_stream.isStreaming()) {
        clearStatusText();
    } else if (!m_stream.start()) {
        setStatusText(strings::kConnecting);
    }
}

void MagnetPositionPage::resume()
{
    if (link().isIdentified() && std::exchange(m_interrupted, false))
        getCurrentValues();
}

/// An unchanged value causes no repaint.
void MagnetPositionPage::showPosition(double position)
{
    clearStep();
    showText(QString::asprintf("%01.01f", position));
    postLinkResult(1);
}

void MagnetPositionPage::showStep(int text)
{
    m_isStepShown = true;
    setStatusText(text);
}

void MagnetPositionPage::clearStep()
{
    if (std::exchange(m_isStepShown, false) && isVisible()) // else the next page has its own
        clearStatusText();
}

void MagnetPositionPage::showText(const QString& text)
{
    if (text != m_positionBox->text())
        m_positionBox->setText(text);
}

void MagnetPositionPage::stopPolling()
{
    m_pollTimer.stop();
    showText(noPosition());
}

} // namespace pelorin
