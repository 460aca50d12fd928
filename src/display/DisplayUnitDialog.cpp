#include "display/DisplayUnitDialog.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/ColorableTextBox.h"
#include "platform/ui/MessageBox.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kDisplayBox = 1042;
constexpr int kModeLabel = 1043;
constexpr int kModeCombo = 1044;
constexpr int kDataBitsLabel = 1045;
constexpr int kDataBitsCombo = 1046;
constexpr int kResolutionLabel = 1047;
constexpr int kResolutionCombo = 1048;
constexpr int kApplyButton = 1049;

constexpr std::array<std::uint8_t, 2> kModes{DisplaySettings::kBinary, DisplaySettings::kGray};
constexpr std::array<std::uint8_t, 2> kDataBits{25, 24};
constexpr std::array<std::uint8_t, 7> kResolutions{5, 10, 50, 100, 20, 2, 1};

constexpr auto kPollPeriod = 333ms;
constexpr auto kExchangeLimit = 20s; ///< of a reading and an apply, each byte at its limit
constexpr int kDisplayPoints = 40;

/// Adds an item for each value, its text still empty, and selects the first.
template <std::size_t Size>
void fill(QComboBox& combo, const std::array<std::uint8_t, Size>& values)
{
    for (const int value : values)
        combo.addItem(QString(), value);
    combo.setCurrentIndex(0);
}

std::uint8_t selectedData(const QComboBox& combo)
{
    return static_cast<std::uint8_t>(combo.currentData().toUInt());
}

} // namespace

DisplayUnitDialog::DisplayUnitDialog(QWidget* parent, const ComPortFactory& factory, int sensorPort)
    : BaseDialog(QStringLiteral("124_DisplayUnit"), parent), m_sensorPort(sensorPort),
      m_link(factory)
{
    m_timer.setTimerType(Qt::PreciseTimer); // any other is up to 5 % early
    m_timer.setInterval(Pacing::pause(kPollPeriod));
    connect(&m_timer, &QTimer::timeout, this, &DisplayUnitDialog::onTimer);
}

DisplayUnitDialog::~DisplayUnitDialog() = default;

bool DisplayUnitDialog::usesPort(int portNumber) const
{
    return m_link.isOpen() && m_link.isPort(portNumber);
}

void DisplayUnitDialog::setupTranslationMap()
{
    setTitleString(strings::kDisplayUnit);
    addToTranslationMap(kModeLabel, strings::kFormat);
    addToTranslationMap(kDataBitsLabel, strings::kDataBits);
    addToTranslationMap(kResolutionLabel, strings::kResolution);
    addToTranslationMap(kApplyButton, strings::kApply);
}

void DisplayUnitDialog::onInitDialog()
{
    auto* box = getControl<ColorableTextBox>(kDisplayBox);
    box->backColor(Qt::black);
    box->foreColor(Qt::yellow);
    box->setFont(QFont(QStringLiteral("Arial"), kDisplayPoints));
    box->setText(QLatin1String(DisplayLink::kNoReading));
    // The longest reading has its place from the start, so that the window keeps its width.
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QString(14, QLatin1Char('0'))) +
                         2 * box->margin());

    fill(*getControl<QComboBox>(kModeCombo), kModes);
    fill(*getControl<QComboBox>(kDataBitsCombo), kDataBits);
    fill(*getControl<QComboBox>(kResolutionCombo), kResolutions);

    auto* applyButton = getControl<QPushButton>(kApplyButton);
    applyButton->setEnabled(false);
    connect(applyButton, &QPushButton::clicked, this, &DisplayUnitDialog::apply);

    m_outcomeLabel = findChild<QLabel*>(QStringLiteral("outcomeLabel"));
    m_outcomeLabel->setMinimumHeight(2 * m_outcomeLabel->fontMetrics().lineSpacing());

    setCursor(Qt::WaitCursor);
    m_link.setReplyTarget(this, WM_DISPLAY_UNIT);
    // Once the window is on the screen, so that the messages appear over it.
    QMetaObject::invokeMethod(this, &DisplayUnitDialog::openLink, Qt::QueuedConnection);
}

void DisplayUnitDialog::translate()
{
    BaseDialog::translate();
    if (ComPortNames().isSimulated(m_link.portName()))
        setWindowTitle(windowTitle() + QStringLiteral(" - ") + languageString(strings::kSimulated));
    getControl<QWidget>(kDisplayBox)
        ->setAccessibleDescription(languageString(strings::kDisplayReading));

    auto* modes = getControl<QComboBox>(kModeCombo);
    modes->setItemText(0, languageString(strings::kBinary));
    modes->setItemText(1, languageString(strings::kGray));
    auto* dataBits = getControl<QComboBox>(kDataBitsCombo);
    for (int item = 0; item < dataBits->count(); ++item)
        dataBits->setItemText(item, QString::number(dataBits->itemData(item).toInt()));
    auto* resolutions = getControl<QComboBox>(kResolutionCombo);
    for (int item = 0; item < resolutions->count(); ++item) {
        const double resolution = resolutions->itemData(item).toInt() * 0.001;
        resolutions->setItemText(item, QString::number(resolution, 'f', 3) + QLatin1Char(' ') +
                                           languageString(strings::kResolutionUnit));
    }
    showOutcome(m_outcomeText);
}

