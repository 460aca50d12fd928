#include "pages/OutputSetupPage.h"

#include "link/SensorLink.h"
#include "pages/CalculateOffsetDialog.h"
#include "pages/OutputSetupControls.h"
#include "pages/PasswordDialog.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/OffsetChoice.h"
#include "sensor/OutputRules.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"
#include "sensor/SequenceRunner.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <utility>

namespace pelorin {

namespace {

constexpr int kUnlockButton = 1019;
constexpr int kApplyButton = 1028;

constexpr std::array<std::pair<int, int>, 25> kCaptions = {{
    {1002, strings::kDataFormat},
    {1003, strings::kDataBits},
    {1005, strings::kFormat},
    {1007, strings::kMeasurementDirection},
    {1009, strings::kMeasurementMode},
    {1011, strings::kResolution},
    {1013, strings::kErrorSkipCount},
    {1015, strings::kAdvancedSetup},
    {1016, strings::kNumberOfMagnets},
    {1017, strings::kOneMagnet},
    {1018, strings::kTwoMagnets},
    {1019, strings::kUnlock},
    {1020, strings::kExtension},
    {1021, strings::kNoExtension},
    {1022, strings::kParity},
    {1023, strings::kTemperature},
    {1024, strings::kMeasurementMode},
    {1025, strings::kNormalOutput},
    {1026, strings::kDifferentialPosition},
    {1027, strings::kVelocity},
    {1028, strings::kApply},
    {1070, strings::kAsRead},
    {1071, strings::kStrokeLength},
    {1073, strings::kOffset},
    {1075, strings::kGradient},
}};

/// Labels of what the page only reads, by parameter.
constexpr std::array<std::pair<char, int>, 3> kAsReadLabels = {
    {{'L', 1072}, {'N', 1074}, {'U', 1076}}};

constexpr int kReadableWidth = 900; ///< logical pixels: captions stay beside their controls

} // namespace

OutputSetupPage::OutputSetupPage(SafeWriter& writer)
    : WritingPage(QStringLiteral("DLG_PELORIN_OUTPUT_SETUP"), kApplyButton, writer,
                  WriteRequest::By::OutputSetup)
{
}

void OutputSetupPage::setupTranslationMap()
{
    for (const auto& [control, text] : kCaptions)
        addToTranslationMap(control, text);
}

void OutputSetupPage::onInitDialog()
{
    setMaximumWidth(kReadableWidth);
    m_controls = new OutputSetupControls(*this);
    m_controls->skipCountEdit()->setEnabled(m_unlocked);
    connect(m_controls, &OutputSetupControls::settingChanged, this, [this] {
        enableApply(true);
        updateEntries();
    });
    connect(m_controls, &OutputSetupControls::skipCountChanged, this, [this] {
        if (isRead())
            enableApply(true);
        updateEntries();
    });
    connect(getControl<QPushButton>(kUnlockButton), &QPushButton::clicked, this,
            &OutputSetupPage::unlock);
    connect(getControl<QPushButton>(kApplyButton), &QPushButton::clicked, this,
            &OutputSetupPage::apply);
}

void OutputSetupPage::translate()
{
    m_controls->translate();
    WritingPage::translate();
    for (const auto& [id, label] : kAsReadLabels)
        getControl<QLabel>(label)->setAccessibleDescription(languageString(parameterName(id)));
    renderAsRead();
}

void OutputSetupPage::renderAsRead()
{
    for (const auto& [id, label] : kAsReadLabels) {
        const auto value = m_texts.find(id);
        getControl<QLabel>(label)->setText(
            value == m_texts.end() ? QString() : valueInWords(id, value->second, m_texts));
    }
}

bool OutputSetupPage::hasExtension() const
{
    return link().ssiType() == 2;
}

void OutputSetupPage::getCurrentValues()
{
    m_read = {};
    m_texts.clear();
    m_misread.reset();
    renderAsRead();
    m_controls->clear();
    m_controls->setAdvanced(hasExtension());
    read(sensorType(link().ssiType()).outputRead);
}

void OutputSetupPage::showReadValue(const Reply& reply)
{
    if (!m_misread && !reply.wellFormed)
        m_misread = reply;
    m_read.decode(reply.id, reply.text);
    m_texts[reply.id] = reply.text;
    m_controls->show(reply.id, m_read);
    renderAsRead();
}

/// The page shows what was written, whatever was chosen meanwhile.
void OutputSetupPage::showWritten()
{
    m_read = m_chosen;
    m_texts = overlaid(m_texts, m_writes);
    renderAsRead();
    for (const char id : sensorType(link().ssiType()).outputRead)
        m_controls->show(id, m_read);
}

std::vector<WritingPage::Field> OutputSetupPage::fields() const
{
    const auto& read = m_controls->original();
    const auto now = m_controls->values();
    std::vector<Field> fields;
    for (int field = 0; field < OutputSetupControls::kFieldCount; ++field) {
        const auto at = static_cast<std::size_t>(field);
        fields.push_back({.id = OutputSetupControls::parameterOf(field),
                          .caption = m_controls->caption(field),
                          .read = m_controls->text(field, read[at]),
                          .changed = now[at] != read[at]});
    }
    return fields;
}

QStringList OutputSetupPage::fieldTexts(const SensorValues& values) const
{
    OutputSettings settings;
    for (const auto& [id, value] : values)
        settings.decode(id, value);
    const auto fields = OutputSetupControls::valuesOf(settings);
    QStringList texts;
    for (int field = 0; field < OutputSetupControls::kFieldCount; ++field)
        texts << m_controls->text(field, fields[static_cast<std::size_t>(field)]);
    return texts;
}

void OutputSetupPage::mark(int field, const FieldMark& mark)
{
    m_controls->mark(field, mark);
}

void OutputSetupPage::acceptEntries()
{
    m_controls->acceptValues();
}

void OutputSetupPage::restoreRead()
{
    m_controls->restoreValues();
}

void OutputSetupPage::unlock()
{
    if (isBusy())
        return;
    PasswordDialog dialog(window(), strings::kPasswordPrompt);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (isSkipCountPassword(dialog.getPassword())) {
        m_unlocked = true;
        m_controls->skipCountEdit()->setEnabled(true);
    } else {
        (void)refuse(strings::kPasswordWrong);
    }
}

void OutputSetupPage::apply()
{
    if (!isBusy() && validateForApply())
        write(sensorType(link().ssiType()).outputWrite, m_writes);
}

/// Whatever refuses, nothing has been written then, and what was read stays the base of the next
/// try.
bool OutputSetupPage::validateForApply()
{
    if (!valuesAreUsable())
        return false;
    if (QWidget* control = m_controls->firstMissing(hasExtension()))
        return refuse(strings::kValueMissing, control);
    if (m_controls->skipCount() > kLargestSkipCount)
        return refuse(strings::kSkipCountRange, m_controls->skipCountEdit());
    m_chosen = m_controls->chosen(m_read);
    return entriesAreAllowed() && calculateOffset() && confirmChanges() && composeWriteValues();
}

bool OutputSetupPage::valuesAreUsable()
{
    if (const QString reason = hindrance(); !reason.isNull())
        return refuse(reason);
    if (m_misread) {
        return refuse(
            languageString(strings::kMisread)
                .arg(QString(QLatin1Char(m_misread->id)), QString::fromLatin1(m_misread->text)));
    }
    return m_read.micrometres > 0 || refuse(strings::kNoResolution);
}

bool OutputSetupPage::entriesAreAllowed()
{
    const OutputRefusal refusal = refusalOf(link().ssiType(), m_chosen);
    if (refusal == OutputRefusal::None)
        return true;
    return refuse(textNumberOf(refusal), refusal == OutputRefusal::ResolutionTooFine
                                             ? m_controls->resolutionList()
                                             : m_controls->modeList());
}

/// Another direction needs another offset.
bool OutputSetupPage::calculateOffset()
{
    m_offset.reset();
    const bool reverse = m_chosen.format.has(DataFormat::kReverse);
    if (reverse == m_read.format.has(DataFormat::kReverse))
        return chooseOffset();
    CalculateOffsetDialog dialog(window(), reverse, m_read.strokeMm);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_chosen.offsetMm = dialog.offset();
    return isLinkKept();
}

/// An offset that was only read would become another one with each Apply.
bool OutputSetupPage::chooseOffset()
{
    const auto choice = offsetChoice(m_read.offsetMm, m_read.resolutionMm(),
                                     m_chosen.resolutionMm(), m_chosen.format.multiplier());
    if (!choice)
        return true;
    m_offset = askForOffset(*choice);
    return m_offset && isLinkKept();
}

bool OutputSetupPage::confirmChanges()
{
    const auto questions = questionsBefore(link().ssiType(), m_chosen, m_read);
    return std::ranges::all_of(questions, [this](int question) { return confirm(question); });
}

/// All values, before the first one is written.
bool OutputSetupPage::composeWriteValues()
{
    const auto values = composeOutput(link().ssiType(), m_chosen, m_offset);
    if (!values)
        return refuse(strings::kDoesNotFit, m_controls->resolutionList());
    m_writes = *values;
    return true;
}

bool OutputSetupPage::confirm(int question)
{
    return messageBox(window(), languageString(question), QMessageBox::Yes | QMessageBox::No,
                      QMessageBox::Question) == QMessageBox::Yes &&
           isLinkKept();
}

bool OutputSetupPage::refuse(int message, QWidget* focus)
{
    return refuse(languageString(message), focus);
}

/// Says why not, then leads to the control that is the reason.
/// @return false
bool OutputSetupPage::refuse(const QString& text, QWidget* focus)
{
    warn(window(), text);
    if (focus)
        focus->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(focus))
        edit->selectAll();
    return false;
}

} // namespace pelorin
