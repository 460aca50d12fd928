#include "pages/FactoryParamsPage.h"

#include "link/SensorLink.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/ui/MessageBox.h"
#include "sensor/SensorTypes.h"

#include <QPushButton>
#include <QTableWidget>

#include <array>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr int kListControl = 1036;
constexpr int kApplyControl = 1037;

constexpr int kReadingText = 121;
constexpr int kReadFailedText = 123;
constexpr int kReadyText = 126;
constexpr int kWriteFailedText = 170;
constexpr int kApplyText = 180;
constexpr int kListNameText = 214;
constexpr int kWritingText = 217;
constexpr int kLinkLostText = 1012;
constexpr int kNotIdentifiedText = 1013;
constexpr int kNotReadText = 1300;
constexpr int kWrittenText = 1310;
constexpr int kNothingWrittenText = 1311;

constexpr auto kPauseBetweenRequests = 100ms;

constexpr std::array<ParameterTable::Row, FactoryParameters::kRowCount> kRows = {{
    {138, 0},
    {215, 0},
    {142, 141}, // stroke, mm
    {143, 144}, // gradient
    {133, 219}, // multiplier
    {147, 146},
    {149, 141}, // offset, mm
    {216, 146},
    {151, 146},
    {154, 146},
}};

/// The rows that sensors of a type have: the first ones.
int rowsOf(const SensorType& type)
{
    int rows = 0;
    while (rows < FactoryParameters::kRowCount && type.has(FactoryParameters::parameterOf(rows)))
        ++rows;
    return rows;
}

} // namespace

FactoryParamsPage::FactoryParamsPage() : SensorPage(QStringLiteral("DLG_PELORIN_FACTORYPARAMS")) {}

void FactoryParamsPage::setupTranslationMap()
{
    addToTranslationMap(kApplyControl, kApplyText);
    addAccessibleName(kListControl, kListNameText);
}

void FactoryParamsPage::onInitDialog()
{
    m_applyButton = getControl<QPushButton>(kApplyControl);
    connect(m_applyButton, &QPushButton::clicked, this, &FactoryParamsPage::apply);

    m_list = getControl<QTableWidget>(kListControl);
    m_table.attach(*m_list, kRows);
    m_editor.attach(m_list);
    connect(&m_editor, &CellEditor::committed, this, [this] { m_applyButton->setEnabled(true); });
}

void FactoryParamsPage::translate()
{
    SensorPage::translate();
    m_table.translate();
}

bool FactoryParamsPage::isWriting() const
{
    return m_phase == Phase::Writing || m_phase == Phase::Closing;
}

void FactoryParamsPage::sensorChanged()
{
    m_readComplete = false;
}

char FactoryParamsPage::readParameterId() const
{
    return m_type->factoryRead[m_step];
}

/// While the sequence is being closed, the command that closes it.
char FactoryParamsPage::writeParameterId() const
{
    if (m_phase == Phase::Closing)
        return m_type->closing;
    return m_type->factoryWrite[m_step];
}

void FactoryParamsPage::getCurrentValues()
{
    if (isWriting())
        return;
    showBusy(1);
    setStatusText(kReadingText);
    m_phase = Phase::Reading;
    m_step = 0;
    m_readComplete = false;
    m_parameters.clear();
    m_type = &sensorType(link().ssiType());
    startEditing(m_type->closing != 0 ? rowsOf(*m_type) : m_rowCount);
    beginSequence();
    requestRead(readParameterId());
}

/// Empties the values and lets those be edited that the sensor has.
void FactoryParamsPage::startEditing(int rowCount)
{
    m_rowCount = rowCount;
    for (int row = 0; row < m_table.rowCount(); ++row) {
        m_table.setValue(row, QString());
        m_table.setEditable(row, row < m_rowCount);
    }
}

void FactoryParamsPage::onLinkReply(int result)
{
    const QString failure = result == 1 && advance() ? QString() : fail();
    postLinkResult(result);
    if (!failure.isNull())
        Q_EMIT writingFailed(failure);
}