void DisplayUnitDialog::openLink()
{
    if (!m_closeWanted)
        m_setUp = m_link.open(m_sensorPort);
}

/// Without a unit that is set up the window stays, but nothing is ever sent.
void DisplayUnitDialog::onSetUp(int result)
{
    m_setUp = 0;
    unsetCursor();
    if (result == 1) {
        getControl<QPushButton>(kApplyButton)->setEnabled(true);
        m_timer.start();
    }
    collectMessage();
}

void DisplayUnitDialog::onTimer()
{
    if (m_outstanding == 0)
        requestNext();
}

/// An Apply takes the place of one reading.
void DisplayUnitDialog::requestNext()
{
    const auto settings = std::exchange(m_pendingSettings, std::nullopt);
    m_applying = settings.has_value();
    m_outstanding = settings ? m_link.requestApply(*settings) : m_link.requestReading();
}

void DisplayUnitDialog::onCompletion(int result)
{
    m_outstanding = 0;
    if (m_applying && !m_pendingSettings)
        showOutcome(result == 1 ? strings::kDisplayAcknowledged : strings::kDisplayNotAcknowledged);
    const QString reading = m_link.lastReading();
    if (reading.compare(m_shownText, Qt::CaseInsensitive) != 0) {
        m_shownText = reading;
        getControl<ColorableTextBox>(kDisplayBox)->setText(reading);
    }
    if (m_closeWanted) {
        reject();
    } else {
        collectMessage();
    }
}

void DisplayUnitDialog::apply()
{
    m_pendingSettings = DisplaySettings{selectedData(*getControl<QComboBox>(kModeCombo)),
                                        selectedData(*getControl<QComboBox>(kDataBitsCombo)),
                                        selectedData(*getControl<QComboBox>(kResolutionCombo))};
    showOutcome(0);
}

void DisplayUnitDialog::showOutcome(int text)
{
    m_outcomeText = text;
    m_outcomeLabel->setText(text == 0 ? QString() : languageString(text));
}

/// Closes the link, or has the completion of what is outstanding close it: settings that were
/// applied go out whole. A set-up, of which nothing shows yet, is cut short.
void DisplayUnitDialog::done(int /*result*/)
{
    m_timer.stop();
    if (!std::exchange(m_closeWanted, true)) {
        setCursor(Qt::WaitCursor);
        QTimer::singleShot(Pacing::timeout(kExchangeLimit), this, &DisplayUnitDialog::closeLink);
    }
    if (m_outstanding == 0 && m_pendingSettings && m_closing == 0)
        requestNext();
    if (m_outstanding == 0)
        closeLink();
}

void DisplayUnitDialog::closeLink()
{
    if (m_closing != 0)
        return;
    setEnabled(false); // nothing that is entered now would reach the unit
    m_closing = m_link.close();
}

/// The port is closed, or left to a worker that is stuck.
void DisplayUnitDialog::onClosed(int result)
{
    if (result != 1)
        Q_EMIT portStuck(languageString(strings::kPortStuck).arg(m_link.portName()));
    m_link.setReplyTarget(nullptr, 0);
    if (m_messageBox)
        m_messageBox->close();
    BaseDialog::done(Rejected);
}

void DisplayUnitDialog::customEvent(QEvent* event)
{
    const auto* message = WindowMessage::from(event);
    if (!message || message->message() != WM_DISPLAY_UNIT)
        return;
    const RequestId request = message->request();
    const int result = static_cast<int>(message->wParam());
    if (request == 0) {
        collectMessage();
    } else if (request == m_closing) {
        onClosed(result);
    } else if (m_closing != 0) {
        return; // cut short
    } else if (request == m_setUp) {
        onSetUp(result);
    } else if (request == m_outstanding) {
        onCompletion(result);
    }
}

void DisplayUnitDialog::collectMessage()
{
    const QString message = m_link.takeMessage();
    if (!message.isEmpty())
        m_message = message;
    showMessage();
}

/// A box over another dialog would take the keys that are meant for that one.
void DisplayUnitDialog::showMessage()
{
    if (!m_message.isEmpty() && !m_closeWanted && !QApplication::activeModalWidget()) {
        m_messageBox =
            showMessageBox(this, std::exchange(m_message, QString()), QMessageBox::Warning);
    }
}

bool DisplayUnitDialog::event(QEvent* event)
{
    if (event->type() == QEvent::WindowUnblocked)
        QMetaObject::invokeMethod(this, &DisplayUnitDialog::showMessage, Qt::QueuedConnection);
    return BaseDialog::event(event);
}

} // namespace pelorin
