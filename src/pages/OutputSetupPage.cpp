#include "pages/OutputSetupPage.h"

#include "link/SensorLink.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupControls.h"
#include "pages/PasswordDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/MessageBox.h"
#include "sensor/SensorTypes.h"

#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kUnlockButton = 1019;
constexpr int kApplyButton = 1028;

constexpr std::array<std::pair<int, int>, 21> kCaptions = {{
    {1002, 122}, {1003, 169}, {1005, 173}, {1007, 174}, {1009, 127}, {1011, 140}, {1013, 176},
    {1015, 153}, {1016, 177}, {1017, 155}, {1018, 156}, {1019, 179}, {1020, 178}, {1021, 162},
    {1022, 163}, {1023, 164}, {1024, 127}, {1025, 157}, {1026, 158}, {1027, 159}, {1028, 180},
}};

constexpr int kReadingText = 121;
constexpr int kReadFailedText = 123;
constexpr int kReadyText = 126;
constexpr int kWriteFailedText = 170;
constexpr int kWritingText = 217;

constexpr int kValueMissingText = 181;
constexpr int kResolutionTooFineText = 182;
constexpr int kModeNotOfferedText = 183;
constexpr int kWrongPasswordText = 235;
constexpr int kPasswordPrompt = 240;
constexpr int kModeNotInReverseText = 242;
constexpr int kParityQuestion = 264;
constexpr int kModeQuestion = 265;
constexpr int kLinkLostText = 1012;
constexpr int kNotIdentifiedText = 1013;
constexpr int kReadFirstText = 1201;
constexpr int kWrittenBeforeText = 1202;
constexpr int kNothingWrittenText = 1203;
constexpr int kSkipCountRangeText = 1204;
constexpr int kDoesNotFitText = 1205;
constexpr int kNoResolutionText = 1206;
constexpr int kMisreadText = 1330;

constexpr char kNoParameter = '\xFF';
constexpr auto kPauseBetweenRequests = 100ms;

constexpr int kLargestSkipCount = 255;
constexpr int kFinestOfType0 = 10; ///< micrometres
constexpr int kParity = 1;

QLatin1String storedPassword()
{
    return QLatin1String("STEADYNOW");
}

} // namespace

OutputSetupPage::OutputSetupPage() : SensorPage(QStringLiteral("DLG_PELORIN_OUTPUT_SETUP")) {}

void OutputSetupPage::setupTranslationMap()
{
    for (const auto& [control, text] : kCaptions)
        addToTranslationMap(control, text);
}

void OutputSetupPage::onInitDialog()
{
    m_controls = new OutputSetupControls(*this);
    m_controls->skipCountEdit()->setEnabled(m_unlocked);
    connect(m_controls, &OutputSetupControls::settingChanged, this, [this] { enableApply(true); });
    connect(m_controls, &OutputSetupControls::skipCountChanged, this, [this] {
        if (m_valuesLoaded)
            enableApply(true);
    });
    connect(getControl<QPushButton>(kUnlockButton), &QPushButton::clicked, this,
            &OutputSetupPage::onUnlock);
    connect(getControl<QPushButton>(kApplyButton), &QPushButton::clicked, this,
            &OutputSetupPage::onApply);
}

void OutputSetupPage::translate()
{
    SensorPage::translate();
    m_controls->translate();
}

void OutputSetupPage::enableApply(bool enabled)
{
    getControl<QPushButton>(kApplyButton)->setEnabled(enabled);
}

bool OutputSetupPage::hasExtension() const
{
    return link().ssiType() == 2;
}

bool OutputSetupPage::isWriting() const
{
    return m_phase == Phase::Writing || m_phase == Phase::Closing;
}

void OutputSetupPage::sensorChanged()
{
    m_valuesLoaded = false;
}

void OutputSetupPage::linkLost()
{
    if (m_phase != Phase::Idle)
        fail();
}