/// @return false if the sequence cannot go on
bool FactoryParamsPage::advance()
{
    switch (m_phase) {
    case Phase::Idle:
        break;
    case Phase::Reading:
        continueReading();
        break;
    case Phase::Writing:
        return continueWriting();
    case Phase::Closing:
        finish();
        break;
    }
    return true;
}

void FactoryParamsPage::continueReading()
{
    showReadValue();
    if (++m_step < m_type->factoryRead.size()) {
        Pacing::sleep(kPauseBetweenRequests);
        requestRead(readParameterId());
    } else {
        m_readComplete = true;
        finish();
    }
}

void FactoryParamsPage::showReadValue()
{
    const char id = readParameterId();
    m_parameters.take(id, link().lastReply());
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (FactoryParameters::parameterOf(row) == id)
            m_table.setValue(row, m_parameters.text(row));
    }
}

bool FactoryParamsPage::continueWriting()
{
    if (++m_step < m_type->factoryWrite.size()) {
        Pacing::sleep(kPauseBetweenRequests);
        requestNextWrite();
        return true;
    }
    m_phase = Phase::Closing;
    return sendClosingCommand();
}

void FactoryParamsPage::requestNextWrite()
{
    const char id = writeParameterId();
    requestWrite(id, m_parameters.composeWriteValue(id, m_entries));
}

void FactoryParamsPage::finish()
{
    m_phase = Phase::Idle;
    m_applyButton->setEnabled(false);
    showBusy(0);
    setStatusText(kReadyText);
}

/// @return what to tell the user beyond the status text; null for nothing
QString FactoryParamsPage::fail()
{
    const bool writing = isWriting();
    const char id = writing ? writeParameterId() : readParameterId();
    m_phase = Phase::Idle;
    m_readComplete = false; // nobody knows what the sensor has got
    showBusy(0);
    setStatusText(writing ? kWriteFailedText : kReadFailedText, {parameterArgument(id)});
    if (!writing)
        return {};

    QStringList lines{languageString(kWriteFailedText).arg(parameterArgument(id))};
    if (linkWasLost())
        lines << languageString(kLinkLostText);
    QStringList written;
    for (const char done : m_type->factoryWrite.substr(0, m_step))
        written << QString(QLatin1Char(done));
    lines << (written.isEmpty()
                  ? languageString(kNothingWrittenText)
                  : languageString(kWrittenText).arg(written.join(QStringLiteral(", "))));
    return lines.join(QLatin1Char('\n'));
}

void FactoryParamsPage::apply()
{
    if (m_phase != Phase::Idle)
        return;
    m_editor.commit();
    m_entries = entries();
    if (!validateForApply())
        return;
    showBusy(1);
    m_step = 0;
    m_phase = Phase::Writing;
    setStatusText(kWritingText);
    beginSequence();
    requestNextWrite();
}

/// Tells the user what keeps the values from being written, and selects the row that it is in.
bool FactoryParamsPage::validateForApply()
{
    const QString reason = hindrance();
    const auto fault = reason.isNull() ? m_parameters.findFault(m_entries, m_rowCount)
                                       : FactoryParameters::Fault{reason, -1};
    if (fault.message.isNull())
        return true;
    (void)messageBox(this, fault.message, QMessageBox::Ok, QMessageBox::Warning);
    if (fault.row >= 0)
        m_list->selectRow(fault.row);
    return false;
}

/// Values are written only to the sensor that they were read from.
QString FactoryParamsPage::hindrance() const
{
    if (!link().isIdentified())
        return languageString(kNotIdentifiedText);
    if (!m_readComplete || linkWasLost())
        return languageString(kNotReadText);
    return {};
}

FactoryParameters::Texts FactoryParamsPage::entries() const
{
    FactoryParameters::Texts texts;
    for (int row = 0; row < FactoryParameters::kRowCount; ++row)
        texts[static_cast<std::size_t>(row)] = m_table.value(row);
    return texts;
}

} // namespace pelorin
