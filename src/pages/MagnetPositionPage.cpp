#include "pages/MagnetPositionPage.h"

#include "link/SensorLink.h"
#include "pages/PositionTrace.h"
#include "pages/PositionView.h"
#include "pages/RecordingDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColorableTextBox.h"
#include "platform/ui/FileChooser.h"
#include "platform/ui/KeptChoice.h"
#include "sensor/FailureText.h"
#include "sensor/ParameterCodec.h"
#include "sensor/PositionStream.h"
#include "sensor/SequenceRunner.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kCaptionControl = 1060;
constexpr int kPositionControl = 1061;
constexpr int kNoteControl = 1062;
constexpr int kUnitControl = 1070;
constexpr int kAllDecimalsControl = 1071;
constexpr int kViewControl = 1072;

constexpr int kPositionPoints = 48;
constexpr int kUnitPoints = 24;
constexpr int kNoteLines = 2;
constexpr int kDecimals = 1;
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
    m_pollTimer.setTimerType(Qt::PreciseTimer); // any other is up to 5 % early
    m_pollTimer.setInterval(Pacing::pause(kPollPeriod));
    connect(&m_pollTimer, &QTimer::timeout, &m_stream, &PositionStream::requestPosition);
    connect(&m_stream, &PositionStream::streaming, this, &MagnetPositionPage::beginStreaming);
    connect(&m_stream, &PositionStream::frames, this, &MagnetPositionPage::takeFrames);
    connect(&m_stream, &PositionStream::position, this, &MagnetPositionPage::showPosition);
    connect(&m_stream, &PositionStream::missed, this, [this] {
        showText(noPosition());
        m_view->trace().waitUntil(secondsAt(Clock::now()));
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

MagnetPositionPage::~MagnetPositionPage()
{
    (void)m_recorder.end(); // nobody is there any more to be told
}

void MagnetPositionPage::setupTranslationMap()
{
    addToTranslationMap(kUnitControl, strings::kMillimetres);
    addToTranslationMap(kAllDecimalsControl, strings::kAllDecimals);
    addToTranslationMap(kCaptionControl, strings::kPositionCaption);
    addToTranslationMap(kNoteControl, strings::kPositionNote);
    addAccessibleName(kNoteControl, strings::kNoteName);
}

void MagnetPositionPage::translate()
{
    SensorPage::translate();
    m_positionBox->setAccessibleDescription(languageString(strings::kPositionDescription));
    m_openButton->setText(languageString(strings::kOpenRecording));
    m_recordButton->setText(
        languageString(m_recorder.isRecording() ? strings::kStopRecording : strings::kRecord));
    m_view->translate();
}

void MagnetPositionPage::onInitDialog()
{
    m_positionBox = getControl<ColorableTextBox>(kPositionControl);
    m_positionBox->foreColor(QColor(0, 255, 0));
    m_positionBox->backColor(QColor(0, 0, 0));
    m_positionBox->setFont(arial(kPositionPoints));
    getControl<QLabel>(kUnitControl)->setFont(arial(kUnitPoints));
    auto* note = getControl<QPlainTextEdit>(kNoteControl);
    note->setFixedHeight(note->fontMetrics().lineSpacing() * kNoteLines + 16);
    m_allDecimals = getControl<QCheckBox>(kAllDecimalsControl);
    keepChoice(*m_allDecimals, QStringLiteral("AllDecimals"));
    makeView();
    showText(noPosition());
}

void MagnetPositionPage::makeView()
{
    auto* place = getControl<QWidget>(kViewControl);
    m_view = new PositionView(PositionView::Kind::Live, place);
    auto* layout = new QVBoxLayout(place);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    const auto add = [this](const char* name) {
        auto* button = new QPushButton(m_view);
        button->setObjectName(QLatin1String(name));
        m_view->addButton(button);
        return button;
    };
    m_recordButton = add("recordButton");
    m_recordButton->setEnabled(false);
    connect(m_recordButton, &QPushButton::clicked, this, &MagnetPositionPage::record);
    m_openButton = add("openRecordingButton");
    connect(m_openButton, &QPushButton::clicked, this, [this] { openRecording(window()); });
}

/// A stream that runs goes on: what was read of the sensor must not be overwritten meanwhile.
void MagnetPositionPage::getCurrentValues()
{
    m_interrupted = false;
    if (!m_stream.isActive()) { // what is known now is forgotten when the format is written
        const QByteArray stroke = textOf(runner().known(), 'L');
        m_view->trace().setStroke(isWellFormed('L', stroke) ? std::optional(decodeStrokeMm(stroke))
                                                            : std::nullopt);
    }
    if (!link().isIdentified()) {
        showText(noPosition());
        setStatusText(link().hasOpened() ? strings::kPositionNotIdentified
                                         : strings::kNotConnected);
    } else if (m_stream.isStreaming()) {
        clearStatusText();
    } else {
        m_view->begin(secondsAt(Clock::now()));
        if (!m_stream.start())
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
    const int decimals =
        m_allDecimals->isChecked() ? positionDecimals(m_stream.resolution()) : kDecimals;
    showText(QString::number(position, 'f', decimals));
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

/// What came of another sensor is no part of the trace.
void MagnetPositionPage::beginStreaming()
{
    const Source source{link().device(), link().versionText(), m_stream.resolution()};
    if (std::exchange(m_source, source) != source) {
        m_view->clear();
        m_origin = Clock::now();
    }
    m_view->begin(secondsAt(Clock::now()));
    m_pollTimer.start();
    m_recordButton->setEnabled(true);
    m_view->setStreaming(true);
    m_view->trace().setResolution(source.resolution);
}

/// @return seconds, as the trace counts them
double MagnetPositionPage::secondsAt(Clock::time_point time) const
{
    return std::chrono::duration<double>(time - m_origin).count();
}

void MagnetPositionPage::takeFrames(const QList<PositionSample>& samples, int malformed)
{
    std::vector<PositionPoint> points;
    for (const auto& [time, millimetres] : samples)
        points.push_back({secondsAt(time), millimetres});
    m_view->append(points, malformed, secondsAt(Clock::now()));
    if (m_recorder.isRecording()) {
        const auto outcome = m_recorder.add(samples);
        m_view->setRecorded(m_recorder.seconds());
        if (!outcome.isDone())
            endRecording(outcome);
    }
}

/// Begins a recording, or ends the one that runs. The stream may have ended while the file was
/// chosen.
void MagnetPositionPage::record()
{
    if (m_recorder.isRecording())
        return endRecording(m_recorder.end());
    const QString path =
        chooseFile(window(), QFileDialog::AcceptSave, languageString(strings::kRecord),
                   languageString(strings::kRecordingFilter), QStringLiteral("csv"));
    if (path.isEmpty() || !m_stream.isStreaming())
        return;
    endRecording(m_recorder.begin(path, m_stream.recordingHead(), Clock::now()));
}

/// @param outcome what is wrong with the recording, if anything; it then has ended
void MagnetPositionPage::endRecording(const WholeFile::Outcome& outcome)
{
    if (!outcome.isDone())
        Q_EMIT noticed(outcome.message());
    m_recordButton->setText(
        languageString(m_recorder.isRecording() ? strings::kStopRecording : strings::kRecord));
    m_recordButton->setEnabled(m_stream.isStreaming());
}

void MagnetPositionPage::showText(const QString& text)
{
    if (text != m_positionBox->text())
        m_positionBox->setText(text);
}

void MagnetPositionPage::stopPolling()
{
    m_pollTimer.stop();
    endRecording(m_recorder.end());
    m_view->setStreaming(false);
    showText(noPosition());
}

} // namespace pelorin