void OutputSetupPage::getCurrentValues()
{
    showBusy(1);
    setStatusText(kReadingText);
    m_phase = Phase::Reading;
    m_step = 0;
    m_valuesLoaded = false;
    m_read = {};
    m_misread.reset();
    m_controls->clear();
    m_controls->setAdvanced(hasExtension());
    beginSequence();
    requestRead(stepParameter());
}

void OutputSetupPage::onLinkReply(int result)
{
    if (m_phase == Phase::Idle)
        return; // ended by the loss of the link
    if (result != 1) {
        fail();
    } else if (m_phase == Phase::Reading) {
        readNext();
    } else if (m_phase == Phase::Writing) {
        writeNext();
    } else {
        finish();
    }
    postLinkResult(result);
}

void OutputSetupPage::readNext()
{
    const char id = stepParameter();
    const QByteArray reply = link().lastReply();
    if (!m_misread && !isWellFormed(id, reply))
        m_misread.emplace(id, reply);
    m_read.decode(id, reply);
    m_controls->show(id, m_read);
    ++m_step;
    if (stepParameter() == kNoParameter) {
        finish();
        return;
    }
    Pacing::sleep(kPauseBetweenRequests);
    requestRead(stepParameter());
}

void OutputSetupPage::writeNext()
{
    ++m_step;
    if (stepParameter() == kNoParameter) {
        m_phase = Phase::Closing;
        if (!sendClosingCommand())
            fail();
        return;
    }
    Pacing::sleep(kPauseBetweenRequests);
    writeStep();
}

void OutputSetupPage::writeStep()
{
    const auto& [id, text] = m_writes[static_cast<std::size_t>(m_step)];
    requestWrite(id, text);
}

void OutputSetupPage::finish()
{
    if (isWriting())
        m_read = m_chosen;
    m_phase = Phase::Idle;
    m_valuesLoaded = true;
    showBusy(0);
    setStatusText(kReadyText);
    enableApply(false);
}

/// After a failed Apply nobody knows what the sensor has: it must be read again.
void OutputSetupPage::fail()
{
    const bool applying = isWriting();
    const char id = stepParameter();
    m_phase = Phase::Idle;
    m_valuesLoaded = false;
    showBusy(0);
    setStatusText(applying ? kWriteFailedText : kReadFailedText, {parameterArgument(id)});
    if (applying)
        Q_EMIT applyFailed(failureText(id));
}

/// The parameter of the running sequence's step, kNoParameter behind its last.
char OutputSetupPage::stepParameter() const
{
    const SensorType& type = sensorType(link().ssiType());
    const std::string_view sequence = isWriting() ? type.outputWrite : type.outputRead;
    const auto step = static_cast<std::size_t>(m_step);
    return step < sequence.size() ? sequence[step] : kNoParameter;
}

/// @param id the parameter at which Apply has failed
QString OutputSetupPage::failureText(char id) const
{
    QStringList written;
    for (std::size_t step = 0; step < static_cast<std::size_t>(m_step); ++step) {
        const char done = m_writes[step].first;
        written << QStringLiteral("%1 (%2)").arg(languageString(parameterName(done)),
                                                 QString(QLatin1Char(done)));
    }
    return languageString(kWriteFailedText).arg(parameterArgument(id)) + QStringLiteral("\n\n") +
           (written.isEmpty()
                ? languageString(kNothingWrittenText)
                : languageString(kWrittenBeforeText).arg(written.join(QStringLiteral(", "))));
}

void OutputSetupPage::onUnlock()
{
    if (m_phase != Phase::Idle)
        return;
    PasswordDialog dialog(mainWindow(), kPasswordPrompt);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (dialog.getPassword().compare(storedPassword(), Qt::CaseInsensitive) == 0) {
        m_unlocked = true;
        m_controls->skipCountEdit()->setEnabled(true);
    } else {
        (void)refuse(kWrongPasswordText);
    }
}

void OutputSetupPage::onApply()
{
    if (m_phase != Phase::Idle || !validateForApply())
        return;
    showBusy(1);
    setStatusText(kWritingText);
    m_phase = Phase::Writing;
    m_step = 0;
    beginSequence();
    writeStep();
}

/// Whatever refuses, nothing has been written then, and what was read stays the base of the next
/// try.
bool OutputSetupPage::validateForApply()
{
    if (!valuesAreCurrent())
        return false;
    if (QWidget* control = m_controls->firstMissing(hasExtension()))
        return refuse(kValueMissingText, control);
    if (m_controls->skipCount() > kLargestSkipCount)
        return refuse(kSkipCountRangeText, m_controls->skipCountEdit());
    m_chosen = m_controls->chosen(m_read);
    return entriesAreAllowed() && askForOffset() && confirmChanges() && composeWriteValues();
}

bool OutputSetupPage::valuesAreCurrent()
{
    if (!link().isIdentified())
        return refuse(kNotIdentifiedText);
    if (!m_valuesLoaded || linkWasLost())
        return refuse(kReadFirstText);
    if (m_misread) {
        return refuse(languageString(kMisreadText)
                          .arg(QString(QLatin1Char(m_misread->first)),
                               QString::fromLatin1(m_misread->second)));
    }
    return m_read.micrometres > 0 || refuse(kNoResolutionText);
}

bool OutputSetupPage::entriesAreAllowed()
{
    const bool modeOne = m_chosen.format.has(DataFormat::kModeOne);
    if (link().ssiType() == 0) {
        if (m_chosen.micrometres < kFinestOfType0)
            return refuse(kResolutionTooFineText, m_controls->resolutionList());
        if (modeOne)
            return refuse(kModeNotOfferedText, m_controls->modeList());
    }
    if (modeOne && m_chosen.format.has(DataFormat::kReverse))
        return refuse(kModeNotInReverseText, m_controls->modeList());
    return true;
}

/// Another direction needs another offset.
bool OutputSetupPage::askForOffset()
{
    const bool reverse = m_chosen.format.has(DataFormat::kReverse);
    if (reverse == m_read.format.has(DataFormat::kReverse))
        return true;
    CalculateOffsetDialog dialog(mainWindow(), reverse, m_read.strokeMm);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_chosen.offsetMm = dialog.offset();
    return isLinkKept();
}

/// Asks only about what the sensor does not do already.
bool OutputSetupPage::confirmChanges()
{
    const bool parity = hasExtension() && m_chosen.extension.extension == kParity;
    if (parity && m_read.extension.extension != kParity && !confirm(kParityQuestion))
        return false;
    const bool modeOne = m_chosen.format.has(DataFormat::kModeOne);
    return !modeOne || m_read.format.has(DataFormat::kModeOne) || confirm(kModeQuestion);
}

bool OutputSetupPage::composeWriteValues()
{
    m_writes.clear();
    for (const char id : sensorType(link().ssiType()).outputWrite) {
        const auto text = m_chosen.encode(id);
        if (!text)
            return refuse(kDoesNotFitText, m_controls->resolutionList());
        m_writes.emplace_back(id, *text);
    }
    return true;
}

bool OutputSetupPage::confirm(int question)
{
    return messageBox(mainWindow(), languageString(question), QMessageBox::Yes | QMessageBox::No,
                      QMessageBox::Question) == QMessageBox::Yes &&
           isLinkKept();
}

/// After a dialog: whether the sensor that was read is still connected.
bool OutputSetupPage::isLinkKept()
{
    return !linkWasLost() || refuse(kLinkLostText);
}

bool OutputSetupPage::refuse(int message, QWidget* focus)
{
    return refuse(languageString(message), focus);
}

/// Says why not, then leads to the control that is the reason.
/// @return false
bool OutputSetupPage::refuse(const QString& text, QWidget* focus)
{
    (void)messageBox(mainWindow(), text, QMessageBox::Ok, QMessageBox::Warning);
    if (focus)
        focus->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(focus))
        edit->selectAll();
    return false;
}

} // namespace pelorin
